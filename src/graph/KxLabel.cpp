#include "graph/KxLabel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/CheckedMath.h"
#include "host/PixelMath.h"
#include "host/Recording.h"

namespace plotkit {

namespace {

constexpr std::array CustomLabelProperties{
    Property<&TKxCustomLabel::GetAlignment, &TKxCustomLabel::SetAlignment>("Alignment"),
    Property<&TKxCustomLabel::GetAngle, &TKxCustomLabel::SetAngle>("Angle"),
    Property<&TKxCustomLabel::GetXPosition, &TKxCustomLabel::SetXPosition>("XPosition").Pixels().Always(),
};

constexpr std::array LabelProperties{
    Property<&TKxLabel::GetCaption, &TKxLabel::SetCaption>("Caption"),
};

struct TPlace
{
    TPoint Pen;
    TSize Size;
};

/// Where the pen starts and how large the box is of a text `w` by `h` pixels written at `angle`.
TPlace PlaceText(int angle, int w, int h, double cosine, double sine)
{
    switch (angle) {
        case 0:
            return {{0, 0}, {w, h}};
        case 900:
            return {{0, w}, {h, w}};
        case 1800:
            return {{w, h}, {w, h}};
        case 2700:
            return {{h, 0}, {h, w}};
        default:
            break;
    }
    const std::int64_t wc = RoundToInt(w * cosine), ws = RoundToInt(w * sine);
    const std::int64_t hc = RoundToInt(h * cosine), hs = RoundToInt(h * sine);
    const auto place = [](std::int64_t penX, std::int64_t penY, std::int64_t width, std::int64_t height) {
        return TPlace{{SaturatePixel(penX), SaturatePixel(penY)}, {SaturatePixel(width), SaturatePixel(height)}};
    };
    if (angle < 900)  // negative angles, too, are treated as if they rose
        return place(0, ws, wc + hs, ws + hc);
    if (angle < 1800)
        return place(-wc, ws - hc, -wc + hs, ws - hc);
    if (angle < 2700)
        return place(-wc - hs, -hc, -wc - hs, -ws - hc);
    return place(-hs, 0, wc - hs, -ws + hc);
}

}  // namespace

constinit const TClassInfo TKxCustomLabel::Class{"TKxCustomLabel", &TTextLabel::Class, CustomLabelProperties};
constinit const TClassInfo TKxLabel::Class{"TKxLabel", &TKxCustomLabel::Class, LabelProperties,
                                           &CreateComponent<TKxLabel>};

TKxCustomLabel::TKxCustomLabel(TComponent* owner) : TTextLabel(owner)
{
    SetParentFont(false);
    GetFont().SetName("Arial");
}

void TKxCustomLabel::SetAlignment(TAlignment alignment)
{
    if (FAlignment == alignment)
        return;
    FAlignment = alignment;
    if (IsLoading())
        TakeXPosition();
    else
        ApplyXPosition();
}

void TKxCustomLabel::SetAngle(int angle)
{
    if (FAngle == angle % 3600)
        return;
    FAngle = angle % 3600;
    FCos = std::cos(FAngle / 1800.0 * std::numbers::pi);
    FSin = std::sin(FAngle / 1800.0 * std::numbers::pi);
    if (IsLoading())
        TakeXPosition();
    AdjustBounds();
    Invalidate();
}

void TKxCustomLabel::SetXPosition(int x)
{
    FXPosition = x;
    ApplyXPosition();
}

int TKxCustomLabel::AnchorShare(int width) const
{
    if (FAngle != 0 || FAlignment == taLeftJustify)
        return 0;
    return FAlignment == taRightJustify ? width : width / 2;
}

void TKxCustomLabel::TakeXPosition()
{
    FXPosition = AddPixels(GetLeft(), AnchorShare(GetWidth()));
}

void TKxCustomLabel::PlaceAtXPosition(int width, int height)
{
    FPlacing = true;
    SetBounds(AddPixels(FXPosition, -AnchorShare(FTextWidth)), GetTop(), width, height);
    FPlacing = false;
}

void TKxCustomLabel::ApplyXPosition()
{
    // While it is read the text is not measured yet; until then the stored left edge stands.
    const bool needsWidth = FAngle == 0 && FAlignment != taLeftJustify;
    if (!IsLoading() || !needsWidth)
        PlaceAtXPosition(GetWidth(), GetHeight());
}

void TKxCustomLabel::SetBounds(int left, int top, int width, int height)
{
    if (!FPlacing)
        FXPosition = AddPixels(left, AnchorShare(std::max(width, 0)));
    TTextLabel::SetBounds(left, top, width, height);
}

void TKxCustomLabel::MeasureCaption()
{
    TRecording nowhere;
    TCanvas screen(nowhere, Host().TextMeasurer(), PixelScale());
    screen.Font = GetFont().State();
    FTextHeight = screen.TextHeight(GetCaption());
    TKxCaptionRec rec;
    rec.Text = GetCaption();
    rec.Canvas = &screen;
    rec.Angle = FAngle;
    RichPaintTo(rec);
    FTextWidth = rec.Width;
}

void TKxCustomLabel::AdjustBounds()
{
    if (!GetAutoSize() || IsLoading())
        return;
    MeasureCaption();
    const TPlace place = PlaceText(FAngle, FTextWidth, FTextHeight, FCos, FSin);
    FPenX = place.Pen.X;
    FPenY = place.Pen.Y;
    PlaceAtXPosition(place.Size.Width, place.Size.Height);
}

void TKxCustomLabel::Paint()
{
    TCanvas& canvas = Canvas();
    if (!GetTransparent()) {
        canvas.Brush.SetStyle(bsSolid);
        canvas.Brush.SetColor(GetColor());
        canvas.FillRect(ClientRect());
    }
    canvas.Brush.SetStyle(bsClear);
    canvas.Font = GetFont().State();
    TKxCaptionRec rec;
    rec.Text = GetCaption();
    rec.Canvas = &canvas;
    rec.X = FPenX;
    rec.Y = FPenY;
    rec.Angle = FAngle;
    rec.SelStart = -1;
    rec.SelEnd = -1;
    rec.DoPaint = true;
    RichPaintTo(rec);
}

}  // namespace plotkit
