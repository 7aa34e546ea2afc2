#include "foundation/KxConsts.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "host/Host.h"
#include "host/StringList.h"

namespace plotkit {
namespace {

namespace fs = std::filesystem;

/// The paths of a host of the test's own.
struct TPathsOf
{
    explicit TPathsOf(TFakeHost& host) : Guard(host) { KxLoadPaths(); }
    ~TPathsOf() { KxUnloadPaths(); }

    THostGuard Guard;
};

std::string PathsNow()
{
    return ProgName() + ' ' + ProgPath() + ' ' + IniFileName() + ' ' + LocalAppDataDir() + ' ' + UserSettingsPath() +
           ' ' + UserSettings() + ' ' + UserDataPath();
}

TEST(KxConsts, Paths)
{
    const struct
    {
        const char* Executable;
        std::optional<std::string> AppData, Documents;
        const char* Paths;
    } cases[] = {{"C:\\A\\B.exe", "D:\\R", "D:\\S", "B C:\\A\\ C:\\A\\B.INI D:\\R D:\\R\\B\\ D:\\R\\B\\B.usr D:\\S"},
                 {"/opt/a.b.c", std::nullopt, "/docs", "a.b /opt/ /opt/a.b.INI  /opt/ /opt/a.b.usr /docs"},
                 // The settings' name stays in the application-data folder when only the documents folder is unknown.
                 {"/x.d/c", "/f.d", std::nullopt, "c /x.d/ /x.d/c.INI /f.d /x.d/ /f.d/c/c.usr "}};
    for (const auto& c : cases) {
        TFakeHost host, other;
        host.Executable = c.Executable;
        host.AppData = c.AppData;
        host.Documents = c.Documents;
        const TPathsOf paths(host);
        EXPECT_EQ(PathsNow(), c.Paths);
        (void)TPathsOf(other);  // only the first module's paths count
        EXPECT_EQ(PathsNow(), c.Paths);
    }
    EXPECT_EQ(PathsNow(), std::string(6, ' '));
}

TEST(KxConsts, InitDirsCopiesTheTemplateOnce)
{
    const fs::path folder = fs::path(testing::TempDir()) / ("dirs" + std::to_string(::getpid()));
    fs::create_directories(folder / "config");
    TFakeHost host;
    host.Executable = (folder / "chart").string();
    host.AppData = (folder / "config").string();
    const fs::path settings = folder / "config/chart/chart.usr";
    {
        const TPathsOf paths(host);
        KxInitDirs();
        EXPECT_TRUE(fs::is_directory(settings.parent_path()) && !fs::exists(settings));
        for (const char* content : {"template", "changed"}) {
            WriteWholeFile(folder / "chart.usr", content);
            KxInitDirs();
            EXPECT_EQ(ReadWholeFile(settings), "template");
        }
    }
    // One level of folders, and silence where that does not do.
    host.AppData = (folder / "no/config").string();
    const TPathsOf paths(host);
    EXPECT_NO_THROW(KxInitDirs());
    EXPECT_FALSE(fs::exists(folder / "no"));
    fs::remove_all(folder);
}

}  // namespace
}  // namespace plotkit
