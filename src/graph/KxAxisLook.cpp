#include "graph/KxAxisLook.h"

#include <algorithm>

#include "graph/KxLabel.h"
#include "host/PixelMath.h"

namespace plotkit {

TKxAxisLook::TKxAxisLook(TComponent* owner) : TGraphicControl(owner)
{
    if (IsDesigning()) {
        TFont& font = GetFont();
        font.SetColor(clBlue);
        font.SetSize(16);
        font.SetName("Arial");
        font.SetBold(true);
    }
    FCaptionFont.Assign(GetFont());
    FCaptionFont.OnChanged = TEvent<>::Bind<&TKxAxisLook::Modified>(this);
    CaptionLabel();
}

void TKxAxisLook::Modified()
{
    FNeedsCalculate = true;
    Invalidate();
}

TKxCustomLabel& TKxAxisLook::CaptionLabel()
{
    // The label goes with the parent it stands in, which may go before the axis.
    if (!FCaptionLabel) {
        FCaptionLabel = new TKxCustomLabel(this);
        FCaptionLabel->SetTransparent(true);
        FCaptionLabel->SetVisible(false);
        FCaptionLabel->SetParent(Parent());
    }
    return *FCaptionLabel;
}

void TKxAxisLook::Notification(TComponent* component, TOperation operation)
{
    TGraphicControl::Notification(component, operation);
    if (operation == opRemove && component == FCaptionLabel)
        FCaptionLabel = nullptr;
}

std::vector<TComponent*> TKxAxisLook::StreamedChildren(const TComponent& root) const
{
    std::vector<TComponent*> children = TGraphicControl::StreamedChildren(root);
    std::erase(children, FCaptionLabel);
    return children;
}

void TKxAxisLook::SetParent(TWindowControl* parent)
{
    TGraphicControl::SetParent(parent);
    if (FCaptionLabel)
        FCaptionLabel->SetParent(parent);
}

void TKxAxisLook::SetBounds(int left, int top, int width, int height)
{
    if (Bounds() != TRect{left, top, AddPixels(left, std::max(width, 0)), AddPixels(top, std::max(height, 0))})
        FNeedsCalculate = true;
    TGraphicControl::SetBounds(left, top, width, height);
}

void TKxAxisLook::ShowCaptionText()
{
    CaptionLabel().SetCaption(FShowCaption && GetVisible() ? GetCaption() : TKxCaption());
}

void TKxAxisLook::SetShowCaption(bool show)
{
    if (FShowCaption == show)
        return;
    FShowCaption = show;
    ShowCaptionText();
    CaptionLabel().AdjustBounds();
    Modified();
}

void TKxAxisLook::SetUserCaption(const std::string& caption)
{
    if (FUserCaption == caption)
        return;
    FUserCaption = caption;
    if (FDoUserCaption)
        SetCaption(caption);
}

void TKxAxisLook::SetAutoCaption(const std::string& caption)
{
    FAutoCaption = caption;
    if (!FDoUserCaption)
        SetCaption(caption);
}

void TKxAxisLook::SetDoUserCaption(bool user)
{
    if (FDoUserCaption == user)
        return;
    FDoUserCaption = user;
    if (user)
        SetCaption(FUserCaption);
}

void TKxAxisLook::CMTextChanged()
{
    TGraphicControl::CMTextChanged();
    ShowCaptionText();
    Modified();
}

void TKxAxisLook::CMFontChanged()
{
    TGraphicControl::CMFontChanged();
    Modified();
}

void TKxAxisLook::CMScaleChanged()
{
    TGraphicControl::CMScaleChanged();
    Modified();
}

}  // namespace plotkit
