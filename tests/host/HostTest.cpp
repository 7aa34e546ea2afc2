#include "host/Host.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "host/Metafile.h"
#include "host/StringList.h"
#include "host/Timer.h"

namespace plotkit {
namespace {

using namespace std::chrono_literals;

void SetFolders(const std::string& home, const std::string& config)
{
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", config.c_str(), 1);
}

TEST(Host, FoldersOfTheUser)
{
    const auto folder = std::filesystem::path(testing::TempDir()) / ("folders" + std::to_string(::getpid()));
    std::filesystem::create_directory(folder);
    const THost host;
    SetFolders("/home/ann/", "");
    EXPECT_EQ(host.AppDataFolder(), "/home/ann/.config");
    EXPECT_EQ(host.DocumentsFolder(), "/home/ann/Documents");
    SetFolders("/home/ann", folder);
    EXPECT_EQ(host.AppDataFolder(), folder.string());
    WriteWholeFile(folder / "user-dirs.dirs", "# list\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente/\"\n");
    EXPECT_EQ(host.DocumentsFolder(), "/home/ann/Dokumente");
    WriteWholeFile(folder / "user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"\n");
    EXPECT_EQ(host.DocumentsFolder(), "/home/ann/Documents");
    ::unsetenv("HOME");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(host.AppDataFolder(), std::nullopt);
    EXPECT_EQ(host.DocumentsFolder(), std::nullopt);
    std::filesystem::remove_all(folder);
}

TEST(Host, ColorsAndClipboard)
{
    THost host;
    EXPECT_EQ(host.ResolveColor(clButtonFace), IntToColor(0xF0F0F0));
    EXPECT_EQ(host.ResolveColor(clRed), clRed);
    EXPECT_EQ(host.ResolveColor(IntToColor(-1)), clBlack);
    TMetafile picture;
    picture.Recording.Line({0, 0}, {5, 5}, {}, {});
    host.SetClipboardText("text");
    host.SetClipboardMetafile(picture);
    EXPECT_EQ(host.ClipboardText(), "");
    ASSERT_TRUE(host.ClipboardMetafile());
    EXPECT_EQ(host.ClipboardMetafile()->Recording, picture.Recording);
    host.SetClipboardText("text");
    EXPECT_EQ(host.ClipboardText(), "text");
    EXPECT_FALSE(host.ClipboardMetafile());
}

TEST(Host, RandomNumbersFillTheUnitInterval)
{
    THost host;
    double sum = 0;
    for (int i = 0; i < 10000; ++i) {
        const double value = host.Random();
        ASSERT_TRUE(value >= 0 && value < 1);
        sum += value;
    }
    EXPECT_NEAR(sum / 10000, 0.5, 0.03);
    EXPECT_EQ(TFakeHost().Random(), TFakeHost().Random());
}

TEST(FakeHost, TimersRunWhenTheyAreDue)
{
    TFakeHost host;
    const auto start = host.Now();
    std::string calls;
    const auto note = [&](char name) {
        return [&, name] { calls += name + std::to_string((host.Now() - start) / 1ms) + ' '; };
    };
    const int slow = host.StartTimer(30ms, note('s'));
    host.StartTimer(20ms, note('q'));
    host.StartTimer(60ms, note('x'));
    host.Advance(61ms);
    host.StopTimer(slow);
    host.StopTimer(slow);
    host.Advance(40ms);
    EXPECT_EQ(calls, "q20 s30 q40 s60 q60 x60 q80 q100 ");
    host.Advance(-50ms);
    EXPECT_EQ((host.Now() - start) / 1ms, 101);
}

TEST(FakeHost, CallbacksChangeTimers)
{
    TFakeHost host;
    const THostGuard guard(host);
    int ones = 0, others = 0;
    std::unique_ptr<TTimer> other, once;
    once = std::make_unique<TTimer>(10, [&] {
        ++ones;
        other = std::make_unique<TTimer>(0, [&] {
            if (++others == 5)
                other.reset();
        });
        once.reset();
    });
    host.Advance(1s);
    EXPECT_EQ(ones, 1);
    EXPECT_EQ(others, 5);
}

}  // namespace
}  // namespace plotkit
