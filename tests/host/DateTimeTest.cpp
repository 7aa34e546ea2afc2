#include "host/DateTime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "host/Errors.h"

namespace plotkit {
namespace {

TEST(DateTime, EncodesAndDecodes)
{
    const std::pair<TDateTime, TDateTimeParts> cases[] = {
        {0, {1899, 12, 30}},          {1.25, {1899, 12, 31, 6}}, {-1.75, {1899, 12, 29, 18}},     {25569, {1970, 1, 1}},
        {45351.5, {2024, 2, 29, 12}}, {-693593, {1, 1, 1}},      {2958465.75, {9999, 12, 31, 18}}};
    for (const auto& [value, parts] : cases) {
        EXPECT_EQ(DecodeDateTime(value), parts) << value;
        EXPECT_EQ(EncodeDateTime(parts), value) << value;
    }
    EXPECT_EQ(DecodeDateTime(-0.25), DecodeDateTime(0.25));
    // A time that rounds up to midnight belongs to the next day, before 1899-12-30 as well.
    EXPECT_EQ(DecodeDateTime(1.999999999), (TDateTimeParts{1900, 1, 1}));
    EXPECT_EQ(DecodeDateTime(-1.999999999), (TDateTimeParts{1899, 12, 30}));
    EXPECT_EQ(DecodeDateTime(1e300), (TDateTimeParts{9999, 12, 31, 23, 59, 59, 999}));
    EXPECT_EQ(DecodeDateTime(-1e300), (TDateTimeParts{1, 1, 1}));
    EXPECT_EQ(DecodeDateTime(std::numeric_limits<double>::quiet_NaN()), (TDateTimeParts{1899, 12, 30}));
}

TEST(DateTime, EveryDayAndMilliSecondComesBack)
{
    for (int day = -693593; day <= 2958465; day += 37) {
        TDateTimeParts parts = DecodeDateTime(day);
        std::tie(parts.Hour, parts.Minute, parts.Second, parts.MilliSecond) = std::tuple(23, 59, 58, 1 + (day & 511));
        ASSERT_EQ(DecodeDateTime(EncodeDateTime(parts)), parts) << day;
        const std::int64_t moment = std::int64_t{day} * 86399999;
        ASSERT_EQ(MilliSecondsOf(FromMilliSeconds(moment)), moment) << day;
    }
    const TDateTimeParts none[] = {{2023, 2, 29}, {1900, 2, 29},    {2024, 13, 1},       {2024, 0, 1},
                                   {2024, 4, 31}, {0, 1, 1},        {10000, 1, 1},       {2024, 1, 0},
                                   {1, 1, 1, 24}, {1, 1, 1, 0, 60}, {1, 1, 1, 0, 0, 60}, {1, 1, 1, 0, 0, 0, 1000}};
    for (const TDateTimeParts& parts : none)
        EXPECT_THROW(EncodeDateTime(parts), EConvertError);
}

TEST(DateTime, StepsAndSpans)
{
    const auto at = [](int y, int m, int d, int h = 0) { return EncodeDateTime({y, m, d, h}); };
    EXPECT_EQ(IncMonth(at(2024, 1, 31, 7), 1), at(2024, 2, 29, 7));
    EXPECT_EQ(IncMonth(at(2024, 1, 31), -2), at(2023, 11, 30));
    EXPECT_EQ(IncYear(at(2024, 2, 29), 2147483647), at(9999, 2, 28));
    EXPECT_EQ(IncMonth(at(9999, 12, 5), 1), at(9999, 12, 5));
    EXPECT_EQ(IncDay(at(1899, 12, 29, 18), 1), at(1899, 12, 30, 18));
    EXPECT_EQ(IncHour(at(1899, 12, 30, 1), -2), at(1899, 12, 29, 23));
    EXPECT_EQ(IncSecond(at(2024, 12, 31, 23), 3600), at(2025, 1, 1));
    EXPECT_EQ(IncMilliSecond(IncMilliSecond(45351.5, 1), -1), 45351.5);
    EXPECT_DOUBLE_EQ(DaySpan(-1.75, 0.25), 0.5);
    EXPECT_DOUBLE_EQ(MonthSpan(60.875, 0), 2);
    EXPECT_TRUE(std::isfinite(IncDay(1e300, std::numeric_limits<std::int64_t>::max())));
    EXPECT_TRUE(std::isfinite(IncMilliSecond(-1e300, std::numeric_limits<std::int64_t>::min())));
}

TEST(DateTime, Formats)
{
    TLocaleFormats german;
    german.DateSeparator = german.TimeSeparator = '.';
    const TDateTime evening = EncodeDateTime({2024, 3, 5, 21, 7, 9, 45});
    const std::pair<const char*, const char*> cases[] = {
        {"Y-M-D", "24-3-5"},       {"h:m m", "21:7 3"},       {"mm/dd hh:mm", "03/05 21:07"}, {"'am/pm' h", "am/pm 21"},
        {"h:nn am/pm", "9:07 pm"}, {"d \"am\" h", "5 am 21"}, {"d 'open", "5 open"},          {"'", ""}};
    for (const auto& [format, text] : cases)
        EXPECT_EQ(FormatDateTime(format, evening, {}), text) << format;
    EXPECT_EQ(FormatDateTime("yyyy/mm/dd hh:nn:ss.zzz", evening, {}), "2024/03/05 21:07:09.045");
    EXPECT_EQ(FormatDateTime("mmm mmmm ddd dddd", evening, {}), "Mar March Tue Tuesday");
    EXPECT_EQ(FormatDateTime("dd/mm/yy hh:nn", evening, german), "05.03.24 21.07");
    EXPECT_EQ(FormatDateTime("h am/pm", 0.5, {}), "12 pm");
}

}  // namespace
}  // namespace plotkit
