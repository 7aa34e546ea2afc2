#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>

#include "host/DateTime.h"
#include "host/Errors.h"
#include "host/StringList.h"
#include "plotkit/ColumnChoice.h"
#include "plotkit/table/CsvTable.h"
#include "plotkit/table/DateText.h"

namespace plotkit {
namespace {

TCsvTable Read(const std::string& text)
{
    std::istringstream stream(text);
    return ReadCsv(stream, "data.csv");
}

/// The whole table as one line, "-" for missing values.
std::string Show(const TCsvTable& table)
{
    std::ostringstream out;
    for (const TCsvColumn& column : table.Columns) {
        out << column.Name << (column.Type == ctNumber ? "=" : column.Type == ctDateTime ? "@" : "$");
        for (const double value : column.Values.Span()) {
            if (std::isnan(value))
                out << "- ";
            else
                out << value << " ";
        }
        if (column.BadCount)
            out << column.BadCount << " bad from " << column.FirstBad.Line << " '" << column.FirstBad.Text << "'";
        out << "; ";
    }
    return out.str();
}

using TReadCase = std::pair<std::string, std::string>;

TEST(CsvTable, ReadsWhatPeopleWrite)
{
    const TReadCase cases[] = {
        {"a,b\n1,2\n3,4\n", "a=1 3 ; b=2 4 ; "},
        {"a,b\r\n1,2\r\n\r\n3,4", "a=1 3 ; b=2 4 ; "},
        {"a,b\r1,2\r3,x\r5,6\r", "a=1 3 5 ; b=2 - 6 1 bad from 3 'x'; "},
        {"\xEF\xBB\xBFt;v\n1;2\n", "t=1 ; v=2 ; "},
        {"t\tv,w\tz\n1\t2\t3\n", "t=1 ; v,w=2 ; z=3 ; "},
        {"1,2\n3,4\n", "column 1=1 3 ; column 2=2 4 ; "},
        {"\"a, b\",\"c\"\"d\"\"\"\n\"1\", 2 \n", "a, b=1 ; c\"d\"=2 ; "},
        {"a,b\n,nan\n+1.5,-inf\n1e3,1E999\n.5,5.\n", "a=- 1.5 1000 0.5 ; b=- - - 5 ; "},
        {"a,,b\n1,2,\n", "a=1 ; column 2=2 ; b$; "},
        {"when,what\n2020-01-01,red\n,blue\n1899-12-31,7\n", "when@43831 - 1 ; what$2 bad from 2 'red'; "},
        {"n\n1\n\"two\nlines\"\n3\nx\n", "n=1 - 3 - 2 bad from 3 'two lines'; "},
        {"n,m\n1,1\n\n2,\"y\nz\"\n3,1\nx,1\n", "n=1 2 3 - 1 bad from 7 'x'; m=1 - 1 1 1 bad from 4 'y z'; "},
        {"n\nx\n2020-01\n1\n2\n", "n=- - 1 2 2 bad from 2 'x'; "},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Show(Read(text)), expected) << text;
}

TEST(CsvTable, ErrorsNameFileAndLine)
{
    const TReadCase cases[] = {
        {"", "data.csv: the file is empty"},
        {"a,b\n", "data.csv: no rows behind the first line, which names the columns"},
        {"a,b\n1,2\n\n3\n", "data.csv: line 4: 1 cell where the first line has 2"},
        {"a,b\n\"x\ny\",2\n1\n", "data.csv: line 4: 1 cell where the first line has 2"},
        {"a,b\n1,2\n3,\"4\n5,6\n", "data.csv: line 3, column 2 (b): a quote is not closed or stands inside the cell"},
        {"a,b\n1\"2,3\n", "data.csv: line 2, column 1 (a): a quote is not closed or stands inside the cell"},
        {std::string("a,b\n1,2\n\0", 9), "data.csv: line 3: a byte 0, so this is no text file"},
        {std::string(10000, ',') + "\n", "data.csv: line 1: more than 10000 columns"},
    };
    for (const auto& [text, expected] : cases) {
        try {
            Read(text);
            ADD_FAILURE() << "no error for " << text;
        } catch (const EConvertError& error) {
            EXPECT_EQ(error.Message(), expected);
        }
    }
    EXPECT_THROW(ReadCsvFile("/no/such/file.csv"), EFileError);
    EXPECT_THROW(ReadCsvFile("/tmp"), EFileError);
}

/// Whatever the bytes: a table whose columns fit together, or one error; and the choice of columns copes with the
/// table.
void ExpectWhole(const std::string& text)
{
    try {
        const TCsvTable table = Read(text);
        for (const TCsvColumn& column : table.Columns) {
            ASSERT_EQ(column.Values.Length(), column.Type == ctText ? 0 : table.RowCount);
            ASSERT_LE(column.ValueCount + column.BadCount, table.RowCount);
        }
        ASSERT_GE(table.LineOfRow(table.RowCount - 1), table.RowCount);
        const TColumnChoice choice = ChooseColumns(table, std::nullopt, {});
        ASSERT_EQ(choice.X.Values.Length(), table.RowCount);
        ASSERT_FALSE(choice.Ys.empty());
    } catch (const EConvertError& error) {
        ASSERT_TRUE(error.Message().starts_with("data.csv: ")) << error.Message();
    }
}

TEST(CsvTable, HostileBytes)
{
    std::mt19937 random(20261121);
    const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random()) % n; };
    const std::string good =
        ReadWholeFile(PLOTKIT_SOURCE_DIR "/data/measured/mauna-loa-co2-monthly.csv").substr(0, 1500);
    constexpr std::string_view loaded = "0123456789,,,;\"\"\n\n\r\t -+.:/TeEnainf\xEF\xBB\xBF\xC3";
    for (int round = 0; round < 3000; ++round) {
        std::string noise(below(200), '\0');
        for (char& c : noise)
            c = round % 3 ? loaded[below(loaded.size())] : static_cast<char>(random());
        ExpectWhole(noise);
        std::string mutated = good;
        for (std::size_t n = below(8) + 1; n > 0; --n) {
            const std::size_t at = below(mutated.size());
            if (round % 2)
                mutated[at] = loaded[below(loaded.size())];
            else
                mutated.erase(at, below(20) + 1);
        }
        ExpectWhole(mutated);
    }
}

TEST(DateText, DatesAndWhatIsNone)
{
    const std::pair<const char*, const char*> dates[] = {
        {"1958-03", "1958-03-01 00:00:00.000"},
        {"2012/10/05", "2012-10-05 00:00:00.000"},
        {"2012-1-5 6:07", "2012-01-05 06:07:00.000"},
        {"2012-10-29T23:59:58", "2012-10-29 23:59:58.000"},
        {"2012-10-29T23:59:58.0125Z", "2012-10-29 23:59:58.013"},
        {"2012-12-31 23:59:59,9999", "2013-01-01 00:00:00.000"},
        {"2012-03-01T00:30+01:00", "2012-02-29 23:30:00.000"},
        {"2012-02-29T23:30-0130", "2012-03-01 01:00:00.000"},
    };
    for (const auto& [text, expected] : dates) {
        const auto value = ReadDateText(text);
        ASSERT_TRUE(value) << text;
        EXPECT_EQ(FormatDateTime("yyyy\"-\"mm\"-\"dd hh\":\"nn\":\"ss\".\"zzz", value->DayFirst, {}), expected) << text;
    }
    for (const char* text :
         {"", "2012", "2012-", "2012-13", "2012-00", "2011-02-29", "2012-10/05", "2012-10-05T", "20121005",
          "2012-10-05 24:00", "2012-10-05 12:60", "2012-10-05 12:00:00.", "2012-10-05 12:00 PM", "2012-10-05T12:00+1",
          "2012-10-05Z", "12-10-05", "-2012-10-05", "2012-010-05", "0000-01-01"})
        EXPECT_FALSE(ReadDateText(text)) << text;
}

}  // namespace
}  // namespace plotkit
