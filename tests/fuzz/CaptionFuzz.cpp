// Any bytes make a caption. The first two choose direction and size.
#include "Require.h"
#include "graph/KxCaption.h"
#include "host/Recording.h"

namespace plotkit {
namespace {

struct TDrawnCaption
{
    TRecording Picture;
    TKxCaptionRec Rec;

    TDrawnCaption(std::string_view text, int angle, int size, bool paint, bool select)
    {
        const TFixedTextMeasurer measurer;
        TCanvas canvas(Picture, measurer);
        canvas.Font.Size = size;
        const TFontState before = canvas.Font;
        Rec.Canvas = &canvas;
        Rec.Text = text;
        Rec.Angle = angle;
        Rec.DoPaint = paint;
        Rec.ShowSelection = select;
        Rec.SelStart = 1;
        Rec.SelEnd = 3;
        RichPaintTo(Rec);
        Require(canvas.Font == before, "the canvas keeps its font");
    }

    std::vector<TTextRun> Runs() const
    {
        std::vector<TTextRun> runs;
        for (const TDrawCommand& command : Picture.Commands)
            runs.push_back(std::get<TTextCommand>(command).Run);
        return runs;
    }
    std::string Shown() const
    {
        std::string shown;
        for (const TTextRun& run : Runs())
            shown += run.Text;
        return shown;
    }
    std::size_t Count() const
    {
        std::size_t count = 0;
        for (const TTextRun& run : Runs()) {
            Require(static_cast<std::size_t>(CodePointCount(run.Text)) == run.Advances.size(),
                    "characters have places");
            count += run.Advances.size();
        }
        return count;
    }
};

void CheckTables(const TKxCaptionRec& rec, std::size_t count)
{
    const std::size_t length = rec.Text.size() + 1;
    Require(rec.CharPos.size() == length && rec.CharSrc.size() == length, "the tables fit the text");
    for (const auto* marks : {&rec.SymbolMarks, &rec.BoldMarks, &rec.ItalicMarks, &rec.UnderlineMarks,
                              &rec.StrikeOutMarks, &rec.SuperscriptMarks, &rec.SubscriptMarks})
        Require(marks->size() == length, "the marks fit the text");
    Require(count < length, "no more characters than bytes");
    Require(rec.Width == (count ? rec.CharPos[count - 1] : 0), "the last character ends where the caption does");
    for (std::size_t i = 0; i < length; ++i) {
        const bool ascends = i == 0 || rec.CharSrc[i - 1] < rec.CharSrc[i];
        Require(i < count ? ascends && rec.CharSrc[i] >= 1 : rec.CharSrc[i] == 0, "sources ascend");
    }
}

void CheckCaption(std::string_view text, int angle, int size)
{
    const TDrawnCaption drawn(text, angle, size, true, false);
    const TDrawnCaption measured(text, angle, size, false, false);
    const TDrawnCaption selected(text, angle, size, true, true);
    Require(measured.Picture.Commands.empty(), "measuring draws nothing");
    Require(measured.Rec.CharPos == drawn.Rec.CharPos && measured.Rec.CharSrc == drawn.Rec.CharSrc,
            "measuring and drawing give the same tables");
    Require(selected.Shown() == drawn.Shown() && selected.Rec.CharPos == drawn.Rec.CharPos,
            "a selection changes the colour only");
    Require(GetStrippedString(std::string(text)) == drawn.Rec.StrippedText, "the stripped text is the same everywhere");
    CheckTables(drawn.Rec, drawn.Count());
}

}  // namespace
}  // namespace plotkit

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    constexpr int directions[] = {0, 900, 1800, 450, -2700, 3601, 2'000'000'000, -1};
    constexpr int sizes[] = {9, 1, 0, -12, 72, 100'000, 2'147'483'647, -2'147'483'647};
    plotkit::CheckCaption(plotkit::AsText(data + 2, size - 2), directions[data[0] % 8], sizes[data[1] % 8]);
    return 0;
}
