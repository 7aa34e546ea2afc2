#include <gtest/gtest.h>

#include <sstream>

#include "host/DateTime.h"
#include "host/Errors.h"
#include "plotkit/ColumnChoice.h"
#include "plotkit/TableNotes.h"

namespace plotkit {
namespace {

TCsvTable Read(const std::string& text)
{
    std::istringstream stream(text);
    return ReadCsv(stream, "data.csv");
}

struct TChoiceCase
{
    std::string Text;
    std::optional<std::string> X;
    std::vector<std::string> Ys;
    std::string Expected;
};

TEST(ColumnChoice, RulesAndNames)
{
    const std::string plain = "b,a,c\n2,1,5\n1,2,6\n3,3,4\n";
    const std::string twins = "t,v,V,w,w\n1,2,3,4,5\n2,3,4,5,6\n";
    const std::string columns = "; the columns are 1 t, 2 v, 3 V, 4 w, 5 w";
    const TChoiceCase cases[] = {
        {plain, {}, {}, "X: a, Y: b (3 values)"},
        {plain, "c", {}, "X: c, Y: b (3 values)"},
        {plain, {}, {"a"}, "X: row number, Y: a (3 values)"},
        {plain, "1", {"3,A", "b"}, "X: b, Y: c (3 values), a (3 values), b (3 values)"},
        {"v\n3\n", {}, {}, "X: row number, Y: v (1 value)"},
        {"v\n3\n1\n", {}, {}, "X: row number, Y: v (2 values)"},
        {"s,\"p,q\"\nx,1\ny,1\n", {}, {"p,q"}, "X: row number, Y: p,q (2 values)"},
        {"time,reaction time\n1,2\n2,3\n", {}, {}, "X: time, Y: reaction time (2 values)"},
        {"t,late date,v\n1,2,9\n2,3,8\n", {}, {}, "X: t, Y: v (2 values)"},
        {"x,month,v\n3,1,9\n2,2,8\n", {}, {}, "X: month, Y: x (2 values)"},
        {"v,Year,MONTH\n3,2020,1\n4,2019,1\n", {}, {}, "X: v, Y: Year (2 values)"},
        {"v,Year,MONTH,w\n3,2020,1,7\n4,2019,1,8\n", {}, {}, "X: v, Y: w (2 values)"},
        {"v,Year,MONTH\n3,2020,1\n4,2019,1\n", "year..month", {}, "X: Year..MONTH (date), Y: v (2 values)"},
        {"x,v\n1,5\n,6\n2,\n", {}, {}, "X: x, Y: v (2 values, 1 missing)"},
        {twins, {}, {"v"}, "X: t, Y: v (2 values)"},
        {twins, {}, {"W"}, "data.csv: --y: more than one column is named \"W\"" + columns},
        {twins, "u", {}, "data.csv: --x: there is no column \"u\"" + columns},
        {twins, {}, {"6"}, "data.csv: --y: there is no column \"6\"" + columns},
        {twins, {}, {"v,"}, "data.csv: --y: there is no column \"\"" + columns},
        {"a,b\nx,\ny,\n", {}, {}, "data.csv: no column holds numbers; line 2, column \"a\" has \"x\""},
        {"a,b\nx,1\n", "a", {}, "data.csv: --x: column \"a\" holds no numbers; line 2 has \"x\""},
        {"Day,Time,v\n2012-01-05,10:00,1\n2012-01-05,10:01,2\n", {}, {}, "X: Day..Time (date), Y: v (2 values)"},
        {"#YY MM DD hh mm v\n2012 10 01 00 50 7\n2012 10 01 01 50 6\n", {}, {}, "X: YY..mm (date), Y: v (2 values)"},
        {"YY,MM,v\n12,1,7\n12,2,6\n", {}, {}, "X: row number, Y: v (2 values)"},
        {"day,rise,set,v\n2012-01-05,8:05,16:10,1\n", {}, {}, "X: day (date), Y: v (1 value)"},
        {"rise,v\n8:05,1\n8:04:30.5,2\n", {}, {}, "X: rise (time of day), Y: v (2 values)"},
        {"t;v;w\n1;2;1 234,5\n2;3;7,5\n", {}, {}, "X: t, Y: v (2 values)"},
        {"t;v;w\n1;2;1 234,5\n2;3;7,5\n",
         {},
         {"w"},
         "data.csv: line 2, column \"w\": \"1 234,5\" has a thousands mark; write numbers without"},
        {"a,b\n,1\n", {}, {"a"}, "data.csv: --y: column \"a\" holds no values"},
        {"a,b\n2020-01,1\n", {}, {"a"}, "data.csv: --y: column \"a\" holds dates, which only X can show"},
    };
    for (const TChoiceCase& c : cases) {
        try {
            EXPECT_EQ(DescribeChoice(ChooseColumns(Read(c.Text), c.X, c.Ys)), c.Expected);
        } catch (const EConvertError& error) {
            EXPECT_EQ(error.Message(), c.Expected);
        }
    }
}

TEST(ColumnChoice, PartsOfADateAreJoinedAndBadOnesNamed)
{
    const TCsvTable table = Read(
        "year,month,day,hour,minute,second,v\n"
        "2012,2,29,6,30,15.5,1\n"
        "2011,2,29,0,0,0,2\n"
        "2011,,1,0,0,0,3\n"
        "2011,1.5,1,0,0,0,4\n");
    const TColumnChoice choice = ChooseColumns(table, std::nullopt, {});
    EXPECT_EQ(choice.X.ValueCount, 1U);
    EXPECT_EQ(DecodeDateTime(choice.X.Values[0]), (TDateTimeParts{2012, 2, 29, 6, 30, 15, 500}));
    const auto bad = DescribeDoubts(table, choice);
    ASSERT_EQ(bad.size(), 1U);
    EXPECT_EQ(bad[0],
              "data.csv: line 3, column \"year..second\": \"2011 2 29 0 0 0\" is no date, the first of 2 such cells");
}

}  // namespace
}  // namespace plotkit
