// The job of KxLabel is text controls that show a rich caption at any angle and take the size of the rotated text.
#pragma once

#include <array>
#include <string_view>

#include "graph/KxCaption.h"
#include "host/TextLabel.h"

namespace plotkit {

class TKxIniList;

enum TAlignment : std::uint8_t
{
    taLeftJustify,
    taRightJustify,
    taCenter
};
inline constexpr std::array<std::string_view, 3> AlignmentNames{"taLeftJustify", "taRightJustify", "taCenter"};
constexpr std::span<const std::string_view> ValueNames(TAlignment)
{
    return AlignmentNames;
}

class TKxCustomLabel : public TTextLabel
{
public:
    explicit TKxCustomLabel(TComponent* owner);

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// The control's text.
    const TKxCaption& GetCaption() const { return GetText(); }
    void SetCaption(const TKxCaption& caption) { SetText(caption); }
    /// Which point of a horizontal text `XPosition` names.
    TAlignment GetAlignment() const { return FAlignment; }
    void SetAlignment(TAlignment alignment);
    int GetAngle() const { return FAngle; }
    /// Tenths of a degree, counter-clockwise; the remainder by 3600 keeps the sign.
    void SetAngle(int angle);
    /// Device pixels in the parent: the left edge, the right edge or the centre of a horizontal text by `Alignment`,
    /// the left edge of any other.
    int GetXPosition() const { return FXPosition; }
    void SetXPosition(int x);

    /// Where the first character starts, device pixels of the control.
    int PenX() const { return FPenX; }
    int PenY() const { return FPenY; }
    /// Height of the caption's characters and advance of the caption along its direction, device pixels.
    int TextHeight() const { return FTextHeight; }
    int TextWidth() const { return FTextWidth; }

    /// Look and place, in 1/96 inches. Missing keys keep what is set.
    virtual void SaveOutfit(const std::string& section, TKxIniList& list);
    virtual void LoadOutfit(const std::string& section, TKxIniList& list);

    void SetBounds(int left, int top, int width, int height) override;
    void AdjustBounds() override;

protected:
    void Paint() override;

private:
    /// How much of a text `width` wide stands to the left of the anchor.
    int AnchorShare(int width) const;
    void TakeXPosition();
    void ApplyXPosition();
    void PlaceAtXPosition(int width, int height);
    void MeasureCaption();

    TAlignment FAlignment = taLeftJustify;
    int FAngle = 0;
    int FPenX = 0;
    int FPenY = 0;
    int FTextHeight = 0;
    int FTextWidth = 0;
    int FXPosition = 0;
    double FCos = 1;
    double FSin = 0;
    bool FPlacing = false;  ///< the label itself moves its bounds
};

class TKxLabel : public TKxCustomLabel
{
public:
    using TKxCustomLabel::TKxCustomLabel;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// The caption, then as all labels.
    void SaveOutfit(const std::string& section, TKxIniList& list) override;
    void LoadOutfit(const std::string& section, TKxIniList& list) override;
};

}  // namespace plotkit
