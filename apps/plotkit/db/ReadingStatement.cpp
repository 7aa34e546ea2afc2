#include "plotkit/db/ReadingStatement.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "host/Errors.h"
#include "host/StringList.h"

namespace plotkit {
namespace {

bool IsWordPart(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || static_cast<unsigned char>(c) > 127;
}

std::size_t Behind(std::string_view sql, std::string_view mark, std::size_t from)
{
    const std::size_t place = sql.find(mark, std::min(from, sql.size()));
    return place == std::string_view::npos ? sql.size() : place + mark.size();
}

std::size_t BehindComment(std::string_view sql, std::size_t i)
{
    int depth = 0;
    for (; i < sql.size(); ++i) {
        const std::string_view mark = sql.substr(i, 2);
        if (mark == "/*")
            ++depth;
        else if (mark != "*/")
            continue;
        else if (--depth == 0)
            return i + 2;
        ++i;
    }
    return i;
}

std::size_t BehindEscapes(std::string_view sql, std::size_t i)
{
    for (++i; i < sql.size() && sql[i] != '\''; ++i)
        if (sql[i] == '\\')
            ++i;
    return std::min(i + 1, sql.size());
}

std::size_t BehindWord(std::string_view sql, std::size_t i)
{
    const std::size_t first = i;
    while (i < sql.size() && (IsWordPart(sql[i]) || sql[i] == '$'))
        ++i;
    const bool hasEscapes = i == first + 1 && (sql[first] == 'e' || sql[first] == 'E');
    return hasEscapes && i < sql.size() && sql[i] == '\'' ? BehindEscapes(sql, i) : i;
}

/// "$tag$ ... $tag$"
std::size_t BehindDollars(std::string_view sql, std::size_t i)
{
    std::size_t end = i + 1;
    while (end < sql.size() && IsWordPart(sql[end]))
        ++end;
    const bool isQuote = end < sql.size() && sql[end] == '$' && !std::isdigit(static_cast<unsigned char>(sql[i + 1]));
    return isQuote ? Behind(sql, sql.substr(i, end + 1 - i), end + 1) : i + 1;
}

bool IsNothing(std::string_view sql, std::size_t i)
{
    const std::string_view mark = sql.substr(i, 2);
    return mark == "--" || mark == "/*" || std::isspace(static_cast<unsigned char>(sql[i]));
}

/// Behind the word, the quoted text, the comment or the single character at `i`.
std::size_t BehindToken(std::string_view sql, std::size_t i)
{
    const char c = sql[i];
    if (sql.substr(i, 2) == "--")
        return Behind(sql, "\n", i);
    if (sql.substr(i, 2) == "/*")
        return BehindComment(sql, i);
    if (c == '\'' || c == '"')
        return Behind(sql, sql.substr(i, 1), i + 1);
    if (c == '$')
        return BehindDollars(sql, i);
    return IsWordPart(c) ? BehindWord(sql, i) : i + 1;
}

}  // namespace

void CheckReads(std::string_view sql)
{
    bool isFirst = true;
    bool isOver = false;
    for (std::size_t i = 0; i < sql.size();) {
        const std::size_t end = BehindToken(sql, i);
        const std::string_view token = sql.substr(i, end - i);
        if (token == ";") {
            isOver = true;
        } else if (!IsNothing(sql, i)) {
            if (isOver)
                throw EConvertError("--query: one statement, no more");
            for (const char* writing : {"copy", "vacuum"})
                if (isFirst && SameText(token, writing))
                    throw EConvertError("--query: " + std::string(token) + " may write files");
            isFirst = false;
        }
        i = end;
    }
}

}  // namespace plotkit
