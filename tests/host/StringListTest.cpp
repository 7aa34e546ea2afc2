#include "host/StringList.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "host/Errors.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

namespace fs = std::filesystem;

struct StringListFile : testing::Test
{
    StringListFile() { fs::create_directory(Folder); }
    ~StringListFile() override { fs::remove_all(Folder); }
    std::ptrdiff_t FileCount() const { return std::distance(fs::directory_iterator(Folder), {}); }

    const fs::path Folder = fs::path(testing::TempDir()) / ("lines" + std::to_string(::getpid()));
};

TEST(StringList, LinesEndInAnyWay)
{
    TStringList list;
    list.SetText("\xEF\xBB\xBFone\r\ntwo\nthree\rfour\n\r\n\nfive");
    EXPECT_EQ(list.Lines(), (std::vector<std::string>{"one", "two", "three", "four", "", "", "five"}));
    EXPECT_EQ(list.Text(), "one\r\ntwo\r\nthree\r\nfour\r\n\r\n\r\nfive\r\n");
}

TEST(StringList, EditsAndSearches)
{
    TStringList list;
    list.Add("b");
    list.Insert(0, "a");
    list.Insert(2, "[Graph]");
    list.Put(1, "c");
    EXPECT_EQ(list.IndexOf("[gRAPH]"), 2);
    EXPECT_EQ(list.IndexOf("[graph"), -1);
    list.Delete(0);
    EXPECT_EQ(list.Text(), "c\r\n[Graph]\r\n");
    EXPECT_THROW(list.Insert(3, ""), ERangeError);
    EXPECT_THROW(list.Delete(-1), ERangeError);
    EXPECT_TRUE(StartsWithText("Color=255", "color=") && !StartsWithText("Col", "color="));
}

TEST_F(StringListFile, ReplacesAFileWhole)
{
    const fs::path data = Folder / "data", link = Folder / "link", copy = Folder / "copy";
    const std::string content = "one" + std::string(300001, '\0') + "two\r\n";
    WriteWholeFile(data, "old and longer than the new one");
    fs::permissions(data, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("data", link);
    WriteWholeFile(link, content);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(ReadWholeFile(data), content);
    EXPECT_EQ(fs::status(data).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(FileCount(), 2);
    TStringList list;
    list.LoadFromFile(link);
    list.SaveToFile(copy);
    EXPECT_EQ(ReadWholeFile(copy), content);
}

TEST_F(StringListFile, ErrorsNameFileAndReason)
{
    const std::string missing = Folder / "none", inMissing = Folder / "no/such";
    TStringList list;
    list.Add("kept");
    EXPECT_EQ(MessageOf<EFileError>([&] { list.LoadFromFile(missing); }),
              "Cannot read \"" + missing + "\": No such file or directory");
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(MessageOf<EFileError>([&] { WriteWholeFile(inMissing, "x"); }),
              "Cannot write \"" + inMissing + "\": No such file or directory");
    EXPECT_EQ(MessageOf<EFileError>([] { WriteWholeFile("/dev/full", "x"); }),
              "Cannot write \"/dev/full\": No space left on device");
    EXPECT_EQ(FileCount(), 0);
}

}  // namespace
}  // namespace plotkit
