// The job of TableReader is to take the rows of a text off its source and to hand their cells to the columns.
#pragma once

#include "plotkit/table/CsvColumnBuilder.h"
#include "plotkit/table/CsvTable.h"

namespace plotkit {

class TTableReader
{
public:
    TTableReader(TTextSource& source, const TReadOptions& options) : FSource(source), FOptions(options) {}

    /// To be called once. Errors as `ReadCsvFile`.
    TCsvTable Read();

private:
    void ReadFront();
    void Start();
    bool More();
    void CheckZeros(std::size_t from);
    void TakeRecords(TRecordCutter& cutter);
    void TakeRow(const TRecord& record);
    void CountRow();
    void CountRagged(std::size_t cells, bool isSurplus);
    void Consume(std::size_t count);
    [[noreturn]] void FailUnclosed(std::string_view record) const;
    [[noreturn]] void FailLong() const;
    [[noreturn]] void FailSurplus() const;
    [[noreturn]] void Fail(std::size_t line, const std::string& what) const;
    TCsvTable Finish();

    TTextSource& FSource;
    const TReadOptions& FOptions;
    std::string FText;  ///< what was read and not taken yet
    TTableDialect FDialect;
    std::vector<TCsvColumnBuilder> FColumns;
    std::vector<std::pair<std::size_t, std::size_t>> FLineSteps;
    TRaggedRows FRagged;
    std::size_t FSurplusRows = 0;
    std::size_t FFirstSurplusLine = 0, FFirstSurplusCells = 0;
    std::size_t FComments = 0;
    std::size_t FRows = 0;
    std::size_t FLine = 1;
    std::size_t FLastRowLine = 0;
    std::uint64_t FTaken = 0;  ///< bytes of the file
    bool FAtEnd = false;
};

}  // namespace plotkit
