#include "foundation/KxLargeIniFile.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>

#include "host/Application.h"
#include "host/Form.h"

namespace plotkit {
namespace {

TEST(LargeIni, WritesWhereTheSectionEnds)
{
    TKxIniList list;
    EXPECT_FALSE(list.GetModified());
    list.WriteString("S", "A", "1");
    EXPECT_TRUE(list.GetModified());
    list.WriteString("T", "B", std::string_view("2\0hidden", 8));
    list.WriteString("s", "C", "=3= ");
    list.WriteString("S", "a", "4");
    EXPECT_EQ(list.Text(), "\r\n[S]\r\na=4\r\nC==3= \r\n\r\n[T]\r\nB=2\r\n");
    EXPECT_EQ(list.ReadString("s", "c", "x"), "=3= ");
    list.EraseSection("S");
    EXPECT_EQ(list.Text(), "\r\n[T]\r\nB=2\r\n");
}

TEST(LargeIni, WriteWalkEndsAtEmptyLinesReadWalkAtHeaders)
{
    TKxIniList list;
    TStringList names;
    list.SetText("[A]\nx=1\n[B]\ny=2\n\nz=3\n[Empty]");
    EXPECT_EQ(list.ReadString("B", "z", ""), "3");
    EXPECT_EQ(list.ReadString("A", "y", "none"), "none");
    list.WriteString("A", "y", "5");  // runs on into the next section
    list.WriteString("B", "z", "6");  // does not look behind the empty line
    list.WriteString("Empty", "e", "7");
    EXPECT_EQ(list.Text(), "[A]\r\nx=1\r\n[B]\r\ny=5\r\nz=6\r\n\r\nz=3\r\n[Empty]\r\ne=7\r\n");
    list.Add("[open");
    list.ReadSections(names);
    EXPECT_EQ(names.Lines(), (std::vector<std::string>{"A", "B", "Empty", "open"}));
    list.ReadSection("B", names);
    EXPECT_EQ(names.Lines(), (std::vector<std::string>{"y", "z", "z"}));
    list.ReadSectionValues("b", names);
    EXPECT_EQ(names.Lines(), (std::vector<std::string>{"y=5", "z=6", "z=3"}));
}

TEST(LargeIni, ReadsValuesOrDefaults)
{
    TKxIniList list;
    list.SetText("[S]\nColor=255\nyes=yes\ntrue=tRuE\nempty=\nbad=-\nreal=x2.5");
    EXPECT_EQ(list.ReadInteger("S", "color", 1), 255);
    for (const char* ident : {"Col", "empty", "bad"}) {
        EXPECT_EQ(list.ReadInteger("S", ident, 3), 3) << ident;
        EXPECT_EQ(list.ReadReal("S", ident, 3.5), 3.5) << ident;
    }
    EXPECT_EQ(list.ReadReal("S", "real", 0), 2.5);
    std::vector<TKxIniProblem> problems;
    list.SetProblems(&problems);
    EXPECT_FALSE(list.ReadBool("S", "yes", true));
    EXPECT_EQ(list.ReadInteger("S", "bad", 7), 7);
    EXPECT_EQ(list.ReadOrdinal("S", "Color", psDash, PenStyleNames.size()), psDash);
    list.ReadReal("S", "none", 1);
    EXPECT_EQ(problems, (std::vector<TKxIniProblem>{{"S", "yes", "yes"}, {"S", "bad", "-"}, {"S", "Color", "255"}}));
    list.SetProblems(nullptr);
    EXPECT_TRUE(list.ReadBool("S", "true", false) && list.ReadBool("S", "empty", true));
    list.WriteRealDigits("S", "short", 1.0 / 3, 5);
    EXPECT_EQ(list.ReadString("S", "short", ""), "0.333");
}

TEST(LargeIni, ArraysFillTheirLength)
{
    TKxIniList list;
    list.WriteRealArray("S", "R", {1.5, -2, 0.25});
    list.WriteIntArray("S", "I", {7, -8, 9});
    list.WriteRealPos("S", "P", {1, 2.5});
    TKxRealArray reals{9, 9, 9, 9};
    const TKxRealArray untouched = reals;
    list.ReadRealArray("S", "missing", reals);
    EXPECT_TRUE(reals.IsSharedWith(untouched));
    list.ReadRealArray("S", "R", reals);
    EXPECT_EQ(reals, (TKxRealArray{1.5, -2, 0.25, 9}));
    EXPECT_EQ(untouched[0], 9);
    TKxIntegerArray integers{0, 0, 0, 0};
    list.ReadIntArray("S", "I", integers);
    EXPECT_EQ(integers, (TKxIntegerArray{7, -8, 9, 9}));  // the last one stays in the text
    TKxRealPos pos{3, 4};
    list.ReadRealPos("S", "P", pos);
    EXPECT_EQ(pos, (TKxRealPos{1, 2.5}));
}

TEST(LargeIni, ManySectionsAreFast)
{
    TKxIniList list;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 20'000; ++i)
        list.WriteInteger("Section" + std::to_string(i), "Key", i);
    for (int i = 0; i < 20'000; ++i)
        ASSERT_EQ(list.ReadInteger("section" + std::to_string(i), "key", 0), i);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(LargeIni, ManyEntriesAreWrittenLikeSingleOnes)
{
    std::vector<std::pair<std::string, std::string>> entries{
        {"y", "7"}, {"new", std::string("1\0hidden", 8)}, {"z", "3"}, {"X", "4"}};
    for (const char* section : {"A", "B", "Empty", "Fresh"}) {
        TKxIniList many, single;
        for (TKxIniList* const list : {&many, &single})
            list->SetText("[A]\nx=1\n[B]\nz\ny=2\n\nz=3\n[Empty]");
        many.WriteStrings(section, entries);
        for (const auto& [ident, value] : entries)
            single.WriteString(section, ident, value);
        EXPECT_EQ(many.Text(), single.Text());
    }
    TKxIniList list;
    for (int i = 0; i < 100'000; ++i)
        entries.emplace_back("Entry" + std::to_string(i), "1");
    const auto start = std::chrono::steady_clock::now();
    list.WriteStrings("S", entries);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_EQ(list.Count(), 100'006);
}

TEST(LargeIniFile, IsWrittenOnceAndOnlyWhenChanged)
{
    const std::string file = testing::TempDir() + "large" + std::to_string(::getpid()) + ".ini";
    TKxLargeIniFile(file).WriteString("S", "A", "1");
    EXPECT_EQ(ReadWholeFile(file), "[S]\r\nA=1\r\n");
    WriteWholeFile(file, "\n\n[S]\nA=1");
    EXPECT_EQ(TKxLargeIniFile(file).ReadString("S", "A", ""), "1");
    EXPECT_EQ(ReadWholeFile(file), "\n\n[S]\nA=1");
    {
        TKxLargeIniFile ini(file);
        ini.WriteString("S", "B", "2");
        ini.Save();
        EXPECT_EQ(ReadWholeFile(file), "[S]\r\nA=1\r\nB=2\r\n");
        std::filesystem::remove(file);
    }
    EXPECT_FALSE(std::filesystem::exists(file)) << "written though nothing changed since Save";
    {
        TKxLargeIniFile ini(file);
        ini.WriteString("S", "A", "1");
        ini.Save();
        ini.Put(1, "A=2");
    }
    EXPECT_EQ(ReadWholeFile(file), "[S]\r\nA=2\r\n");
}

TEST(LargeIniFile, FailsAloudButNotWhileUnwinding)
{
    const auto write = [&](bool fail) {
        TKxLargeIniFile ini(testing::TempDir() + "no/such/folder/x.ini");
        ini.WriteString("S", "A", "1");
        if (fail)
            throw ERangeError("first");
    };
    EXPECT_THROW(write(false), EFileError);
    EXPECT_THROW(write(true), ERangeError);
}

TEST(LargeIniObjects, FontsComeBack)
{
    TFont font, back;
    font.SetState({"Times", 14, clRed, 2, fpDefault, true, false, true, true});
    TKxIniList list;
    list.WriteFont("S", "Title", font);
    EXPECT_EQ(list[2] + list[list.Count() - 1], "Title.Name=TimesTitle.StrikeOut=1");
    list.ReadFont("S", "Title", back);
    EXPECT_EQ(back.State(), font.State());
}

TEST(LargeIniObjects, FormsKeepTheirNormalBounds)
{
    TForm form(nullptr), back(nullptr), placed(nullptr);
    form.SetBounds(30, 40, 500, 300);
    form.SetWindowState(wsMaximized);
    TKxIniList list;
    list.WriteFormPrms("S", "M", form);
    EXPECT_EQ(list.Text(), "\r\n[S]\r\nM.State=2\r\nM.Top=40\r\nM.Left=30\r\nM.Height=300\r\nM.Width=500\r\n");
    EXPECT_TRUE(form.GetWindowState() == wsMaximized && !form.IsShown());
    list.ReadFormPrms("S", "M", back);
    EXPECT_EQ(back.GetWindowState(), wsMaximized);
    EXPECT_EQ(back.NormalBounds(), (TRect{30, 40, 530, 340}));
    placed.SetBounds(0, 0, 500, 300);
    list.ReadFormPos("S", "M", placed);
    EXPECT_EQ(placed.Bounds().TopLeft(), (TPoint{30, 40}));
    for (const char* ident : {"M.Left", "M.Width", "M.State"})
        list.WriteInteger("S", ident, 2'000'000'000);
    list.ReadFormPos("S", "M", placed);
    EXPECT_EQ(placed.Bounds().TopLeft(), (TPoint{710, 390}));
    list.ReadFormPrms("S", "M", placed);
    EXPECT_EQ(placed.GetWindowState(), wsNormal);
}

TEST(LargeIniObjects, ReferencesArePaths)
{
    TComponent form(&Application());
    form.SetName("MainForm");
    TComponent part(&form), unnamed(&form);
    part.SetName("Graph1");
    TKxIniList list;
    list.WriteComponentRef("S", "R", &part);
    EXPECT_EQ(list.ReadString("S", "R", ""), "MainForm.Graph1");
    TComponent* reference = &unnamed;
    EXPECT_TRUE(list.ReadComponentRef("S", "R", reference));
    EXPECT_EQ(reference, &part);
    TForm* wrong = nullptr;
    EXPECT_FALSE(list.ReadComponentRef("S", "R", wrong) || list.ReadComponentRef("S", "R", reference));
    for (const TComponent* none : {static_cast<const TComponent*>(nullptr), static_cast<const TComponent*>(&unnamed)}) {
        list.WriteComponentRef("S", "R", none);
        EXPECT_EQ(list.ReadString("S", "R", "x"), "");
        EXPECT_FALSE(list.ReadComponentRef("S", "R", reference));
        EXPECT_EQ(reference, &part);
    }
}

}  // namespace
}  // namespace plotkit
