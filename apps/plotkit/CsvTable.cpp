#include "plotkit/CsvTable.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <fstream>

#include "host/Errors.h"
#include "plotkit/CsvColumnBuilder.h"

namespace plotkit {
namespace {

constexpr std::size_t ChunkSize = 1U << 18U;
constexpr std::size_t MaxColumns = 10000;
// The vectors of the library count with 32 bits and keep some room.
constexpr std::size_t MaxRows = 2'000'000'000;

/// The separator that stands most often in the first line, outside quotes.
char FindSeparator(std::string_view text)
{
    constexpr std::string_view separators = ",;\t";
    std::array<int, 3> counts{};
    bool quoted = false;
    for (const char c : text) {
        if (c == '"')
            quoted = !quoted;
        if (quoted)
            continue;
        if (c == '\n' || c == '\r')
            break;
        if (const auto i = separators.find(c); i != std::string_view::npos)
            ++counts[i];
    }
    return separators[static_cast<std::size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin())];
}

/// Line ends inside a quoted cell.
std::size_t LineEnds(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        count += text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'));
    return count;
}

/// Receives cells and line ends from the parser. An error is kept until the parser has returned, since it is written in
/// a language that knows no exceptions.
class TCsvReader
{
public:
    explicit TCsvReader(std::string name) : FName(std::move(name))
    {
        if (csv_init(&FParser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0)
            throw std::bad_alloc();
        csv_set_blk_size(&FParser, ChunkSize);
    }
    TCsvReader(const TCsvReader&) = delete;
    TCsvReader& operator=(const TCsvReader&) = delete;
    ~TCsvReader() { csv_free(&FParser); }

    void Parse(std::string_view text);
    TCsvTable Finish();

private:
    static void OnCell(void* content, std::size_t length, void* reader)
    {
        auto& self = *static_cast<TCsvReader*>(reader);
        self.Guard([&] { self.Cell({static_cast<const char*>(content), length}); });
    }
    static void OnLineEnd(int terminator, void* reader)
    {
        auto& self = *static_cast<TCsvReader*>(reader);
        self.Guard([&] { self.LineEnd(terminator); });
    }
    template <class TAction>
    void Guard(TAction&& action) noexcept
    {
        if (FError)
            return;
        try {
            action();
        } catch (...) {
            FError = std::current_exception();
        }
    }

    void Cell(std::string_view cell);
    void LineEnd(int terminator);
    void TakeHeader();
    void CountRow();
    void CheckParser(bool failed);
    [[noreturn]] void Fail(std::size_t line, const std::string& what) const
    {
        throw EConvertError(FName + ": line " + std::to_string(line) + ": " + what);
    }

    std::string FName;
    csv_parser FParser{};
    std::exception_ptr FError;
    std::vector<TCsvColumnBuilder> FColumns;
    std::vector<std::string> FHeader;
    std::vector<std::pair<std::size_t, std::size_t>> FLineSteps;
    std::size_t FRows = 0;
    std::size_t FLine = 1;
    std::size_t FRowLine = 1;
    std::size_t FLastRowLine = 0;
    std::size_t FCells = 0;  ///< of the present row
    bool FHeaderDone = false;
    bool FAfterReturn = false;
    bool FStarted = false;
};

void TCsvReader::Parse(std::string_view text)
{
    if (!FStarted) {
        FStarted = true;
        if (text.starts_with("\xEF\xBB\xBF"))
            text.remove_prefix(3);
        csv_set_delim(&FParser, static_cast<unsigned char>(FindSeparator(text)));
    }
    const std::size_t zero = text.find('\0');
    const std::string_view readable = text.substr(0, zero);
    const std::size_t parsed = csv_parse(&FParser, readable.data(), readable.size(), OnCell, OnLineEnd, this);
    CheckParser(parsed != readable.size());
    if (zero != std::string_view::npos)
        Fail(FLine, "a byte 0, so this is no text file");
}

void TCsvReader::CheckParser(bool failed)
{
    if (FError)
        std::rethrow_exception(FError);
    if (!failed)
        return;
    if (csv_error(&FParser) != CSV_EPARSE)
        throw std::bad_alloc();
    std::string column = "column " + std::to_string(FCells + 1);
    if (FCells < FColumns.size())
        column += " (" + FColumns[FCells].Name() + ")";
    throw EConvertError(FName + ": line " + std::to_string(FLine) + ", " + column +
                        ": a quote is not closed or stands inside the cell");
}

void TCsvReader::Cell(std::string_view cell)
{
    if (FCells == 0)
        FRowLine = FLine;
    FAfterReturn = false;
    ++FCells;
    if (!FHeaderDone) {
        if (FCells > MaxColumns)
            Fail(FLine, "more than " + std::to_string(MaxColumns) + " columns");
        FHeader.emplace_back(cell);
    } else if (FCells <= FColumns.size()) {
        FColumns[FCells - 1].Add(FRows, FLine, cell);
    }
    FLine += LineEnds(cell);
}

void TCsvReader::LineEnd(int terminator)
{
    if (FCells > 0) {
        if (!FHeaderDone) {
            TakeHeader();
        } else {
            if (FCells != FColumns.size())
                Fail(FRowLine, std::to_string(FCells) + (FCells == 1 ? " cell" : " cells") +
                                   " where the first line has " + std::to_string(FColumns.size()));
            CountRow();
        }
    }
    // CR LF is one line end, reported in two pieces.
    if (!(terminator == CSV_LF && FCells == 0 && FAfterReturn))
        ++FLine;
    FAfterReturn = terminator == CSV_CR;
    FCells = 0;
}

void TCsvReader::TakeHeader()
{
    FHeaderDone = true;
    bool isData = false;
    for (const std::string& cell : FHeader) {
        const TCellContent content = ReadCell(cell);
        if (content.Kind == ckText) {
            isData = false;
            break;
        }
        isData = isData || content.Kind != ckMissing;
    }
    for (std::size_t i = 0; i < FHeader.size(); ++i)
        FColumns.emplace_back(isData ? std::string() : FHeader[i], i + 1);
    if (isData) {
        for (std::size_t i = 0; i < FHeader.size(); ++i)
            FColumns[i].Add(0, FRowLine, FHeader[i]);
        CountRow();
    }
    FHeader.clear();
}

void TCsvReader::CountRow()
{
    if (FRows == MaxRows)
        Fail(FRowLine, "more than " + std::to_string(MaxRows) + " rows");
    if (FRows == 0 || FRowLine != FLastRowLine + 1)
        FLineSteps.emplace_back(FRows, FRowLine);
    FLastRowLine = FRowLine;
    ++FRows;
}

TCsvTable TCsvReader::Finish()
{
    const bool failed = csv_fini(&FParser, OnCell, OnLineEnd, this) != 0;
    CheckParser(failed);
    if (!FHeaderDone)
        throw EConvertError(FName + ": the file is empty");
    if (FRows == 0)
        throw EConvertError(FName + ": no rows behind the first line, which names the columns");
    TCsvTable table;
    table.File = FName;
    table.RowCount = FRows;
    table.LineSteps = std::move(FLineSteps);
    table.Columns.reserve(FColumns.size());
    for (TCsvColumnBuilder& column : FColumns)
        table.Columns.push_back(column.Finish(FRows));
    return table;
}

}  // namespace

std::size_t TCsvTable::LineOfRow(std::size_t row) const
{
    const auto after = std::upper_bound(LineSteps.begin(), LineSteps.end(), row,
                                        [](std::size_t wanted, const auto& step) { return wanted < step.first; });
    const auto& [firstRow, line] = *std::prev(after);
    return line + (row - firstRow);
}

TCsvTable ReadCsv(std::istream& stream, const std::string& name)
{
    TCsvReader reader(name);
    std::vector<char> chunk(ChunkSize);
    while (stream.read(chunk.data(), static_cast<std::streamsize>(chunk.size())), stream.gcount() > 0)
        reader.Parse({chunk.data(), static_cast<std::size_t>(stream.gcount())});
    if (stream.bad())
        throw EFileError(name + ": cannot be read");
    return reader.Finish();
}

TCsvTable ReadCsvFile(const std::filesystem::path& file)
{
    const std::string name = file.string();
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found)
        throw EFileError(name + ": there is no such file");
    if (status.type() == std::filesystem::file_type::directory)
        throw EFileError(name + ": this is a directory, not a file");
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw EFileError(name + ": cannot be opened: " + std::generic_category().message(errno));
    return ReadCsv(stream, name);
}

}  // namespace plotkit
