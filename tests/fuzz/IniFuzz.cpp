// Any text makes a list of settings. Its first line says what is changed in the rest, three bytes a step.
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <span>

#include "Require.h"
#include "data/KxVector.h"
#include "foundation/KxLargeIniFile.h"
#include "graph/KxStyles.h"
#include "host/Form.h"

namespace plotkit {
namespace {

using TLines = std::vector<std::string>;

/// The store without anything but its lines.
struct TPlainIni
{
    TLines Lines;

    bool IsHeader(std::size_t i) const { return Lines[i].starts_with('['); }
    std::size_t Header(const std::string& section) const
    {
        std::size_t i = 0;
        while (i < Lines.size() && !SameText(Lines[i], "[" + section + "]"))
            ++i;
        return i;
    }
    std::string Read(const std::string& section, const std::string& ident) const
    {
        for (std::size_t i = Header(section) + 1; i < Lines.size() && !IsHeader(i); ++i)
            if (StartsWithText(Lines[i], ident + "="))
                return Lines[i].substr(ident.size() + 1);
        return "none";
    }
    void Write(const std::string& section, const std::string& ident, const std::string& value)
    {
        const std::string whole = ident + "=" + value, line = whole.substr(0, whole.find('\0'));
        std::size_t i = Header(section);
        if (i == Lines.size())
            return void(Lines.insert(Lines.end(), {"", "[" + section + "]", line}));
        while (i + 1 < Lines.size()) {
            if (StartsWithText(Lines[++i], ident + "="))
                return void(Lines[i] = line);
            if (Lines[i].empty())
                break;
        }
        Lines.insert(Lines.begin() + static_cast<std::ptrdiff_t>(i + !Lines[i].empty()), line);
    }
    void Erase(const std::string& section)
    {
        const std::size_t from = Header(section);
        std::size_t end = from + 1;
        while (end < Lines.size() && !IsHeader(end))
            ++end;
        if (from < Lines.size())
            Lines.erase(Lines.begin() + static_cast<std::ptrdiff_t>(from),
                        Lines.begin() + static_cast<std::ptrdiff_t>(end));
    }
};

struct TEntry
{
    std::string Section, Ident;
};

/// Some of the entries that stand in a list, and one that may not.
std::vector<TEntry> EntriesOf(const TKxIniList& list)
{
    constexpr std::size_t enough = 10;
    std::vector<TEntry> entries{{"S", "ident"}};
    TStringList sections, idents;
    list.ReadSections(sections);
    for (const std::string& section : sections.Lines()) {
        list.ReadSection(section, idents);
        for (const std::string& ident : idents.Lines())
            if (entries.size() < enough)
                entries.push_back({section, ident});
    }
    return entries;
}

/// One of everything that a list can hold.
struct TBelongings
{
    std::string Text;
    int Integer = 1;
    bool Flag = true;
    double Real = 0.5;
    TKxRealArray Reals{1, 2, 3};
    TKxIntegerArray Integers{1, 2, 3};
    TKxRealPos Pos;
    TKxRealVector Vector, XVector, YVector;
    TFont Font;
    TKxLineStyle Line{nullptr};
    TKxAreaStyle Area{nullptr};
    TForm Form;

    TBelongings() : Vector(nullptr), XVector(nullptr), YVector(nullptr), Form(nullptr) {}

    /// `key(name)`: where the belonging of that name stands.
    template <class TKeyOf>
    void Read(const TKxIniList& list, const std::string& section, TKeyOf key)
    {
        Text = list.ReadString(section, key("Text"), "");
        Integer = list.ReadInteger(section, key("Integer"), Integer);
        Flag = list.ReadBool(section, key("Flag"), Flag);
        Real = list.ReadReal(section, key("Real"), Real);
        list.ReadRealArray(section, key("Reals"), Reals);
        list.ReadIntArray(section, key("Integers"), Integers);
        list.ReadRealPos(section, key("Pos"), Pos);
        // Infinities have a text, but none that is read back.
        for (double* real : {&Real, &Pos.Position, &Pos.Value})
            *real = std::isfinite(*real) ? *real : 0;
        for (double& real : std::span(Reals.Write(), Reals.Length()))
            real = std::isfinite(real) ? real : 0;
        list.ReadRealVector(section, key("Vector"), Vector);
        list.ReadXYVector(section, XVector, YVector);
        Require(XVector.GetCount() == YVector.GetCount(), "pairs have two values");
        list.ReadFont(section, key("Font"), Font);
        list.ReadLine(section, key("Line"), Line);
        list.ReadArea(section, key("Area"), Area);
        list.ReadFormPrms(section, key("Form"), Form);
        TComponent* component = &Vector;
        list.ReadComponentRef(section, key("Component"), component);
        Require(component == &Vector, "nobody else has a name");
    }
    void Write(TKxIniList& list) const
    {
        const std::string section = "Kept";
        list.WriteString(section, "Text", Text);
        list.WriteInteger(section, "Integer", Integer);
        list.WriteBool(section, "Flag", Flag);
        list.WriteReal(section, "Real", Real);
        list.WriteRealArray(section, "Reals", Reals);
        list.WriteIntArray(section, "Integers", Integers);
        list.WriteRealPos(section, "Pos", Pos);
        list.WriteRealVector(section, "Vector", Vector);
        list.WriteFont(section, "Font", Font);
        list.WriteLine(section, "Line", Line);
        list.WriteArea(section, "Area", Area);
        list.WriteFormPrms(section, "Form", const_cast<TForm&>(Form));
    }
};

/// What was read from any text is written, read and written again the same.
void CheckReaders(const TKxIniList& list, const TEntry& key)
{
    TBelongings found, again;
    const std::string prefix = key.Ident.substr(0, key.Ident.rfind('.'));
    const std::string_view wholes = "Font Line Area Form";
    found.Read(list, key.Section,
               [&](std::string_view name) { return wholes.find(name) != wholes.npos ? prefix : key.Ident; });
    TKxIniList first, second;
    found.Write(first);
    again.Read(first, "Kept", [](std::string_view name) { return name; });
    again.Write(second);
    Require(first.Text() == second.Text(), "what was written is read back", first.Text() + "became\n" + second.Text());
}

/// Changes the list and a plain one alike, a step for three bytes.
void Change(TKxIniList& list, std::string_view steps)
{
    TPlainIni plain{list.Lines()};
    const std::vector<TEntry> entries = EntriesOf(list);
    for (; steps.size() >= 3; steps.remove_prefix(3)) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(steps[i]); };
        const auto& [section, ident] = entries[byte(1) % entries.size()];
        const std::string line = byte(2) % 3 ? "[" + section + "]" : ident + "=" + std::to_string(byte(2));
        const auto at = byte(2) % (plain.Lines.size() + 1);
        const auto place = plain.Lines.begin() + static_cast<std::ptrdiff_t>(at);
        const int act = byte(0) % 8;
        if (act == 0) {
            list.EraseSection(section);
            plain.Erase(section);
        } else if (act == 1) {
            list.Insert(static_cast<int>(at), line);
            plain.Lines.insert(place, line);
        } else if (act == 2 && place != plain.Lines.end()) {
            list.Delete(static_cast<int>(at));
            plain.Lines.erase(place);
        } else if (act == 3 && place != plain.Lines.end()) {
            list.Put(static_cast<int>(at), line);
            *place = line;
        } else {
            const std::string value = entries[byte(2) % entries.size()].Ident;
            list.WriteString(section, ident, value);
            plain.Write(section, ident, value);
        }
        Require(list.Lines() == plain.Lines, "changes do to the lines what they say", list.Text());
        Require(list.ReadString(section, ident, "none") == plain.Read(section, ident),
                "an entry is found where a plain search finds it", list.Text());
    }
}

/// What is saved is what is loaded, but for the empty lines in front.
void CheckFile(const TLines& lines)
{
    const auto file = std::filesystem::temp_directory_path() / ("ini_fuzz." + std::to_string(getpid()));
    TLines saved;
    {
        TKxLargeIniFile list(file.string());
        for (const std::string& line : lines)
            list.Add(line);
        list.WriteBool("Kept", "Flag", true);
        list.Save();
        saved = list.Lines();
    }
    Require(!saved.front().empty(), "no empty line in front");
    Require(TKxLargeIniFile(file.string()).Lines() == saved, "a file holds the lines");
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace plotkit

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace plotkit;
    const std::string_view text = AsText(data, size);
    const std::size_t end = std::min(text.find('\n'), text.size());
    TKxIniList list;
    list.SetText(text.substr(std::min(end + 1, text.size())));
    for (const TEntry& key : EntriesOf(list))
        CheckReaders(list, key);
    Change(list, text.substr(0, std::min<std::size_t>(end, 90)));
    CheckFile(list.Lines());
    return 0;
}
