#include "host/SvgDevice.h"

#include <gtest/gtest.h>

#include <charconv>
#include <random>

#include "host/RecordingColors.h"
#include "host/SvgPath.h"
#include "host/SvgText.h"

namespace plotkit {
namespace {

const TFixedTextMeasurer Measurer;
constexpr TRect Page{0, 0, 200, 100};
constexpr TPenState Thin{clBlack, psSolid, 1}, Wide{clRed, psSolid, 4}, NoPen{clBlack, psClear, 1};
constexpr TBrushState Blue{clBlue, bsSolid}, Clear{clWhite, bsClear};

/// What a drawing becomes between the tags of the document.
template <class TDraw>
std::string Elements(TDraw draw)
{
    TSvgDevice device(Page, 1, Measurer);
    draw(device);
    return device.TakeElements();
}

TTextRun RunOf(const std::string& text, const std::string& font = "Arial")
{
    TTextRun run{{10, 20}, text, {}, {}, Clear};
    run.Font.Name = font;
    run.Font.Color = clBlack;
    run.Font.Size = 15;
    for (int i = 1; i <= CodePointCount(text); ++i)
        run.Advances.push_back(10 * i);
    return run;
}

/// "" when every tag is closed in order, attributes are quoted and all characters are such as XML allows.
std::string FaultOf(const std::string& xml)
{
    std::vector<std::string> open;
    for (std::size_t at = 0; at < xml.size();) {
        const auto byte = static_cast<unsigned char>(xml[at]);
        const int length = CodePointLength(xml, at);
        if ((length == 1 && byte >= 0x80) || (byte < 0x20 && byte != '\n' && byte != '\t' && byte != '\r'))
            return "character " + std::to_string(byte);
        if (byte == '&' && xml.compare(at, 5, "&amp;") && xml.compare(at, 4, "&lt;") && xml.compare(at, 4, "&gt;") &&
            xml.compare(at, 6, "&quot;"))
            return "entity at " + xml.substr(at, 10);
        at += static_cast<std::size_t>(length);
        if (byte != '<')
            continue;
        const std::size_t end = xml.find('>', at);
        const std::string tag = xml.substr(at, end - at);
        if (end == xml.npos || tag.find('<') != tag.npos || std::count(tag.begin(), tag.end(), '"') % 2 != 0)
            return "tag " + tag;
        const std::string name = tag.substr(0, tag.find_first_of(" /?", 1));
        if (tag[0] == '/') {
            if (open.empty() || open.back() != tag.substr(1))
                return "end " + tag;
            open.pop_back();
        } else if (tag.back() != '/' && tag[0] != '?') {
            open.push_back(name);
        }
    }
    return open.empty() ? "" : "open " + open.back();
}

/// The corners that path data of this writer reach, all outlines one after the other.
std::vector<TVectorPoint> Read(std::string_view text)
{
    std::vector<TVectorPoint> points;
    TVectorPoint at;
    char letter = 0;
    const auto number = [&] {
        while (text.front() == ' ')
            text.remove_prefix(1);
        double value = 0;
        text.remove_prefix(
            static_cast<std::size_t>(std::from_chars(text.data(), text.data() + text.size(), value).ptr - text.data()));
        return value;
    };
    while (!text.empty()) {
        if (std::isalpha(static_cast<unsigned char>(text.front()))) {
            letter = text.front();
            text.remove_prefix(1);
        }
        if (letter == 'z')
            continue;
        const double x = letter == 'v' ? 0 : number(), y = letter == 'h' ? 0 : number();
        at = letter == 'M' ? TVectorPoint{x, y} : at + TVectorPoint{x, y};
        points.push_back(at);
    }
    return points;
}

}  // namespace

TEST(SvgDeviceTest, DrawsEachCommandInFewCharacters)
{
    const std::pair<std::string, std::string> cases[]{
        {Elements([](TDrawDevice& d) {
             d.Line({10, 10}, {20, 10}, Thin, {});
             d.Line({5, 5}, {5, 6}, Wide, {});
         }),
         "<g fill=\"none\" stroke=\"#000\" stroke-width=\"1\" stroke-linecap=\"square\">\n<path d=\"M10.5 10.5h9\"/>\n"
         "</g>\n<g fill=\"#f00\">\n<path d=\"M3 3h4v4h-4z\"/>\n</g>\n"},
        {Elements([](TDrawDevice& d) {
             const std::vector<TPoint> points{{1, 1}, {4, 5}, {4, 5}, {7, 9}, {7, 2}, {7, 8}, {3, 8}};
             d.Polyline(points, Wide, {});
         }),
         "<g fill=\"none\" stroke=\"#f00\" stroke-width=\"4\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n"
         "<path d=\"M1 1l6 8v-7 6h-4\"/>\n</g>\n"},
        {Elements([](TDrawDevice& d) {
             d.Polyline(std::array{TPoint{-90, 30}, TPoint{110, 30}}, {clBlack, psDash, 1}, {dmCopy, {10, 0, 99, 99}});
         }),
         "<g fill=\"none\" stroke=\"#000\" stroke-width=\"1\" stroke-dasharray=\"4 2\">\n"
         "<path stroke-dashoffset=\"3.5\" d=\"M10 30.5h89\"/>\n</g>\n"},
        {Elements([](TDrawDevice& d) {
             d.Rectangle({20, 10, 10, 40}, Wide, Blue, {});
             d.Ellipse({10, 10, 31, 31}, Thin, Clear, {});
         }),
         "<g fill=\"#00f\" stroke=\"#f00\" stroke-width=\"4\" stroke-linecap=\"square\">\n"
         "<path d=\"M12 12h6v26h-6z\"/>\n</g>\n<g fill=\"none\" stroke=\"#000\" stroke-width=\"1\" "
         "stroke-linecap=\"square\">\n<ellipse cx=\"20.5\" cy=\"20.5\" rx=\"10\" ry=\"10\"/>\n</g>\n"},
        {Elements([](TDrawDevice& d) {
             d.Rectangle({0, 0, 20, 10}, NoPen, {clBlue, bsHorizontal}, {dmCopy, {4, 0, 300, 300}});
         }),
         "<g fill=\"none\" stroke=\"#00f\" stroke-width=\"1\">\n<path d=\"M4 .5h16m-16 8h16\"/>\n</g>\n"},
    };
    for (const auto& [drawn, expected] : cases)
        EXPECT_EQ(drawn, expected);
}

TEST(SvgDeviceTest, ExclusiveOrBecomesTransparentOrNothing)
{
    const auto drawn = Elements([](TDrawDevice& d) {
        d.FocusRect({0, 0, 9, 9}, {});
        d.Line({1, 1}, {9, 9}, Wide, {dmXor});
        d.Polyline(std::array{TPoint{0, 0}, TPoint{5, 5}}, Wide, {dmXor});
        d.Rectangle({0, 0, 20, 10}, Wide, Blue, {dmXor});
    });
    EXPECT_EQ(drawn, "<g fill=\"#00f\" fill-opacity=\".45\">\n<path d=\"M0 0h20v10h-20z\"/>\n</g>\n");
}

TEST(SvgDeviceTest, TextStaysText)
{
    TTextRun turned = RunOf("a  b");
    turned.Font.Angle = 900;
    turned.Font.Bold = turned.Font.Underline = true;
    const auto text = [](const TTextRun& run) {
        std::string written;
        AppendSvgText(written, run, Measurer);
        return written;
    };
    EXPECT_EQ(text(turned),
              "<text x=\"30\" y=\"36\" transform=\"rotate(-90 10.5 20.5)\" text-decoration=\"underline\" "
              "xml:space=\"preserve\">a  b</text>\n");
    EXPECT_EQ(text(RunOf("<&\"\x01\xFF\xC3\xA9>")),
              "<text x=\"45\" y=\"36\">&lt;&amp;&quot;\xEF\xBF\xBD\xEF\xBF\xBD\xC3\xA9&gt;</text>\n");
    EXPECT_EQ(text(RunOf("ab\xC2\xA3", "symbol")), "<text x=\"25\" y=\"36\">\xCE\xB1\xCE\xB2\xE2\x89\xA4</text>\n");
    TTextRun spaced = RunOf("abcd");
    spaced.Advances = {20, 40, 60, 80};
    EXPECT_NE(text(spaced).find("letter-spacing=\"10\""), std::string::npos);

    const std::pair<const char*, const char*> fonts[]{
        {"Arial", "\"Arial,'Liberation Sans',Helvetica,sans-serif\""},
        {"Times New Roman", "\"'Times New Roman','Times New Roman','Liberation Serif',serif\""},
        {"DejaVu Sans Mono", "\"'DejaVu Sans Mono','Courier New','Liberation Mono',monospace\""},
        {"It's <\"", "\"'It s &lt;&quot;',Arial,'Liberation Sans',Helvetica,sans-serif\""},
    };
    for (const auto& [name, families] : fonts)
        EXPECT_NE(SvgFontAttributes(RunOf("a", name).Font).find(std::string("font-family=") + families),
                  std::string::npos)
            << SvgFontAttributes(RunOf("a", name).Font);
}

TEST(SvgDeviceTest, OnlyWhatCrossesTheClipIsCut)
{
    const auto shape = std::make_shared<TRecording>();
    shape->Ellipse({-3, -3, 4, 4}, Thin, Blue, {});
    const auto drawn = Elements([&](TDrawDevice& d) {
        const TRect clip{0, 0, 60, 60};
        d.Text(RunOf("in"), {dmCopy, clip});
        d.Text(RunOf("a longer text"), {dmCopy, clip});
        d.Text(RunOf("page"), {dmCopy, Page});
        d.Text(RunOf("out"), {dmCopy, {100, 50, 200, 100}});
        const std::vector<TPoint> points{{10, 10}, {20, 10}, {20, 10}, {30, 10}, {80, 10}, {59, 10}, {40, 10}};
        d.Stamp(shape, points, {dmCopy, clip});
    });
    const auto count = [&](std::string_view part) {
        int found = 0;
        for (std::size_t at = drawn.find(part); at != drawn.npos; at = drawn.find(part, at + 1))
            ++found;
        return found;
    };
    EXPECT_EQ(count("<text"), 3);
    EXPECT_EQ(count("clip-path=\"url(#clip1)\""), 1) << drawn;
    EXPECT_EQ(count("<use "), 3) << "one of two at the same place is hidden, three are seen whole before the cut one";
    EXPECT_EQ(count("<ellipse "), 2) << "in the definition, and the last by itself; the cut one is a path";
    EXPECT_EQ(FaultOf(drawn), "");
}

TEST(SvgDeviceTest, DocumentsAreWellFormedWhateverTheTexts)
{
    std::mt19937 random(3);
    const auto bytes = [&](int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += random() % 2 ? static_cast<char>(random() % 256) : "<>&'\"\\ "[random() % 7];
        return text;
    };
    for (int round = 0; round < 500; ++round) {
        TMetafile picture;
        picture.Width = 200;
        picture.Height = 100;
        picture.PixelScale = 4;
        TTextRun run = RunOf(bytes(10), bytes(5));
        run.Font.Angle = static_cast<int>(random() % 8000) - 4000;
        run.Background.Style = random() % 2 ? bsClear : bsSolid;
        picture.Recording.Text(run, {dmCopy, {0, 0, 50, 50}});
        const std::string document = SvgDocument(picture, Measurer, bytes(8));
        ASSERT_EQ(FaultOf(document), "") << document;
        EXPECT_NE(document.find(" width=\"50\" height=\"25\" viewBox=\"0 0 200 100\""), std::string::npos);
    }
}

TEST(SvgDeviceTest, PathsKeepTheirPointsWithinAHundredth)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> place(-300, 300);
    TVectorPath path;
    for (int i = 0; i < 20; ++i) {
        std::vector<TVectorPoint> outline;
        for (int k = 0; k < 200; ++k)
            outline.push_back({place(random), k % 3 == 0 && k > 0 ? outline.back().Y : place(random)});
        path.Add(outline);
    }
    std::string text;
    AppendSvgPath(text, path);
    const auto read = Read(text);
    ASSERT_EQ(read.size(), path.Points.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        ASSERT_NEAR(read[i].X, path.Points[i].X, 0.0051);
        ASSERT_NEAR(read[i].Y, path.Points[i].Y, 0.0051);
    }
}

TEST(RecordingColorsTest, DarkPicturesTurnLight)
{
    const TColor dark = RgbColor(32, 34, 44), yellow = RgbColor(255, 220, 80);
    EXPECT_EQ(LightColor(dark, dark), clWhite);
    EXPECT_EQ(LightColor(clBlack, dark), clWhite);
    EXPECT_EQ(LightColor(clWhite, dark), clBlack);
    EXPECT_LT(LightnessOf(LightColor(RgbColor(200, 200, 200), dark)),
              LightnessOf(LightColor(RgbColor(90, 90, 90), dark)));
    const TColor onWhite = LightColor(yellow, dark);
    EXPECT_NEAR(LightnessOf(onWhite), 0.55, 0.02);
    EXPECT_TRUE(RedOf(onWhite) > GreenOf(onWhite) && GreenOf(onWhite) > BlueOf(onWhite) + 60) << "still a yellow";

    const auto xorOf = [](TColor a, TColor b) { return IntToColor(ColorToInt(a) ^ ColorToInt(b)); };
    const TColor purple = RgbColor(120, 60, 160);
    TRecording picture;
    picture.Rectangle(Page, NoPen, {dark, bsSolid}, {});
    picture.Rectangle({5, 5, 50, 50}, NoPen, {xorOf(purple, dark), bsSolid}, {dmXor});
    picture.Line({0, 0}, {9, 9}, {yellow, psSolid, 1}, {});
    const TRecording light = LightColors(picture, {200, 100}, clWhite);
    EXPECT_EQ(std::get<TRectangleCommand>(light.Commands[0]).Brush.Color, clWhite);
    EXPECT_EQ(xorOf(std::get<TRectangleCommand>(light.Commands[1]).Brush.Color, clWhite), LightColor(purple, dark));
    EXPECT_EQ(std::get<TLineCommand>(light.Commands[2]).Pen.Color, onWhite);
    EXPECT_EQ(LightColors(light, {200, 100}, dark), light) << "it stands on white, whatever the window's colour";

    const TColor blended = std::get<TRectangleCommand>(BlendedXor(picture, 0.45).Commands[1]).Brush.Color;
    EXPECT_NEAR(RedOf(blended) * 0.45 + RedOf(dark) * 0.55, RedOf(purple), 1);
    EXPECT_NEAR(GreenOf(blended) * 0.45 + GreenOf(dark) * 0.55, GreenOf(purple), 1);
}

}  // namespace plotkit
