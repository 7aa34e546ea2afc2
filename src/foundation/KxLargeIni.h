// The job of KxLargeIni is a store of settings in INI form, held in memory as lines.
//
// A section starts with "[name]" and ends before the next line that begins with "["; sections made here follow an empty
// line. Entries are "ident=value", the value as it stands. Names are compared without regard to letter case. Reals have
// "." as separator, lists of numbers are joined by ";".
#pragma once

#include <span>
#include <unordered_map>
#include <utility>

#include "foundation/KxConsts.h"
#include "host/StringList.h"

namespace plotkit {

class TComponent;
class TFont;
class TForm;
class TKxAreaStyle;
class TKxCustomRealVector;
class TKxLineStyle;
class TKxRealVector;

/// A value that a reader found and could not use, or not whole.
struct TKxIniProblem
{
    std::string Section, Ident, Value;

    friend bool operator==(const TKxIniProblem&, const TKxIniProblem&) = default;
};

/// Readers never fail: what is missing or cannot be read is the default, or stays as it is. Readers into objects apply
/// what they read through the object's setters, with the present values as defaults.
class TKxIniList : public TStringList
{
public:
    using TText = std::string_view;

    /// Set by every write and erase, never cleared by the list itself.
    bool GetModified() const { return FModified; }
    void SetModified(bool modified);
    /// Where readers of single values note what they cannot use; nullptr: nowhere.
    void SetProblems(std::vector<TKxIniProblem>* problems) { FProblems = problems; }

    bool SectionExists(TText section) const;
    /// Names of all sections; names of a section's entries; its lines but the empty ones.
    void ReadSections(TStringList& strings) const;
    void ReadSection(TText section, TStringList& strings) const;
    void ReadSectionValues(TText section, TStringList& strings) const;
    void EraseSection(TText section);
    std::string ReadString(TText section, TText ident, TText byDefault) const;
    /// The line is cut at its first NUL. A new entry goes before the section's first empty line or to the list's end.
    void WriteString(TText section, TText ident, TText value);
    /// The same for many entries with names of their own; the section is looked through once.
    void WriteStrings(TText section, std::span<const std::pair<std::string, std::string>> entries);
    int ReadInteger(TText section, TText ident, int byDefault) const;
    void WriteInteger(TText section, TText ident, int value);
    /// "1" and "TRUE" in any letter case are true, any other text is false.
    bool ReadBool(TText section, TText ident, bool byDefault) const;
    void WriteBool(TText section, TText ident, bool value);
    double ReadReal(TText section, TText ident, double byDefault) const;
    void WriteReal(TText section, TText ident, double value);
    void WriteRealDigits(TText section, TText ident, double value, int digits);

    /// Fills the present length; elements without a number in the text stay.
    void ReadRealArray(TText section, TText ident, TKxRealArray& values) const;
    void WriteRealArray(TText section, TText ident, const TKxRealArray& values);
    void ReadIntArray(TText section, TText ident, TKxIntegerArray& values) const;
    void WriteIntArray(TText section, TText ident, const TKxIntegerArray& values);
    void ReadRealPos(TText section, TText ident, TKxRealPos& value) const;
    void WriteRealPos(TText section, TText ident, const TKxRealPos& value);

    /// An ordinal below `count`; `byDefault` also when the text holds another number.
    template <class TEnum>
    TEnum ReadOrdinal(TText section, TText ident, TEnum byDefault, std::size_t count) const
    {
        const int ordinal = ReadInteger(section, ident, static_cast<int>(byDefault));
        if (ordinal >= 0 && static_cast<std::size_t>(ordinal) < count)
            return static_cast<TEnum>(ordinal);
        NoteUnless(false, section, ident);
        return byDefault;
    }

    void ReadFont(TText section, TText prefix, TFont& font) const;
    void WriteFont(TText section, TText prefix, const TFont& font);
    /// Window state and the bounds of the normal state, in screen pixels.
    void ReadFormPrms(TText section, TText prefix, TForm& form) const;
    void WriteFormPrms(TText section, TText prefix, TForm& form);
    /// The position alone; a form that would have no pixel on the screen is centred there.
    void ReadFormPos(TText section, TText prefix, TForm& form) const;

    /// The component at the path that is stored, looked up from the application; `present` when there is none.
    TComponent* ReadComponent(TText section, TText ident, TComponent* present) const;
    /// The same for a component of a certain class; true when `component` changed.
    template <class T>
    bool ReadComponentRef(TText section, TText ident, T*& component) const
    {
        T* found = dynamic_cast<T*>(ReadComponent(section, ident, component));
        if (!found || found == component)
            return false;
        component = found;
        return true;
    }
    /// The path of names from the outermost named owner down; empty for none and for an unnamed component.
    void WriteComponentRef(TText section, TText ident, const TComponent* component);

    // Defined by the folders that own the types.
    void ReadLine(TText section, TText prefix, TKxLineStyle& style) const;
    void WriteLine(TText section, TText prefix, const TKxLineStyle& style);
    void ReadArea(TText section, TText prefix, TKxAreaStyle& style) const;
    void WriteArea(TText section, TText prefix, const TKxAreaStyle& style);
    /// Replaces the vector's elements; an empty field between separators is a missing value. Missing values are written
    /// as empty fields.
    void ReadRealVector(TText section, TText ident, TKxRealVector& vector) const;
    void WriteRealVector(TText section, TText ident, const TKxCustomRealVector& vector);
    /// Two reals a line; lines without are left out.
    void ReadXYVector(TText section, TKxRealVector& xVector, TKxRealVector& yVector) const;

    // Lines change through this class, which knows where sections start.
    int Add(std::string line);
    void Insert(int i, std::string line);
    void Put(int i, std::string line);
    void Delete(int i);
    void Clear();
    void SetText(std::string_view text);
    void LoadFromFile(const std::filesystem::path& file);

protected:
    /// Grows with every change of the lines.
    int WriteCount() const { return FWriteCount; }

private:
    int FindHeader(TText section) const;
    TText FindValue(TText section, TText ident) const;  ///< nothing to point at when there is no such entry
    void NoteUnless(bool usable, TText section, TText ident) const;
    void Touch();
    void LinesChanged();
    void IndexHeaders() const;
    void InsertIndexed(int i, std::string line);

    mutable std::unordered_map<std::string, int> FHeaders;  ///< first line of each header, in upper case
    mutable int FHeadersLines = -1;                         ///< lines the list had when the headers were looked up
    std::vector<TKxIniProblem>* FProblems = nullptr;
    int FWriteCount = 0;
    bool FModified = false;
};

}  // namespace plotkit
