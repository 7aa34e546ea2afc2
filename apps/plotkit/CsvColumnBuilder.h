// The job of CsvColumnBuilder is to collect the cells of one column and to find out what they are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "plotkit/CsvTable.h"

namespace plotkit {

enum TCellKind
{
    ckMissing,
    ckNumber,
    ckDateTime,
    ckText
};

struct TCellContent
{
    TCellKind Kind = ckMissing;
    double Value = 0;
};

/// What a cell says. Blanks around it do not count.
TCellContent ReadCell(std::string_view cell);

/// Texts are counted, not kept: memory goes into the values alone.
class TCsvColumnBuilder
{
public:
    /// An empty name becomes "column " + `number`.
    TCsvColumnBuilder(const std::string& name, std::size_t number);

    const std::string& Name() const { return FName; }
    /// The cell of `row` (from 0, ascending).
    void Add(std::size_t row, std::size_t line, std::string_view cell);
    /// To be called once, when `rowCount` rows have been seen.
    TCsvColumn Finish(std::size_t rowCount);

private:
    /// All cells of one kind.
    struct TCells
    {
        std::vector<double> Values;
        std::size_t Count = 0;
        TCsvCell First;
    };
    void Note(TCells& cells, std::size_t line, std::string_view cell);

    std::string FName;
    std::size_t FNumber;
    TCells FNumbers, FDates, FTexts;
};

}  // namespace plotkit
