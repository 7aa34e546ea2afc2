#include "foundation/KxLargeIniFile.h"

#include <exception>

namespace plotkit {

TKxLargeIniFile::TKxLargeIniFile(std::string fileName)
    : FFilename(std::move(fileName)), FExceptionsBefore(std::uncaught_exceptions())
{
    std::error_code ignored;
    if (std::filesystem::exists(FFilename, ignored))
        LoadFromFile(FFilename);
}

TKxLargeIniFile::~TKxLargeIniFile() noexcept(false)
{
    if (!GetModified() || WriteCount() == FSavedWrites)
        return;
    try {
        Save();
    } catch (const EFileError&) {
        if (std::uncaught_exceptions() == FExceptionsBefore)
            throw;
    }
}

void TKxLargeIniFile::Save()
{
    const std::vector<std::string> lines = Lines();
    std::size_t first = 0;
    while (first < lines.size() && lines[first].empty())
        ++first;
    if (first > 0) {
        Clear();
        for (std::size_t i = first; i < lines.size(); ++i)
            Add(lines[i]);
    }
    SaveToFile(FFilename);
    FSavedWrites = WriteCount();
}

}  // namespace plotkit
