#include "foundation/KxLargeIni.h"

#include "foundation/KxStrings.h"
#include "host/NumberFormat.h"

namespace plotkit {

namespace {

bool IsHeader(std::string_view line)
{
    return !line.empty() && line.front() == '[';
}

std::string HeaderOf(std::string_view section)
{
    std::string line = "[";
    line += section;
    line += ']';
    return line;
}

std::string EntryLine(std::string_view ident, std::string_view value)
{
    std::string line(ident);
    line += '=';
    line += value;
    line.resize(std::min(line.size(), line.find('\0')));
    return line;
}

bool IsEntry(std::string_view line, std::string_view ident)
{
    // The separator is looked at first: it tells most lines apart.
    return line.size() > ident.size() && line[ident.size()] == '=' && SameText(line.substr(0, ident.size()), ident);
}

}  // namespace

void TKxIniList::IndexHeaders() const
{
    FHeaders.clear();
    for (int i = 0; i < Count(); ++i)
        if (IsHeader((*this)[i]))
            FHeaders.emplace(UpperCase((*this)[i]), i);
    FHeadersLines = Count();
}

int TKxIniList::FindHeader(TText section) const
{
    const std::string header = UpperCase(HeaderOf(section));
    if (FHeadersLines != Count())
        IndexHeaders();
    auto found = FHeaders.find(header);
    if (found != FHeaders.end() && !SameText((*this)[found->second], header)) {
        IndexHeaders();
        found = FHeaders.find(header);
    }
    return found == FHeaders.end() ? -1 : found->second;
}

void TKxIniList::InsertIndexed(int i, std::string line)
{
    const bool header = IsHeader(line);
    TStringList::Insert(i, std::move(line));
    if (header)
        return LinesChanged();
    if (i < Count() - 1)
        for (auto& [name, place] : FHeaders)
            if (place >= i)
                ++place;
    FHeadersLines = Count();
}

TKxIniList::TText TKxIniList::FindValue(TText section, TText ident) const
{
    const int header = FindHeader(section);
    if (header < 0)
        return {};
    for (int i = header + 1; i < Count() && !IsHeader((*this)[i]); ++i)
        if (IsEntry((*this)[i], ident))
            return TText((*this)[i]).substr(ident.size() + 1);
    return {};
}

void TKxIniList::NoteUnless(bool usable, TText section, TText ident) const
{
    if (!usable && FProblems)
        FProblems->push_back({std::string(section), std::string(ident), std::string(FindValue(section, ident))});
}

void TKxIniList::SetModified(bool modified)
{
    FModified = modified;
    ++FWriteCount;
}

void TKxIniList::LinesChanged()
{
    FHeadersLines = -1;
    ++FWriteCount;
}

void TKxIniList::Touch()
{
    FModified = true;
    ++FWriteCount;
}

bool TKxIniList::SectionExists(TText section) const
{
    return FindHeader(section) >= 0;
}

void TKxIniList::ReadSections(TStringList& strings) const
{
    const std::vector<std::string> lines = Lines();  // `strings` may be this list
    strings.Clear();
    for (const std::string& line : lines)
        if (IsHeader(line))
            strings.Add(line.substr(1, line.find(']') - 1));
}

void TKxIniList::ReadSection(TText section, TStringList& strings) const
{
    TStringList entries;
    ReadSectionValues(section, entries);
    strings.Clear();
    for (const std::string& line : entries.Lines())
        strings.Add(line.substr(0, line.find('=')));
}

void TKxIniList::ReadSectionValues(TText section, TStringList& strings) const
{
    std::vector<std::string> entries;
    const int header = FindHeader(section);
    if (header >= 0)
        for (int i = header + 1; i < Count() && !IsHeader((*this)[i]); ++i)
            if (!(*this)[i].empty())
                entries.push_back((*this)[i]);
    strings.Clear();
    for (std::string& line : entries)
        strings.Add(std::move(line));
}

void TKxIniList::EraseSection(TText section)
{
    Touch();
    const int header = FindHeader(section);
    if (header < 0)
        return;
    int end = header + 1;
    while (end < Count() && !IsHeader((*this)[end]))
        ++end;
    const std::vector<std::string> behind(Lines().begin() + end, Lines().end());
    while (Count() > header)
        TStringList::Delete(Count() - 1);
    for (const std::string& line : behind)
        TStringList::Add(line);
    LinesChanged();
}

std::string TKxIniList::ReadString(TText section, TText ident, TText byDefault) const
{
    const TText value = FindValue(section, ident);
    return std::string(value.data() ? value : byDefault);
}

void TKxIniList::WriteString(TText section, TText ident, TText value)
{
    Touch();
    std::string line = EntryLine(ident, value);
    int place = FindHeader(section);
    if (place < 0) {
        TStringList::Add({});
        TStringList::Add(HeaderOf(section));
        FHeaders.emplace(UpperCase(HeaderOf(section)), Count() - 1);
        return InsertIndexed(Count(), std::move(line));
    }
    while (place < Count() - 1) {
        ++place;
        if (IsEntry((*this)[place], ident))
            return Put(place, std::move(line));
        if ((*this)[place].empty())
            break;
    }
    InsertIndexed((*this)[place].empty() ? place : place + 1, std::move(line));
}

void TKxIniList::WriteStrings(TText section, std::span<const std::pair<std::string, std::string>> entries)
{
    if (entries.empty())
        return;
    WriteString(section, entries[0].first, entries[0].second);  // which makes the section
    std::unordered_map<std::string, int> places;
    int end = FindHeader(section) + 1;
    for (; end < Count() && !(*this)[end].empty(); ++end)
        if (const auto length = (*this)[end].find('='); length != std::string::npos)
            places.emplace(UpperCase((*this)[end].substr(0, length)), end);
    for (const auto& [ident, value] : entries.subspan(1)) {
        const auto found = places.find(UpperCase(ident));
        if (found == places.end())
            InsertIndexed(end++, EntryLine(ident, value));
        else
            Put(found->second, EntryLine(ident, value));
    }
}

int TKxIniList::ReadInteger(TText section, TText ident, int byDefault) const
{
    std::string text = ReadString(section, ident, {});
    if (text.empty())
        return byDefault;
    NoteUnless(ParseInteger(text).has_value(), section, ident);
    try {
        return ExtractOneInt(text);
    } catch (const EConvertError&) {
        return byDefault;
    }
}

void TKxIniList::WriteInteger(TText section, TText ident, int value)
{
    WriteString(section, ident, std::to_string(value));
}

bool TKxIniList::ReadBool(TText section, TText ident, bool byDefault) const
{
    const TText value = FindValue(section, ident);
    if (value.empty())
        return byDefault;
    const bool isTrue = value == "1" || SameText(value, "TRUE");
    NoteUnless(isTrue || value == "0" || SameText(value, "FALSE"), section, ident);
    return isTrue;
}

void TKxIniList::WriteBool(TText section, TText ident, bool value)
{
    WriteString(section, ident, value ? "1" : "0");
}

double TKxIniList::ReadReal(TText section, TText ident, double byDefault) const
{
    TText text = FindValue(section, ident);
    if (text.empty())
        return byDefault;
    NoteUnless(ParseReal(text).has_value(), section, ident);
    try {
        return ExtractOneReal(text);
    } catch (const EConvertError&) {
        return byDefault;
    }
}

void TKxIniList::WriteReal(TText section, TText ident, double value)
{
    WriteString(section, ident, RealToAmericanStr(value));
}

void TKxIniList::WriteRealDigits(TText section, TText ident, double value, int digits)
{
    WriteString(section, ident, RealToAmericanStrDigits(value, digits));
}

int TKxIniList::Add(std::string line)
{
    LinesChanged();
    return TStringList::Add(std::move(line));
}

void TKxIniList::Insert(int i, std::string line)
{
    LinesChanged();
    TStringList::Insert(i, std::move(line));
}

void TKxIniList::Put(int i, std::string line)
{
    const bool known = !IsHeader(line) && i >= 0 && i < Count() && !IsHeader((*this)[i]);
    TStringList::Put(i, std::move(line));
    ++FWriteCount;
    if (!known)
        LinesChanged();
}

void TKxIniList::Delete(int i)
{
    LinesChanged();
    TStringList::Delete(i);
}

void TKxIniList::Clear()
{
    LinesChanged();
    TStringList::Clear();
}

void TKxIniList::SetText(std::string_view text)
{
    LinesChanged();
    TStringList::SetText(text);
}

void TKxIniList::LoadFromFile(const std::filesystem::path& file)
{
    LinesChanged();
    TStringList::LoadFromFile(file);
}

}  // namespace plotkit
