#include "plotkit/UserSettings.h"

#include <algorithm>

#include "foundation/KxLargeIniFile.h"

namespace plotkit {

namespace {

constexpr const char* RecentSection = "RecentFiles";
constexpr const char* WindowSection = "Window";
constexpr const char* PlacePrefix = "Place";
constexpr const char* ColoursKey = "Colours";

std::string RecentKey(int i)
{
    return "File" + std::to_string(i + 1);
}

}  // namespace

TUserSettings::TUserSettings()
{
    // A new user has no folder for settings at all.
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(UserSettings()).parent_path(), ignored);
    KxInitDirs();
}

std::vector<std::string> TUserSettings::RecentFiles() const
{
    const TKxLargeIniFile file(UserSettings());
    std::vector<std::string> files;
    for (int i = 0; i < MostRecentFiles; ++i)
        if (std::string name = file.ReadString(RecentSection, RecentKey(i), {}); !name.empty())
            files.push_back(std::move(name));
    return files;
}

void TUserSettings::WriteRecentFiles(const std::vector<std::string>& files)
{
    TKxLargeIniFile file(UserSettings());
    file.EraseSection(RecentSection);
    for (int i = 0; i < std::min(static_cast<int>(files.size()), MostRecentFiles); ++i)
        file.WriteString(RecentSection, RecentKey(i), files[static_cast<std::size_t>(i)]);
    file.Save();
}

void TUserSettings::AddRecentFile(const std::string& fileName)
{
    // A name with a line break cannot stand in the file.
    if (fileName.find_first_of("\r\n") != std::string::npos)
        return;
    std::vector<std::string> files = RecentFiles();
    std::erase(files, fileName);
    files.insert(files.begin(), fileName);
    WriteRecentFiles(files);
}

void TUserSettings::ForgetRecentFiles()
{
    WriteRecentFiles({});
}

void TUserSettings::ReadPlace(TForm& form) const
{
    const TKxLargeIniFile file(UserSettings());
    file.ReadFormPrms(WindowSection, PlacePrefix, form);
    TWindowState state = form.GetWindowState();
    form.SetWindowState(wsNormal);
    file.ReadFormPos(WindowSection, PlacePrefix, form);
    // A window that comes up minimised looks like one that does not come up.
    if (state == wsMinimized)
        state = wsNormal;
    form.SetWindowState(state);
}

void TUserSettings::WritePlace(TForm& form)
{
    TKxLargeIniFile file(UserSettings());
    file.WriteFormPrms(WindowSection, PlacePrefix, form);
    file.Save();
}

TSchemeChoice TUserSettings::Colours() const
{
    return TKxLargeIniFile(UserSettings()).ReadOrdinal(WindowSection, ColoursKey, ccAuto, 3);
}

void TUserSettings::SetColours(TSchemeChoice colours)
{
    TKxLargeIniFile file(UserSettings());
    file.WriteInteger(WindowSection, ColoursKey, colours);
    file.Save();
}

}  // namespace plotkit
