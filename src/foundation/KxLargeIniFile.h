// The job of KxLargeIniFile is a store of settings in INI form that is bound to a file.
#pragma once

#include "foundation/KxLargeIni.h"

namespace plotkit {

/// A list that is loaded from a file and written back in the end if it was written to.
class TKxLargeIniFile : public TKxIniList
{
public:
    /// A file that does not exist is an empty one. EFileError.
    explicit TKxLargeIniFile(std::string fileName);
    TKxLargeIniFile(const TKxLargeIniFile&) = delete;
    TKxLargeIniFile& operator=(const TKxLargeIniFile&) = delete;
    /// Saves what was written and not saved yet. EFileError, but silent while another exception is on its way.
    ~TKxLargeIniFile() noexcept(false) override;

    const std::string& GetFilename() const { return FFilename; }
    /// Without empty lines at the start; the file is replaced as a whole. EFileError.
    void Save();

private:
    std::string FFilename;
    int FSavedWrites = -1;
    int FExceptionsBefore;
};

}  // namespace plotkit
