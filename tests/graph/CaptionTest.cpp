#include "graph/KxCaption.h"

#include <gtest/gtest.h>


#include "host/Recording.h"

namespace plotkit {
namespace {

/// Size 9 is 12 pixels and 6 a character; two thirds of it are 8 pixels and 4 a character.
struct TCaptionTest : testing::Test
{
    TFixedTextMeasurer Measurer;
    TRecording Recording;
    TCanvas Canvas{Recording, Measurer};
    TKxCaptionRec Rec;

    void SetUp() override
    {
        Canvas.Font.Size = 9;
        Rec.Canvas = &Canvas;
        Rec.X = 100;
        Rec.Y = 200;
        Rec.DoPaint = true;
    }
    void Draw(const TKxCaption& text, int angle = 0)
    {
        Recording.Clear();
        Rec.Text = text;
        Rec.Angle = angle;
        RichPaintTo(Rec);
    }
    /// "x,y text" of each run, with the letters of its styles and its size where it is not the base's.
    std::string Runs() const
    {
        std::string all;
        for (const TDrawCommand& command : Recording.Commands) {
            const TTextRun& run = std::get<TTextCommand>(command).Run;
            all += std::to_string(run.At.X) + "," + std::to_string(run.At.Y) + " " + run.Text;
            const TFontState& font = run.Font;
            const std::string styles = std::string(font.Name == "Symbol" ? "s" : "") + (font.Bold ? "b" : "") +
                                       (font.Italic ? "i" : "") + (font.Underline ? "u" : "") +
                                       (font.StrikeOut ? "o" : "") + (font.Size != 9 ? std::to_string(font.Size) : "");
            all += (styles.empty() ? "" : "/" + styles) + "; ";
        }
        return all;
    }
};

std::string Marks(const TKxCaptionRec& rec)
{
    std::string all;
    const std::vector<std::pair<char, const std::vector<bool>*>> kinds{
        {'s', &rec.SymbolMarks},    {'b', &rec.BoldMarks},        {'i', &rec.ItalicMarks},   {'u', &rec.UnderlineMarks},
        {'o', &rec.StrikeOutMarks}, {'+', &rec.SuperscriptMarks}, {'-', &rec.SubscriptMarks}};
    for (const auto& [letter, marks] : kinds)
        for (std::size_t i = 0; i < marks->size(); ++i)
            if ((*marks)[i])
                all += letter + std::to_string(i) + " ";
    return all;
}

TEST_F(TCaptionTest, RunsTablesAndMarks)
{
    using TNumbers = std::vector<std::int32_t>;
    const std::vector<std::tuple<std::string, const char*, const char*, TNumbers, TNumbers, const char*>> cases{
        {"", "", "", {}, {}, ""},
        {"\\bF\\b = m", "F= m", "100,200 F/b; 106,200 = m; ", {6, 12, 18, 24}, {3, 7, 8, 9}, "b0 b1 "},
        {"\\BF\\I\\U\\Og", "Fg", "100,200 F/b; 106,200 g/biuo; ", {6, 12}, {3, 10}, "b0 i1 u1 o1 "},
        {"10\\+ 3", "103", "100,200 10; 112,199 3/6; ", {6, 12, 16}, {1, 2, 6}, "+2 "},
        {"x\\+2\\+ y", "x2y", "100,200 x; 106,199 2/6; 110,200 y; ", {6, 10, 16}, {1, 4, 8}, "+1 +2 "},
        {"x\\-2\\-y", "x2y", "100,200 x; 106,204 2/6; 110,200 y; ", {6, 10, 16}, {1, 4, 7}, "-1 -2 "},
        {"\\sa\\sb", "ab", "100,200 a/s; 106,200 b; ", {6, 12}, {3, 6}, "s0 s1 "},
        {"a\\\\b", "ab", "100,200 a\\b; ", {6, 12, 18}, {1, 3, 4}, ""},
        {"a\\\\ b", "ab", "100,200 a\\b; ", {6, 12, 18}, {1, 3, 5}, ""},
        {"a\\xb", "axb", "100,200 axb; ", {6, 12, 18}, {1, 3, 4}, ""},
        {"a\\", "a", "100,200 a; ", {6}, {1}, ""},
        {"\\b\\b\\s\\sa", "a", "100,200 a; ", {6}, {9}, "s0 "},
        {"\\+\\-a\\+b", "ab", "100,203 a/6; 104,204 b; ", {4, 10}, {5, 8}, "+0 +1 -0 "},
        {"\xC3\xA4\\i\xFF", "\xC3\xA4\xFF", "100,200 \xC3\xA4; 106,200 \xFF/i; ", {6, 12}, {1, 5}, "i1 "},
    };
    for (auto [text, stripped, runs, pos, src, marks] : cases) {
        Draw(text);
        EXPECT_EQ(Runs(), runs) << text;
        EXPECT_EQ(Rec.Width, pos.empty() ? 0 : pos.back()) << text;
        pos.resize(text.size() + 1);
        src.resize(text.size() + 1);
        EXPECT_EQ(GetStrippedString(text), stripped);
        EXPECT_EQ(Canvas.Font.Size, 9);
        EXPECT_FALSE(Canvas.Font.Bold);
        for (const bool painted : {true, false}) {  // measuring fills the same as drawing
            Rec.DoPaint = painted;
            Draw(text);
            EXPECT_EQ(Rec.StrippedText, stripped) << text;
            EXPECT_EQ(Rec.CharPos, pos) << text;
            EXPECT_EQ(Rec.CharSrc, src) << text;
            EXPECT_EQ(Marks(Rec), marks) << text;
        }
        EXPECT_TRUE(Recording.Commands.empty());
        Rec.DoPaint = true;
    }
}

TEST_F(TCaptionTest, OffsetsFollowTheDirectionAndTheResolution)
{
    Canvas.Font.Charset = 2;
    Draw("ab\\+c\\+d", 900);
    EXPECT_EQ(Runs(), "100,200 ab; 99,188 c/6; 100,184 d; ");
    Draw("ab\\-c\\-d", 1800);
    EXPECT_EQ(Runs(), "100,200 ab; 88,196 c/6; 84,200 d; ");
    Draw("ab\\bc", 450);  // 6 pixels at 45 degrees: 4.24 to the right and up, rounded for each character
    EXPECT_EQ(Runs(), "100,200 a; 104,196 b; 108,192 c/b; ");
    Draw("ab", 900);  // turned without any code, too, and with the default character set
    const TTextRun run = std::get<TTextCommand>(Recording.Commands[0]).Run;
    EXPECT_EQ(run.Advances, (std::vector<std::int32_t>{6, 12}));
    EXPECT_EQ(run.Font.Angle, 900);
    EXPECT_EQ(run.Font.Charset, 1);
    TCanvas fine(Recording, Measurer, 4);
    fine.Font.Size = 9;
    Rec.Canvas = &fine;
    Draw("\\+a\\+\\-b");  // 5.5 and 17 pixels
    EXPECT_EQ(Runs(), "100,194 a/6; 116,217 b/6; ");
}

TEST_F(TCaptionTest, SelectionChangesTheColourOnly)
{
    Rec.ShowSelection = true;
    Rec.SelStart = Rec.SelEnd = 1;
    Canvas.Font.Color = clRed;
    Draw("abcd");
    EXPECT_EQ(Runs(), "100,200 abcd; ");
    Rec.SelEnd = 3;
    Draw("abcd");
    ASSERT_EQ(Runs(), "100,200 a; 106,200 bc; 118,200 d; ");
    for (const std::size_t i : {0, 1, 2})
        EXPECT_EQ(std::get<TTextCommand>(Recording.Commands[i]).Run.Font.Color, i == 1 ? clHighlightText : clRed);
}

}  // namespace
}  // namespace plotkit
