// The job of KxAxisLook is what an axis looks like: gaps, lengths, colours, thicknesses and its caption.
#pragma once

#include "graph/KxCaption.h"
#include "host/Control.h"

namespace plotkit {

class TKxCustomLabel;

/// The published appearance of an axis. Lengths are 1/96 inch.
class TKxAxisLook : public TGraphicControl
{
public:
    explicit TKxAxisLook(TComponent* owner);

    /// Ends, ticks and layout are chosen anew at the next paint.
    void Modified();
    bool NeedsCalculate() const { return FNeedsCalculate; }

    bool GetShowScaleLabels() const { return FShowScaleLabels; }
    void SetShowScaleLabels(bool show) { Lay(FShowScaleLabels, show); }
    bool GetAutoSize() const { return FAutoSize; }
    void SetAutoSize(bool autoSize) { Lay(FAutoSize, autoSize); }
    bool GetTransparent() const { return FTransparent; }
    void SetTransparent(bool transparent) { Show(FTransparent, transparent); }

    int GetBorderCaptionGap() const { return FBorderCaptionGap; }
    void SetBorderCaptionGap(int gap) { Lay(FBorderCaptionGap, gap); }
    int GetCaptionScalingsGap() const { return FCaptionScalingsGap; }
    void SetCaptionScalingsGap(int gap) { Lay(FCaptionScalingsGap, gap); }
    int GetScalingsTicksGap() const { return FScalingsTicksGap; }
    void SetScalingsTicksGap(int gap) { Lay(FScalingsTicksGap, gap); }
    int GetExponentScalingsGap() const { return FExponentScalingsGap; }
    void SetExponentScalingsGap(int gap) { Lay(FExponentScalingsGap, gap); }
    int GetValuesTicksGap() const { return FValuesTicksGap; }
    void SetValuesTicksGap(int gap) { Lay(FValuesTicksGap, gap); }

    /// Ticks run to the right or down; those of negative length to the left or up.
    int GetMajorTickLength() const { return FMajorTickLength; }
    void SetMajorTickLength(int length) { Lay(FMajorTickLength, length); }
    int GetTickLength() const { return FTickLength; }
    void SetTickLength(int length) { Lay(FTickLength, length); }

    TColor GetAxisColor() const { return FAxisColor; }
    void SetAxisColor(TColor color) { Show(FAxisColor, color); }
    TColor GetTickColor() const { return FTickColor; }
    void SetTickColor(TColor color) { Show(FTickColor, color); }
    TColor GetMajorTickColor() const { return FMajorTickColor; }
    void SetMajorTickColor(TColor color) { Show(FMajorTickColor, color); }

    /// Pen widths; 0 is the thinnest line.
    int GetAxisThicknes() const { return FAxisThicknes; }
    void SetAxisThicknes(int width) { Show(FAxisThicknes, width); }
    int GetTickThicknes() const { return FTickThicknes; }
    void SetTickThicknes(int width) { Show(FTickThicknes, width); }
    int GetMajorTickThicknes() const { return FMajorTickThicknes; }
    void SetMajorTickThicknes(int width) { Show(FMajorTickThicknes, width); }

    bool GetShowCaption() const { return FShowCaption; }
    void SetShowCaption(bool show);
    TFont& GetCaptionFont() { return FCaptionFont; }
    void SetCaptionFont(const TFont& font) { FCaptionFont.Assign(font); }
    /// The control's text.
    const TKxCaption& GetCaption() const { return GetText(); }
    void SetCaption(const TKxCaption& caption) { SetText(caption); }
    /// An automatic caption comes back by itself.
    bool IsCaptionStored() const { return GetText() != FAutoCaption; }
    const std::string& GetUserCaption() const { return FUserCaption; }
    void SetUserCaption(const std::string& caption);
    const std::string& GetAutoCaption() const { return FAutoCaption; }
    void SetAutoCaption(const std::string& caption);
    /// Which of the two the caption is; switching off leaves the caption until the next automatic one.
    bool GetDoUserCaption() const { return FDoUserCaption; }
    void SetDoUserCaption(bool user);
    /// The control in the axis' parent that shows the caption; owned by the axis.
    TKxCustomLabel& CaptionLabel();

    void SetBounds(int left, int top, int width, int height) override;
    void SetParent(TWindowControl* parent) override;
    std::vector<TComponent*> StreamedChildren(const TComponent& root) const override;

protected:
    void CMTextChanged() override;
    void CMFontChanged() override;
    void CMScaleChanged() override;

    void Notification(TComponent* component, TOperation operation) override;
    void ShowCaptionText();

    bool FNeedsCalculate = true;

private:
    template <class T>
    void Lay(T& field, const T& value)
    {
        if (field == value)
            return;
        field = value;
        Modified();
    }
    template <class T>
    void Show(T& field, const T& value)
    {
        if (field == value)
            return;
        field = value;
        Invalidate();
    }

    TKxCustomLabel* FCaptionLabel = nullptr;
    TFont FCaptionFont;
    std::string FUserCaption;
    std::string FAutoCaption;
    bool FShowCaption = false;
    bool FDoUserCaption = false;

    TColor FAxisColor = clBlack;
    TColor FTickColor = clBlack;
    TColor FMajorTickColor = clBlack;
    int FAxisThicknes = 0;
    int FTickThicknes = 0;
    int FMajorTickThicknes = 0;
    int FBorderCaptionGap = 0;
    int FCaptionScalingsGap = 0;
    int FScalingsTicksGap = 1;
    int FExponentScalingsGap = 10;
    int FValuesTicksGap = 0;
    int FMajorTickLength = 10;
    int FTickLength = 6;
    bool FShowScaleLabels = true;
    bool FAutoSize = true;
    bool FTransparent = true;
};

}  // namespace plotkit
