// The job of CsvColumnBuilder is to collect the cells of one column and to find out what they are.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "plotkit/table/CellText.h"
#include "plotkit/table/CsvTable.h"

namespace plotkit {

/// Texts are counted, not kept: memory goes into the values alone.
class TCsvColumnBuilder
{
public:
    /// An empty name becomes "column " + `number`.
    TCsvColumnBuilder(const std::string& name, std::size_t number, char decimal);

    const std::string& Name() const { return FName; }
    /// Whether no cell so far had a content.
    bool IsEmpty() const;
    /// The cell of `row` (from 0, ascending).
    void Add(std::size_t row, std::size_t line, std::string_view cell);
    // Cells that are no texts. Numbers that are not finite have no value.
    void AddNumber(std::size_t row, std::size_t line, double value);
    void AddDate(std::size_t row, std::size_t line, double value, bool isUniversal);
    void AddTime(std::size_t row, std::size_t line, double value);
    /// To be called once, when `rowCount` rows have been seen. `dayFirst`: the order of day and month that decides
    /// where the dates do not, or, when it `isWished`, always.
    TCsvColumn Finish(std::size_t rowCount, bool dayFirst, bool isWished);

private:
    /// All cells of one kind.
    struct TCells
    {
        std::vector<double> Values;
        std::size_t Count = 0;
        TCsvCell First;
    };
    /// Dates under one order of day and month; those that are none under it are bad.
    struct TDates
    {
        std::vector<double> Values;
        std::size_t Count = 0;
        TCsvCell FirstBad;
    };
    void Note(TCells& cells, std::size_t line, std::string_view cell);
    void TakeDate(std::size_t row, std::size_t line, std::string_view cell, const TCellContent& content);
    void AddTo(TDates& dates, std::size_t row, std::size_t line, std::string_view cell, double value);
    TDates& ChosenDates(bool dayFirst, bool isWished, TCsvColumn& column);
    static void AddBad(TCsvColumn& column, std::size_t count, const TCsvCell& first);
    void CountBad(const TCells* kept, TCsvColumn& column) const;

    std::string FName;
    std::size_t FNumber;
    char FDecimal;
    TCells FNumbers, FTimes, FTexts, FDates, FGrouped;
    TDates FDayFirst;
    std::optional<TDates> FMonthFirst;  ///< from the first date on that may be read two ways
    bool FIsUniversal = false;
};

/// The value of a cell for a column that is already known; nothing when the cell has a content that does not fit, NaN
/// when it is empty.
std::optional<double> ValueFor(const TCsvColumn& column, const TCellContent& content);

}  // namespace plotkit
