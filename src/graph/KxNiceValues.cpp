#include "graph/KxNiceValues.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "foundation/KxArithm.h"
#include "foundation/KxConsts.h"
#include "foundation/KxLargeIniFile.h"
#include "host/CheckedMath.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

std::optional<TKxNiceValues>& Tables()
{
    static std::optional<TKxNiceValues> tables;
    return tables;
}

void ReadField(const TKxIniList& list, const char* ident, TKxNiceValues::TField& field)
{
    TKxRealArray values(field.size());
    std::copy(field.begin(), field.end(), values.Write());
    list.ReadRealArray("GraphScale", ident, values);
    // A step that is not positive has no multiples to round to.
    for (std::size_t i = 0; i < field.size(); ++i)
        if (std::isfinite(values[i]) && values[i] > 0)
            field[i] = values[i];
}

void ReadTables(const std::string& fileName, TKxNiceValues& tables)
{
    if (fileName.empty())
        return;
    // An axis asks while it is painted: settings that cannot be read are no reason to show no graph.
    try {
        const TKxLargeIniFile file(fileName);
        ReadField(file, "RoundField", tables.RoundField);
        ReadField(file, "TickField", tables.TickField);
        ReadField(file, "MajorTickField", tables.MajorTickField);
        ReadField(file, "LabelsField", tables.LabelsField);
    } catch (const EFileError&) {
    }
}

}  // namespace

TKxNiceValues& NiceValues()
{
    std::optional<TKxNiceValues>& tables = Tables();
    if (!tables) {
        tables.emplace();
        ReadTables(IniFileName(), *tables);
        ReadTables(UserSettings(), *tables);
    }
    return *tables;
}

void ForgetNiceValues()
{
    Tables().reset();
}

int NiceIndex(double width, int exponent)
{
    return std::clamp(RoundToInt(ExpMinus(width, exponent)), 1, 10) - 1;
}

}  // namespace plotkit
