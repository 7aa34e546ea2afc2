#include "plotkit/table/CsvTable.h"

#include <algorithm>

#include "plotkit/table/CellText.h"
#include "plotkit/table/TableReader.h"

namespace plotkit {

std::size_t TCsvTable::LineOfRow(std::size_t row) const
{
    const auto after = std::upper_bound(LineSteps.begin(), LineSteps.end(), row,
                                        [](std::size_t wanted, const auto& step) { return wanted < step.first; });
    const auto& [firstRow, line] = *std::prev(after);
    return line + (row - firstRow);
}

TCsvTable ReadCsv(std::istream& stream, const std::string& name, const TReadOptions& options)
{
    TTextSource source(stream, name, options.Progress);
    return TTableReader(source, options).Read();
}

TCsvTable ReadCsvFile(const std::filesystem::path& file, const TReadOptions& options)
{
    TTextSource source(file, options.Progress);
    return TTableReader(source, options).Read();
}

}  // namespace plotkit
