#include <gtest/gtest.h>

#include "PixelSheet.h"
#include "host/SymbolEncoding.h"
#include "qt/KxQtFont.h"
#include "qt/KxQtText.h"

namespace plotkit {

namespace {

TFontState Font(const std::string& name, int size, int angle = 0)
{
    TFontState font;
    font.Name = name;
    font.Size = size;
    font.Angle = angle;
    font.Color = clBlack;
    return font;
}

TTextRun RunOf(const std::string& text, const TFontState& font, TPoint at)
{
    const TQtTextMeasurer measurer;
    TTextRun run;
    run.At = at;
    run.Text = text;
    run.Font = font;
    std::int32_t reached = 0;
    for (std::size_t i = 0; i < text.size();) {
        const auto length = static_cast<std::size_t>(CodePointLength(text, i));
        reached += measurer.Width(std::string_view(text).substr(i, length), font);
        run.Advances.push_back(reached);
        i += length;
    }
    return run;
}

}  // namespace

TEST(QtText, SymbolIsTheGreekOfTheBaseFont)
{
    TPixelSheet symbol, greek;
    symbol.Device().Text(RunOf("ab", Font("SYMBOL", 24), {8, 8}), {});
    greek.Device().Text(RunOf("αβ", Font("Arial", 24), {8, 8}), {});
    EXPECT_GT(symbol.Marked().size(), 50U);
    EXPECT_TRUE(symbol.Image() == greek.Image());

    // The ends of the two blocks of codes and of their gaps, and some between.
    const std::u32string codes = U" awADWFf7-~\x7F\xA0\xA1\xA5\xB1\xD6\xE1\xE5\xF1\xFE\xFFα😀";
    const std::u32string characters = U" αωΑΔΩΦφ7−∼\x7F\xA0ϒ∞±√⟨∑⟩\x23AD\xFFα😀";
    ASSERT_EQ(codes.size(), characters.size());
    for (std::size_t i = 0; i < codes.size(); ++i)
        EXPECT_EQ(SymbolToUnicode(codes[i]), characters[i]) << static_cast<unsigned>(codes[i]);
}

TEST(QtText, InkStaysInTheMeasuredCell)
{
    const TQtTextMeasurer measurer;
    for (const char* text : {"Wegdß", "iiiiiiiiii|", "AVAVAV To", "\\x+ Ähm, größer"}) {
        for (const int size : {7, 24}) {
            for (const int angle : {0, 900, 1800, 2700, -900}) {
                SCOPED_TRACE(std::string(text) + " " + std::to_string(size) + " at " + std::to_string(angle));
                TTextRun run = RunOf(text, Font("Arial", size, angle), {300, 300});
                const int w = run.Advances.back(), h = measurer.Height(run.Font);
                TPixelSheet ink(600, 600), cell(600, 600);
                ink.Device().Text(run, {});
                run.Background = Brush();
                run.Font.Color = clRed;
                cell.Device().Text(run, {});
                EXPECT_GE(cell.CountOf(Red), w * h);
                const TRect expected = angle == 0      ? TRect{300, 300, 300 + w, 300 + h}
                                       : angle == 1800 ? TRect{301 - w, 301 - h, 301, 301}
                                       : angle == 900  ? TRect{300, 301 - w, 300 + h, 301}
                                                       : TRect{301 - h, 300, 301, 300 + w};
                // A glyph's smooth edge may reach into the neighbouring pixel.
                const TRect reach{expected.Left - 1, expected.Top - 1, expected.Right + 1, expected.Bottom + 1};
                for (const TRect& box : {ink.Extent(), cell.Extent()})
                    EXPECT_EQ(box.Intersected(reach), box);
                EXPECT_GE(std::max(ink.Extent().Width(), ink.Extent().Height()), w - 4 - size / 3);
            }
        }
    }
}

TEST(QtText, GivenAdvancesPlaceTheCharacters)
{
    TTextRun run = RunOf("|||", Font("Arial", 12), {10, 10});
    run.Advances = {20, 25, 60};
    TPixelSheet sheet(100, 40);
    sheet.Device().Text(run, {});
    std::vector<int> starts;
    for (const auto& [x, y] : sheet.Marked())
        if (starts.empty() || x > starts.back() + 3)
            starts.push_back(x);
    ASSERT_EQ(starts.size(), 3U);
    EXPECT_EQ(starts[1] - starts[0], 20);
    EXPECT_EQ(starts[2] - starts[1], 5);
}

TEST(QtText, MeasuresTheSumOfCharactersAtAnySize)
{
    const TQtTextMeasurer measurer;
    const TFontState small = Font("Arial", 10);
    TFontState other = small;
    other.PixelsPerInch = 384;
    const std::string text = "AVATAR To Ye fluffy 0123";
    EXPECT_NEAR(measurer.Width(text, other), RunOf(text, other, {}).Advances.back(), text.size() / 2.0);
    EXPECT_NEAR(measurer.Width("AV", other), measurer.Width("A", other) + measurer.Width("V", other), 1);
    EXPECT_NEAR(measurer.Width(text, other) / 4.0, measurer.Width(text, small), 4);
    EXPECT_GT(measurer.Height(other), 3 * measurer.Height(small));
    EXPECT_GT(measurer.Width("\xFF\xC3", small), 0);
    for (const int size : {0, -9, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        other.Size = size;
        EXPECT_GE(measurer.Height(other), 1) << size;
    }
}

}  // namespace plotkit
