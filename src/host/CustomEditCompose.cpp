#include "host/CustomEdit.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

std::string_view Characters(std::string_view text, int from, int to)
{
    const auto byteOf = [text](int index) {
        std::size_t at = 0;
        for (int i = 0; i < index && at < text.size(); ++i)
            at += static_cast<std::size_t>(CodePointLength(text, at));
        return std::min(at, text.size());
    };
    const std::size_t begin = byteOf(from);
    return text.substr(begin, std::max(byteOf(to), begin) - begin);
}

}  // namespace

void TCustomEdit::Compose(const TComposition& composition)
{
    if (FComposition == composition)
        return;
    FComposition = composition;
    DoCaret();
}

TFontState TCustomEdit::ComposedFont() const
{
    TFontState font = PaintFont();
    font.Underline = true;
    return font;
}

int TCustomEdit::ComposedWidth(int characters) const
{
    if (FComposition.Text.empty())
        return 0;
    return Host().TextMeasurer().Width(Characters(FComposition.Text, 0, characters), ComposedFont());
}

int TCustomEdit::ComposedWidth() const
{
    return ComposedWidth(static_cast<int>(FComposition.Text.size()));
}

void TCustomEdit::PaintComposition(TCanvas& canvas, int top)
{
    const int left = PlainX(CaretPos());
    const int from = std::max(FComposition.MarkStart, 0), to = std::max(FComposition.MarkEnd, from);
    const int height = LineHeight();
    const auto part = [&](int begin, int end, TColor color, bool isMarked) {
        const std::string_view text = Characters(FComposition.Text, begin, end);
        const int x = AddPixels(left, ComposedWidth(begin));
        if (isMarked && !text.empty()) {
            canvas.Brush.SetColor(clHighlight);
            canvas.FillRect({x, top, AddPixels(left, ComposedWidth(end)), AddPixels(top, height)});
            canvas.Brush.SetStyle(bsClear);
        }
        canvas.Font = ComposedFont();
        canvas.Font.Color = color;
        canvas.TextOut(x, top, text);
    };
    const TColor plain = ComposedFont().Color;
    part(0, from, plain, false);
    part(from, to, clHighlightText, true);
    part(to, static_cast<int>(FComposition.Text.size()), plain, false);
}

}  // namespace plotkit
