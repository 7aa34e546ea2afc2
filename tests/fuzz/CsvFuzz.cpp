// Whatever the bytes: a table whose columns fit together and columns to draw, or one error that names the file.
#include <sstream>

#include "Require.h"
#include "host/Errors.h"
#include "plotkit/ColumnChoice.h"
#include "plotkit/table/CsvTable.h"

namespace plotkit {
namespace {

void CheckTable(const TCsvTable& table, std::size_t size)
{
    for (const TCsvColumn& column : table.Columns) {
        Require(column.Values.Length() == (column.Type == ctText ? 0 : table.RowCount), "a value for each row");
        Require(column.ValueCount + column.BadCount <= table.RowCount, "no more cells than rows");
    }
    Require(table.EndOffset <= size, "no more bytes than there are");
    Require(table.LineOfRow(table.RowCount - 1) >= table.RowCount, "a line for each row");
    const TColumnChoice choice = ChooseColumns(table, std::nullopt, {});
    Require(choice.X.Values.Length() == table.RowCount && !choice.Ys.empty(), "columns to draw");
}

}  // namespace
}  // namespace plotkit

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace plotkit;
    try {
        std::istringstream stream{std::string(AsText(data, size))};
        CheckTable(ReadCsv(stream, "data.csv"), size);
    } catch (const EConvertError& error) {
        Require(error.Message().starts_with("data.csv: "), "messages name the file", error.Message());
    }
    return 0;
}
