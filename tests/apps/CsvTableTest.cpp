#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "host/DateTime.h"
#include "host/Errors.h"
#include "host/StringList.h"
#include "plotkit/ColumnChoice.h"
#include "plotkit/table/CsvTable.h"
#include "plotkit/table/DateText.h"
#include "support/MessageOf.h"

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
        {"n\n0\nx\n2020-01\n1\n2\n", "n=0 - - 1 2 2 bad from 3 'x'; "},
        {"n,m\n1,1\"2\n2,\"3\"4\n3,5\n4,6\n", "n=1 2 3 4 ; m=- - 5 6 2 bad from 2 '1\"2'; "},
        {"a,b\n1\n2,3,4,\n,\n5,6,\n", "a=1 2 - 5 ; b=- 3 - 6 ; "},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Show(Read(text)), expected) << text;
}

TEST(CsvTable, ErrorsNameFileAndLine)
{
    const TReadCase cases[] = {
        {"", "data.csv: the file is empty"},
        {"a,b\n", "data.csv: no rows behind line 1, which names the columns"},
        {"#1,2\n#3,4\n", "data.csv: no rows, only remarks; --comment names the characters that start one"},
        {"a,b\n1,2\n3,\"4\n5,6\n", "data.csv: line 3, column 2 (b): a quote is not closed"},
        {"\"a,b\n1,2\n", "data.csv: line 1: a quote is not closed"},
        {"a,b\r\n\r\n1,\"2\r\n3,4\r\n", "data.csv: line 3, column 2 (b): a quote is not closed"},
        {"a,b\n\n1,234.5,7\n",
         "data.csv: line 3: 3 cells where line 1 names 2 columns; cells that hold the separator "
         "need quotes"},
        {"a\n" + std::string(17'000'000, '1'),
         "data.csv: line 2: longer than 16 MB, so this is no table, or a quote is not closed"},
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
    EXPECT_EQ(MessageOf<EFileError>([] { ReadCsvFile("/no/such/file.csv"); }),
              "/no/such/file.csv: there is no such file");
    EXPECT_EQ(MessageOf<EFileError>([] { ReadCsvFile("/tmp"); }), "/tmp: this is a directory, not a file");
    EXPECT_EQ(MessageOf<EConvertError>([] { ReadCsvFile("/dev/zero"); }),
              "/dev/zero: line 1: a byte 0, so this is no text file");
}

/// Long enough for several blocks; every 1000th line is a remark or has a quoted line end.
TEST(CsvTable, BlocksProgressAndStop)
{
    std::string text = "n,what\r\n";
    std::size_t lines = 1;
    for (int i = 0; i < 60'000; ++i) {
        text += std::to_string(i) + (i % 1000 == 7 ? ",\"a\r\nb\"\r\n" : ",c\r\n");
        lines += i % 1000 == 7 ? 2 : 1;
        if (i % 1000 == 500 && ++lines)
            text += "# remark, \"\r\n";
    }
    const TCsvTable table = Read(text);
    ASSERT_EQ(table.RowCount, 60'000U);
    EXPECT_EQ(table.LineOfRow(59'999), lines);
    EXPECT_EQ(table.EndOffset, text.size());
    EXPECT_EQ(table.Columns[0].ValueCount, 60'000U);
    for (std::size_t i = 0; i < 60'000; ++i)
        ASSERT_EQ(table.Columns[0].Values[i], static_cast<double>(i));

    TReadOptions options;
    std::uint64_t seen = 0;
    options.Progress = [&](std::uint64_t read, std::uint64_t total) {
        seen = read;
        return total != 0;
    };
    std::string slow;
    while (slow.size() < 25'000'000)
        slow += text;
    std::istringstream stream(slow);
    EXPECT_EQ(MessageOf<ECancelled>([&] { ReadCsv(stream, "data.csv", options); }), "data.csv: reading was stopped");
    EXPECT_TRUE(seen > 0 && seen < slow.size());
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
        {"20121030T1200", "2012-10-30 12:00:00.000"},
        {"20121030T235959,9996Z", "2012-10-31 00:00:00.000"},
        {"2012-W01-1", "2012-01-02 00:00:00.000"},
        {"2009-W53-7T06:00", "2010-01-03 06:00:00.000"},
        {"2012-366", "2012-12-31 00:00:00.000"},
        {"5.10.2012 17:30", "2012-10-05 17:30:00.000"},
        {"5/10/2012 12:05:00 AM", "2012-10-05 00:05:00.000"},
        {"05-Oct-2012 1:05 pm", "2012-10-05 13:05:00.000"},
    };
    for (const auto& [text, expected] : dates) {
        const auto value = ReadDateText(text);
        ASSERT_TRUE(value) << text;
        EXPECT_EQ(FormatDateTime("yyyy\"-\"mm\"-\"dd hh\":\"nn\":\"ss\".\"zzz", value->DayFirst, {}), expected) << text;
    }
    for (const char* text : {"",
                             "2012",
                             "2012-",
                             "2012-13",
                             "2012-00",
                             "2011-02-29",
                             "2012-10/05",
                             "2012-10-05T",
                             "20121005",
                             "2012-10-05 24:00",
                             "2012-10-05 12:60",
                             "2012-10-05 12:00:00.",
                             "2012-10-05 12:00 PM",
                             "2012-10-05T12:00+1",
                             "2012-10-05Z",
                             "12-10-05",
                             "-2012-10-05",
                             "2012-010-05",
                             "2011-366",
                             "2012-W54-1",
                             "20121030T",
                             "20121301T1200",
                             "31.2.2012",
                             "31/31/2012",
                             "5/10/12",
                             "5.10/2012",
                             "5/10/2012 13:00 PM",
                             "5.10.2012Z",
                             "12:30",
                             "0000-01-01"})
        EXPECT_FALSE(ReadDateText(text)) << text;
}

}  // namespace
}  // namespace plotkit
