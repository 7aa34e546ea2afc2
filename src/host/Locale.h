// The job of Locale is the user's way of writing numbers and dates.
#pragma once

#include <array>
#include <string>

namespace plotkit {

/// The defaults are locale-independent English.
struct TLocaleFormats
{
    char DecimalSeparator = '.';
    char DateSeparator = '/';
    char TimeSeparator = ':';
    std::string ShortDateFormat = "yyyy/mm/dd";
    std::string LongTimeFormat = "hh:nn:ss";
    std::array<std::string, 12> ShortMonthNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::array<std::string, 12> LongMonthNames{"January", "February", "March",     "April",   "May",      "June",
                                               "July",    "August",   "September", "October", "November", "December"};
    std::array<std::string, 7> ShortDayNames{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    std::array<std::string, 7> LongDayNames{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                            "Thursday", "Friday", "Saturday"};
};

}  // namespace plotkit
