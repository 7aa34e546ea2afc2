#include "foundation/KxConsts.h"

#include <filesystem>

#include "host/Host.h"

namespace plotkit {

namespace {

namespace fs = std::filesystem;

struct TPaths
{
    std::string ProgName;
    std::string ProgPath;
    std::string IniFileName;
    std::string LocalAppDataDir;
    std::string UserSettingsPath;
    std::string UserSettings;
    std::string UserDataPath;
};

/// A path as text, with the separator of the system it comes from: a full name without "/" is one with "\".
struct TSplitPath
{
    char Separator = '/';
    std::string Folder;
    std::string Name;
};

TSplitPath Split(const std::string& path)
{
    TSplitPath split;
    if (path.find('/') == std::string::npos && path.find('\\') != std::string::npos)
        split.Separator = '\\';
    const std::size_t name = path.rfind(split.Separator) + 1;  // 0 when there is no separator
    split.Folder = path.substr(0, name);
    split.Name = path.substr(name);
    return split;
}

/// A dot at the very front hides a file and starts no extension.
std::string WithoutExtension(const std::string& name)
{
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

TPaths ComputePaths(const THost& host)
{
    TPaths paths;
    const TSplitPath program = Split(host.ExecutableName());
    paths.ProgName = WithoutExtension(program.Name);
    paths.ProgPath = program.Folder;
    paths.IniFileName = paths.ProgPath + paths.ProgName + ".INI";
    paths.UserSettingsPath = paths.ProgPath;
    if (const auto appData = host.AppDataFolder()) {
        paths.LocalAppDataDir = *appData;
        paths.UserSettingsPath = *appData + program.Separator + paths.ProgName + program.Separator;
    }
    paths.UserSettings = paths.UserSettingsPath + paths.ProgName + ".usr";
    // Without a documents folder the settings' folder falls back once more, while the settings' name stays as it is.
    if (const auto documents = host.DocumentsFolder())
        paths.UserDataPath = *documents;
    else
        paths.UserSettingsPath = paths.ProgPath;
    return paths;
}

class TPathStore
{
public:
    const TPaths& Get()
    {
        if (!FComputed)
            Compute();
        return FPaths;
    }
    void Load()
    {
        if (FModules++ == 0)
            Compute();
    }
    void Unload()
    {
        if (FModules > 0 && --FModules == 0)
            FPaths = {};
    }

private:
    void Compute()
    {
        FPaths = ComputePaths(Host());
        FComputed = true;
    }

    TPaths FPaths;
    int FModules = 0;
    bool FComputed = false;
};

TPathStore& Store()
{
    static TPathStore store;
    return store;
}

}  // namespace

const std::string& ProgName()
{
    return Store().Get().ProgName;
}

const std::string& ProgPath()
{
    return Store().Get().ProgPath;
}

const std::string& IniFileName()
{
    return Store().Get().IniFileName;
}

const std::string& LocalAppDataDir()
{
    return Store().Get().LocalAppDataDir;
}

const std::string& UserSettingsPath()
{
    return Store().Get().UserSettingsPath;
}

const std::string& UserSettings()
{
    return Store().Get().UserSettings;
}

const std::string& UserDataPath()
{
    return Store().Get().UserDataPath;
}

void KxLoadPaths()
{
    Store().Load();
}

void KxUnloadPaths()
{
    Store().Unload();
}

void KxInitDirs()
{
    std::error_code ignored;
    if (fs::is_regular_file(UserSettings(), ignored))
        return;
    fs::create_directory(UserSettingsPath(), ignored);
    const std::string pattern = ProgPath() + ProgName() + ".usr";
    if (fs::is_regular_file(pattern, ignored))
        fs::copy_file(pattern, UserSettings(), fs::copy_options::none, ignored);
}

}  // namespace plotkit
