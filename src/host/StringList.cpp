#include "host/StringList.h"

#include <algorithm>

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

void CheckIndex(int i, std::size_t bound)
{
    if (i < 0 || static_cast<std::size_t>(i) >= bound)
        throw ERangeError("List index out of bounds (" + std::to_string(i) + ")");
}

}  // namespace

int TStringList::Add(std::string line)
{
    FLines.push_back(std::move(line));
    return Count() - 1;
}

void TStringList::Insert(int i, std::string line)
{
    CheckIndex(i, FLines.size() + 1);
    FLines.insert(FLines.begin() + i, std::move(line));
}

void TStringList::Put(int i, std::string line)
{
    CheckIndex(i, FLines.size());
    FLines[static_cast<std::size_t>(i)] = std::move(line);
}

void TStringList::Delete(int i)
{
    CheckIndex(i, FLines.size());
    FLines.erase(FLines.begin() + i);
}

int TStringList::IndexOf(std::string_view line) const
{
    const auto found =
        std::find_if(FLines.begin(), FLines.end(), [line](const std::string& other) { return SameText(other, line); });
    return found == FLines.end() ? -1 : static_cast<int>(found - FLines.begin());
}

std::string TStringList::Text() const
{
    std::size_t length = 0;
    for (const std::string& line : FLines)
        length += line.size() + 2;
    std::string text;
    text.reserve(length);
    for (const std::string& line : FLines)
        text.append(line).append("\r\n");
    return text;
}

void TStringList::SetText(std::string_view text)
{
    if (text.starts_with(ByteOrderMark))
        text.remove_prefix(ByteOrderMark.size());
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
        if (text.substr(0, 2) == "\r\n")
            text.remove_prefix(2);
        else if (!text.empty())
            text.remove_prefix(1);
    }
    FLines = std::move(lines);
}

void TStringList::LoadFromFile(const std::filesystem::path& file)
{
    SetText(ReadWholeFile(file));
}

void TStringList::SaveToFile(const std::filesystem::path& file) const
{
    const std::string text = Text();
    // What stands in the first line must not be taken for the file's own mark.
    WriteWholeFile(file, text.starts_with(ByteOrderMark) ? std::string(ByteOrderMark) + text : text);
}

bool SameText(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Upper(x) == Upper(y); });
}

bool StartsWithText(std::string_view text, std::string_view front)
{
    return SameText(text.substr(0, front.size()), front);
}

std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), Upper);
    return upper;
}

}  // namespace plotkit
