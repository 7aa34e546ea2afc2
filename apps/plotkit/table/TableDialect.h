// The job of TableDialect is to find out how a text file writes its table: separator, decimal mark, names, remarks.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "plotkit/table/RecordCutter.h"

namespace plotkit {

/// What the user says about a file; the rest is found out.
struct TDialectWish
{
    std::optional<char> Separator;  ///< a blank: runs of blanks and tabs
    std::optional<char> Decimal;    ///< '.' or ','
    std::optional<bool> Header;
    std::optional<std::string> Comments;  ///< characters that start a remark; "//" in it is one mark
    std::size_t Skip = 0;                 ///< lines in front that do not count
    std::optional<bool> DayFirst;         ///< how 1/2/2012 is read where a column leaves it open
    bool LocaleDayFirst = true;           ///< the same, when the user does not say it
};

struct TTableDialect
{
    char Separator = ',';
    char Decimal = '.';
    TCommentMarks Marks;
    std::vector<std::string> Names;  ///< one per column, empty where there is none
    std::vector<std::string> Units;  ///< empty, or one per column
    std::size_t HeaderLine = 0;      ///< from 1; 0: no line names the columns
    std::size_t UnitLine = 0;
    std::size_t PreambleLines = 0;  ///< lines of text before the table that were left out
    std::size_t CommentLines = 0;   ///< before the first row
    std::size_t DataOffset = 0;     ///< where the first row starts in the text, and its line
    std::size_t DataLine = 1;
    bool HasRows = false;  ///< a row was seen in the sample
};

/// `sample`: whole lines from the front of the file. EConvertError without the file's name: more than 10000 columns.
TTableDialect FindDialect(std::string_view sample, const TDialectWish& wish);

/// The separator and the decimal mark as words: "commas", "blanks"; "point", "comma".
std::string SeparatorWord(char separator);

}  // namespace plotkit
