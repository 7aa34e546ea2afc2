// The job of UserSettings is what the program remembers of its user: recent files, the window's place, its colours.
#pragma once

#include <string>
#include <vector>

#include "host/Form.h"
#include "plotkit/Options.h"

namespace plotkit {

/// Kept in the user's settings file, which is made from the program's template when there is none. What cannot be read
/// has its default; what cannot be written raises EFileError. Several programs at a time: the last writer's word
/// stands, key by key.
class TUserSettings
{
public:
    TUserSettings();

    /// The latest first; at most MostRecentFiles.
    std::vector<std::string> RecentFiles() const;
    void AddRecentFile(const std::string& fileName);
    void ForgetRecentFiles();

    /// The form stands for the window; one that would not be seen is moved to the screen.
    void ReadPlace(TForm& form) const;
    void WritePlace(TForm& form);

    TSchemeChoice Colours() const;
    void SetColours(TSchemeChoice colours);

    static constexpr int MostRecentFiles = 8;

private:
    void WriteRecentFiles(const std::vector<std::string>& files);
};

}  // namespace plotkit
