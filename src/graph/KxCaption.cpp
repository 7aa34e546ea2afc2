#include "graph/KxCaption.h"

#include <cmath>
#include <numbers>
#include <string_view>

#include "host/CheckedMath.h"
#include "host/Host.h"
#include "host/PixelMath.h"
#include "host/Recording.h"

namespace plotkit {

namespace {

constexpr int DefaultCharset = 1;

/// Puts the font of a canvas back.
class TFontGuard
{
public:
    explicit TFontGuard(TCanvas& canvas) : FCanvas(canvas), FFont(canvas.Font) {}
    TFontGuard(const TFontGuard&) = delete;
    TFontGuard& operator=(const TFontGuard&) = delete;
    ~TFontGuard() { std::swap(FCanvas.Font, FFont); }

    const TFontState& Font() const { return FFont; }

private:
    TCanvas& FCanvas;
    TFontState FFont;
};

void ClearOutput(TKxCaptionRec& rec)
{
    const std::size_t length = rec.Text.size() + 1;
    rec.Width = 0;
    rec.StrippedText.clear();
    rec.CharPos.assign(length, 0);
    rec.CharSrc.assign(length, 0);
    for (auto* marks : {&rec.SymbolMarks, &rec.BoldMarks, &rec.ItalicMarks, &rec.UnderlineMarks, &rec.StrikeOutMarks,
                        &rec.SuperscriptMarks, &rec.SubscriptMarks})
        marks->assign(length, false);
}

/// Draws and measures one caption, code by code. Along the axes, characters that follow each other in one font and
/// colour go to the canvas as one text with the place of each; in any other direction the pen stands on a whole pixel
/// before each.
class TCaptionPainter
{
public:
    TCaptionPainter(TKxCaptionRec& rec, const TFontState& base)
        : FRec(rec),
          FBase(base),
          FFont(base),
          FX(rec.X),
          FY(rec.Y),
          FCos(std::cos(rec.Angle / 1800.0 * std::numbers::pi)),
          FSin(std::sin(rec.Angle / 1800.0 * std::numbers::pi))
    {
        SelectFont();
    }

    void Paint()
    {
        const std::string_view text = FRec.Text;
        std::size_t at = 0;
        for (std::size_t slash; (slash = text.find('\\', at)) != text.npos;) {
            PlainRun(at, slash);
            at = slash + 1;
            if (at < text.size() && ApplyCode(at))
                at += at + 1 < text.size() && text[at + 1] == ' ' ? 2 : 1;
        }
        PlainRun(at, text.size());
        Flush();
    }

private:
    /// Whether a code stands at `at`.
    bool ApplyCode(std::size_t at)
    {
        switch (FRec.Text[at]) {
            case 's':
            case 'S':
                return ToggleSymbol();
            case 'b':
            case 'B':
                return ToggleStyle(&TFontState::Bold, FRec.BoldMarks);
            case 'i':
            case 'I':
                return ToggleStyle(&TFontState::Italic, FRec.ItalicMarks);
            case 'u':
            case 'U':
                return ToggleStyle(&TFontState::Underline, FRec.UnderlineMarks);
            case 'o':
            case 'O':
                return ToggleStyle(&TFontState::StrikeOut, FRec.StrikeOutMarks);
            case '+':
                return ToggleScript(FSuperscript, 11, FRec.SuperscriptMarks);
            case '-':
                return ToggleScript(FSubscript, -34, FRec.SubscriptMarks);
            case '\\':
                Character(at, 1);  // shown, but no part of the stripped text
                return true;
            default:
                return false;
        }
    }

    bool ToggleSymbol()
    {
        Flush();
        FRec.SymbolMarks[FIndex] = true;
        FSymbol = !FSymbol;
        FFont.Name = FSymbol ? "Symbol" : FBase.Name;
        return SelectFont();
    }

    bool ToggleStyle(bool TFontState::*style, std::vector<bool>& marks)
    {
        Flush();
        marks[FIndex].flip();
        FFont.*style = !(FFont.*style);
        return SelectFont();
    }

    /// `rise`: how far the script stands above the line, 72nds of the base size.
    bool ToggleScript(bool& state, int rise, std::vector<bool>& marks)
    {
        Flush();
        marks[FIndex].flip();
        state = !state;
        const double height = std::abs(FBase.Size / 72.0 * std::abs(rise)) * FRec.Canvas->Scale();
        const int up = rise < 0 ? -RoundToInt(height) : RoundToInt(height);
        ShiftUp(state ? up : -up);
        FFont.Size = state ? static_cast<int>(std::int64_t{FBase.Size} * 2 / 3) : FBase.Size;
        return SelectFont();
    }

    bool SelectFont()
    {
        TFontState& font = FRec.Canvas->Font;
        font = FFont;
        if (FRec.Angle != 0)
            RotateFont(font, FRec.Angle);
        return true;
    }

    void ShiftUp(int d)
    {
        if (FRec.Angle == 0)
            FY = AddPixels(FY, -d);
        else if (FRec.Angle == 900)
            FX = AddPixels(FX, -d);
        else {
            FX = AddPixels(FX, -RoundToInt(d * FSin));
            FY = AddPixels(FY, -RoundToInt(d * FCos));
        }
    }

    void PlainRun(std::size_t from, std::size_t end)
    {
        FRec.StrippedText.append(FRec.Text, from, end - from);
        for (std::size_t at = from; at < end;) {
            const auto length = static_cast<std::size_t>(CodePointLength(FRec.Text, at));
            Character(at, length);
            at += length;
        }
    }

    void Character(std::size_t at, std::size_t length)
    {
        // A byte that was no character in the text must not complete one in the run.
        const bool mayComplete = (static_cast<unsigned char>(FRec.Text[at]) & 0xC0U) == 0x80U;
        if (IsSelected() != FRunSelected || mayComplete)
            Flush();
        FRunSelected = IsSelected();
        const std::string_view character = std::string_view(FRec.Text).substr(at, length);
        const int width = FRec.Canvas->TextWidth(character);
        if (FRec.DoPaint) {
            FRun += character;
            FAdvances.push_back(AddPixels(FAdvances.empty() ? 0 : FAdvances.back(), width));
            if (FRec.Angle % 900 != 0)
                Flush();
        }
        FRec.Width = AddPixels(FRec.Width, width);
        FRec.CharPos[FIndex] = FRec.Width;
        FRec.CharSrc[FIndex] = SaturatePixel(static_cast<std::int64_t>(at) + 1);
        ++FIndex;
    }

    bool IsSelected() const
    {
        const auto index = static_cast<std::int64_t>(FIndex);
        return FRec.ShowSelection && index >= FRec.SelStart && index < FRec.SelEnd;
    }

    /// Draws what has been gathered and moves the pen behind it.
    void Flush()
    {
        if (FRun.empty())
            return;
        TCanvas& canvas = *FRec.Canvas;
        canvas.Font.Color = FRunSelected ? clHighlightText : FBase.Color;
        canvas.TextOut(FX, FY, FRun, FAdvances);
        const int width = FAdvances.back();
        if (FRec.Angle == 0)
            FX = AddPixels(FX, width);
        else if (FRec.Angle == 900)
            FY = SaturatePixel(std::int64_t{FY} - width);
        else {
            FX = AddPixels(FX, RoundToInt(width * FCos));
            FY = SaturatePixel(std::int64_t{FY} - RoundToInt(width * FSin));
        }
        FRun.clear();
        FAdvances.clear();
    }

    TKxCaptionRec& FRec;
    const TFontState& FBase;
    TFontState FFont;
    int FX, FY;
    double FCos, FSin;
    std::size_t FIndex = 0;
    bool FSymbol = false, FSuperscript = false, FSubscript = false;
    std::string FRun;
    std::vector<std::int32_t> FAdvances;
    bool FRunSelected = false;
};

}  // namespace

void RichPaintTo(TKxCaptionRec& rec)
{
    ClearOutput(rec);
    const TFontGuard guard(*rec.Canvas);
    TCaptionPainter(rec, guard.Font()).Paint();
}

std::string GetStrippedString(const TKxCaption& caption)
{
    TRecording nowhere;
    TCanvas screen(nowhere, Host().TextMeasurer());
    TKxCaptionRec rec;
    rec.Text = caption;
    rec.Canvas = &screen;
    RichPaintTo(rec);
    return rec.StrippedText;
}

void RotateFont(TFontState& font, int angle)
{
    font.Angle = angle;
    font.Charset = DefaultCharset;
}

void RotateFont(TFont& font, int angle)
{
    TFontState state = font.State();
    RotateFont(state, angle);
    font.SetState(state);
}

}  // namespace plotkit
