#include "host/StreamText.h"

#include <algorithm>

#include "host/Errors.h"
#include "host/StringList.h"
#include "host/ValueText.h"

namespace plotkit {

namespace {

constexpr std::string_view ObjectWord = "object";
constexpr std::string_view EndWord = "end";

/// What follows the first word when that is "object"; a property of that name has "=" there.
bool TakeObjectWord(std::string_view& line)
{
    if (line.size() <= ObjectWord.size() || !SameText(line.substr(0, ObjectWord.size()), ObjectWord))
        return false;
    const char next = line[ObjectWord.size()];
    const std::string_view rest = TrimBlanks(line.substr(ObjectWord.size()));
    if ((next != ' ' && next != '\t' && next != ':') || rest.starts_with('='))
        return false;
    line = rest;
    return true;
}

bool LooksLikeStatement(std::string_view line)
{
    return SameText(line, EndWord) || TakeObjectWord(line) || line.find('=') != std::string_view::npos;
}

}  // namespace

TStatementReader::TStatementReader(std::string_view text) : FRest(text)
{
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (FRest.starts_with(ByteOrderMark))
        FRest.remove_prefix(ByteOrderMark.size());
}

bool TStatementReader::TakeLine(std::string_view& line)
{
    if (FRest.empty())
        return false;
    const std::size_t end = std::min(FRest.find('\n'), FRest.size());
    line = FRest.substr(0, end);
    FRest.remove_prefix(std::min(end + 1, FRest.size()));
    ++FLine;
    return true;
}

std::string_view TStatementReader::TakeList(std::string_view value)
{
    // A list without its end stops at the next statement, so that only the list is lost.
    const char* end = value.data() + value.size();
    std::string_view line = value;
    while (line.find(')') == std::string_view::npos) {
        const std::string_view rest = FRest;
        const int number = FLine;
        if (!TakeLine(line))
            break;
        if (LooksLikeStatement(TrimBlanks(line))) {
            FRest = rest;
            FLine = number;
            break;
        }
        end = line.data() + line.size();
    }
    return {value.data(), static_cast<std::size_t>(end - value.data())};
}

bool TStatementReader::Next(TStatement& statement)
{
    std::string_view line;
    do {
        if (!TakeLine(line))
            return false;
        line = TrimBlanks(line);
    } while (line.empty());

    statement = {skUnknown, FLine, {}, {}, line};
    if (SameText(line, EndWord)) {
        statement.Kind = skEnd;
    } else if (TakeObjectWord(line)) {
        statement.Kind = skObject;
        const std::size_t colon = line.find(':');
        const bool isNamed = colon != std::string_view::npos;
        statement.Name = isNamed ? TrimBlanks(line.substr(0, colon)) : std::string_view{};
        statement.Class = isNamed ? TrimBlanks(line.substr(colon + 1)) : line;
    } else if (const std::size_t sign = line.find('='); sign != std::string_view::npos) {
        statement.Kind = skProperty;
        statement.Name = TrimBlanks(line.substr(0, sign));
        statement.Value = TrimBlanks(line.substr(sign + 1));
        if (statement.Value.starts_with('('))
            statement.Value = TrimBlanks(TakeList(statement.Value));
    }
    return true;
}

std::vector<TListElement> SplitList(std::string_view list)
{
    const std::size_t end = list.find(')');
    if (!list.starts_with('('))
        throw EConvertError("a list like (0; 0.5; 1) was expected, not " + Excerpt(list));
    if (end == std::string_view::npos)
        throw EConvertError("the list has no \")\"");
    if (end + 1 != list.size())
        throw EConvertError("nothing was expected behind the list, not " + Excerpt(TrimBlanks(list.substr(end + 1))));
    std::string_view rest = list.substr(1, end - 1);
    std::vector<TListElement> elements;
    int line = 0;
    const auto add = [&](std::string_view part) {
        const std::string_view text = TrimBlanks(part);
        const auto before = part.substr(0, text.empty() ? 0 : static_cast<std::size_t>(text.data() - part.data()));
        elements.push_back({line + static_cast<int>(std::ranges::count(before, '\n')), text});
        line += static_cast<int>(std::ranges::count(part, '\n'));
    };
    if (TrimBlanks(rest).empty())
        return elements;
    for (std::size_t at = rest.find(';'); at != std::string_view::npos; at = rest.find(';')) {
        add(rest.substr(0, at));
        rest.remove_prefix(at + 1);
    }
    add(rest);
    return elements;
}

}  // namespace plotkit
