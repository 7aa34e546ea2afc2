#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "host/DateTime.h"
#include "host/Errors.h"
#include "plotkit/TableNotes.h"
#include "plotkit/table/DateText.h"

namespace plotkit {
namespace {

TCsvTable Read(const std::string& text, const TDialectWish& wish = {})
{
    std::istringstream stream(text);
    TReadOptions options;
    options.Wish = wish;
    return ReadCsv(stream, "data.txt", options);
}

/// Names with units and values, "t(s) 1 3; v 2 -".
std::string Cells(const TCsvTable& table)
{
    std::ostringstream out;
    for (const TCsvColumn& column : table.Columns) {
        out << (column.Number > 1 ? "; " : "") << column.Name;
        if (!column.Unit.empty())
            out << "(" << column.Unit << ")";
        for (const double value : column.Values.Span())
            out << " " << (std::isnan(value) ? "-" : (std::ostringstream() << value).str());
    }
    return out.str();
}

std::string Reading(const TCsvTable& table)
{
    return DescribeReading(table).substr(6);
}

struct TDialectCase
{
    std::string Text, Reading, Cells;
};

TEST(Dialect, IsFoundOut)
{
    const TDialectCase cases[] = {
        {"t;v\n0,5;1,25\n1;2,5\n", "2 rows, 2 columns separated by semicolons, decimal commas, names in line 1",
         "t 0.5 1; v 1.25 2.5"},
        {"t\tv\r\n0,5\t1,25\r\n", "1 row, 2 columns separated by tabs, decimal commas, names in line 1",
         "t 0.5; v 1.25"},
        {"t,v\n\"0,5\",\"1,234\"\n", "1 row, 2 columns separated by commas, decimal commas, names in line 1",
         "t 0.5; v 1.234"},
        {"v\n1,5\n2,25\n", "2 rows, 1 column, decimal commas, names in line 1", "v 1.5 2.25"},
        {"  1   2,0\n 1,5\t4,5 \n", "2 rows, 2 columns separated by blanks, decimal commas, no line of names",
         "column 1 1 1.5; column 2 2 4.5"},
        {"size \",v\n5,1\n7,2\n", "2 rows, 2 columns separated by commas, names in line 1", "size \" 5 7; v 1 2"},
        {"a | b\n1|2\n", "1 row, 2 columns separated by bars, names in line 1", "a 1; b 2"},
        {"2012-10-05 12:00,1.5\n2012-10-05 12:30,2\n", "2 rows, 2 columns separated by commas, no line of names",
         "column 1 41187.5 41187.5; column 2 1.5 2"},
        {"\n\xEF\xBB\xBF\n", "", ""},
        {"# foil\n# t, v\n0.5 1\n# pause\n1.0 2\n",
         "2 rows, 2 columns separated by blanks, names in line 2, 2 comment lines", "t 0.5 1; v 1 2"},
        {"#t;v\n1,5;2\n", "1 row, 2 columns separated by semicolons, decimal commas, names in line 1", "t 1.5; v 2"},
        {"# not a header\n1 2\n", "1 row, 2 columns separated by blanks, no line of names, 1 comment line",
         "column 1 1; column 2 2"},
        {"#YY MM DD v\n#yr mo dy m/s\n2012 10 1 7.5\n",
         "1 row, 4 columns separated by blanks, names in line 1, units in line 2",
         "YY(yr) 2012; MM(mo) 10; DD(dy) 1; v(m/s) 7.5"},
        {"; made\nt v\n1 2\n;end\n", "1 row, 2 columns separated by blanks, names in line 2, 2 comment lines",
         "t 1; v 2"},
        {"a;b\n;2\n;3\n1;4\n", "3 rows, 2 columns separated by semicolons, names in line 1", "a - - 1; b 2 3 4"},
        {"t,v,w\n[s],,-\n1,2,3\n2,,4\n", "2 rows, 3 columns separated by commas, names in line 1, units in line 2",
         "t(s) 1 2; v 2 -; w 3 4"},
        {"what,v\nred,x\nblue,1\ngrey,2\n", "3 rows, 2 columns separated by commas, names in line 1", "what; v - 1 2"},
        {"Sample: foil 2\nMade: today\n\nt;v\n1;2\n",
         "1 row, 2 columns separated by semicolons, names in line 4, 2 lines before the table left out", "t 1; v 2"},
        {"x y\nr1 1 2\nr2 3 4\n", "2 rows, 3 columns separated by blanks, names in line 1", "column 1; x 1 3; y 2 4"},
        {"red,1\nblue,2\n", "2 rows, 2 columns separated by commas, no line of names", "column 1; column 2 1 2"},
        {"a,b,\n1,NA,\n2,-,\n-inf,N/A,\n,7,\n", "4 rows, 2 columns separated by commas, names in line 1",
         "a 1 2 - -; b - - - 7"},
        {"1.5D+03\t+2\n-.5d-01\t1e400\n", "2 rows, 2 columns separated by tabs, no line of names",
         "column 1 1500 -0.05; column 2 2 -"},
        {"T [\xB0"
         "C];\xB5V\n1;2\n",
         "1 row, 2 columns separated by semicolons, names in line 1", "T [\u00B0C] 1; \u00B5V 2"},
        {std::string("\xFE\xFF\0t\0;\xD8\x3D\xDE\x00\0\n\0001\0;\0002\0\n", 20),
         "1 row, 2 columns separated by semicolons, names in line 1, UTF-16", "t 1; \U0001F600 2"},
        {std::string("\xFF\xFEv\0\n\0001\0\n\0", 10), "1 row, 1 column, names in line 1, UTF-16", "v 1"},
    };
    for (const TDialectCase& c : cases) {
        try {
            const TCsvTable table = Read(c.Text);
            EXPECT_EQ(Reading(table), c.Reading) << c.Text;
            EXPECT_EQ(Cells(table), c.Cells) << c.Text;
        } catch (const EConvertError& error) {
            EXPECT_TRUE(c.Cells.empty()) << c.Text << error.Message();
        }
    }
}

TEST(Dialect, WishesDecide)
{
    TDialectWish wish;
    wish.Separator = ';';
    wish.Decimal = '.';
    EXPECT_EQ(Cells(Read("t;v,w\n1.5;2\n", wish)), "t 1.5; v,w 2");
    wish = {};
    wish.Header = true;
    EXPECT_EQ(Cells(Read("2019,2020\n1,2\n3,4\n", wish)), "2019 1 3; 2020 2 4");
    wish.Header = false;
    EXPECT_EQ(Cells(Read("a,2\n1,3\n2,4\n", wish)), "column 1 - 1 2; column 2 2 3 4");
    wish = {};
    wish.Comments = "!";
    wish.Skip = 2;
    EXPECT_EQ(Cells(Read("1,2\n\n!a\n#b,c\n1,2\n!\n3,4\n", wish)), "#b 1 3; c 2 4");
}

TEST(Dialect, RowsBehindLongFrontsAndLongLines)
{
    std::string remarks;
    for (int i = 0; i < 30'000; ++i)
        remarks += "# remark " + std::to_string(i) + "\n";
    EXPECT_EQ(Reading(Read(remarks + "t v\n1 2\n")),
              "1 row, 2 columns separated by blanks, names in line 30001, 30000 comment lines");
    std::string names = "c0", row = "0";
    for (int i = 1; i < 9000; ++i) {
        names += "," + std::string(60, 'c') + std::to_string(i);
        row += "," + std::to_string(i);
    }
    const TCsvTable wide = Read(names + "\n" + row + "\n" + row + "\n");
    ASSERT_EQ(wide.Columns.size(), 9000U);
    EXPECT_EQ(wide.Columns[8999].Values[1], 8999);
}

TEST(Dialect, DaysAndMonths)
{
    const auto x = [](const std::string& text, const TDialectWish& wish = {}) {
        const TCsvTable table = Read("d,v\n" + text, wish);
        const TColumnChoice choice = ChooseColumns(table, "d", {});
        std::string shown = FormatDateTime("yyyy\"-\"mm\"-\"dd", choice.X.Values[0], {});
        for (const std::string& doubt : DescribeDoubts(table, choice))
            shown += doubt.substr(std::string("data.txt").size());
        return shown;
    };
    TDialectWish american, wished;
    american.LocaleDayFirst = false;
    wished.DayFirst = false;
    const std::string open = ": column \"d\": the dates do not tell day from month; ";
    EXPECT_EQ(x("1/2/2012,1\n13/2/2012,2\n", american), "2012-02-01");
    EXPECT_EQ(x("1/2/2012,1\n2/13/2012,2\n"), "2012-01-02");
    EXPECT_EQ(x("1.2.2012,1\n2.2.2012,2\n", american), "2012-02-01");
    EXPECT_EQ(x("1/2/2012,1\n"), "2012-02-01" + open + "day/month was taken, --dates mdy takes month/day");
    EXPECT_EQ(x("1/2/2012,1\n", american), "2012-01-02" + open + "month/day was taken, --dates dmy takes day/month");
    EXPECT_EQ(x("1/2/2012,1\n", wished), "2012-01-02");
    EXPECT_EQ(x("2012-01-03,1\n13/2/2012,2\n2/13/2012,3\n5/13/2012,2\n"),
              "2012-01-03: line 3, column \"d\": \"13/2/2012\" is no date");
    EXPECT_EQ(x("2012-01-01T00:30+01:00,1\n"),
              "2011-12-31: column \"d\": dates with an offset are shown in universal time (UTC)");
    EXPECT_TRUE(WritesDayFirst("dd.MM.yyyy") && WritesDayFirst("yyyy/mm/dd") && !WritesDayFirst("M/d/yy"));
}

}  // namespace
}  // namespace plotkit
