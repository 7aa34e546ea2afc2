// The job of StringList is an ordered list of text lines that is read from and written to plain text files.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace plotkit {

class TStringList
{
public:
    TStringList() = default;
    TStringList(const TStringList&) = default;
    TStringList& operator=(const TStringList&) = default;
    /// May raise in a list that writes itself to a file in the end.
    virtual ~TStringList() noexcept(false) = default;

    int Count() const { return static_cast<int>(FLines.size()); }
    const std::string& operator[](int i) const { return FLines[static_cast<std::size_t>(i)]; }
    const std::vector<std::string>& Lines() const { return FLines; }
    /// The place of the new line.
    int Add(std::string line);
    /// ERangeError "List index out of bounds (%d)", also from the two below.
    void Insert(int i, std::string line);
    void Put(int i, std::string line);
    void Delete(int i);
    void Clear() { FLines.clear(); }
    /// Whole lines, letter case of A to Z ignored; -1 when there is none.
    int IndexOf(std::string_view line) const;

    /// Lines joined by CR LF, one behind the last line too.
    std::string Text() const;
    /// Lines end with CR LF, LF or CR; a UTF-8 byte-order mark is dropped.
    void SetText(std::string_view text);
    /// EFileError with the file's name and the reason.
    void LoadFromFile(const std::filesystem::path& file);
    /// Writes beside the file, then renames: the old file is whole until the new one is. EFileError.
    void SaveToFile(const std::filesystem::path& file) const;

private:
    std::vector<std::string> FLines;
};

/// Letter case of A to Z ignored.
bool SameText(std::string_view a, std::string_view b);
bool StartsWithText(std::string_view text, std::string_view front);
std::string UpperCase(std::string_view text);

/// The whole file; EFileError with the file's name and the reason.
std::string ReadWholeFile(const std::filesystem::path& file);
/// Writes beside the file, then renames, through symbolic links and with the old file's permissions. What is no regular
/// file (a terminal, a pipe) is written as it is. EFileError; the old file is then as it was.
void WriteWholeFile(const std::filesystem::path& file, std::string_view content);

}  // namespace plotkit
