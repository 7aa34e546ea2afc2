// The job of Font is the typeface that texts are drawn in: a value for drawing, and an object with published
// properties.
#pragma once

#include <array>
#include <string>

#include "host/Event.h"
#include "host/Persistent.h"

namespace plotkit {

enum TFontPitch : std::uint8_t
{
    fpDefault,
    fpVariable,
    fpFixed
};
inline constexpr std::array<std::string_view, 3> FontPitchNames{"fpDefault", "fpVariable", "fpFixed"};
constexpr std::span<const std::string_view> ValueNames(TFontPitch)
{
    return FontPitchNames;
}

/// A font as drawing commands carry it.
struct TFontState
{
    std::string Name = "Arial";
    int Size = 8;  ///< points
    TColor Color = clWindowText;
    int Charset = 1;  ///< 1 is the default character set
    TFontPitch Pitch = fpDefault;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool StrikeOut = false;
    int Angle = 0;  ///< writing direction, tenths of a degree, counter-clockwise
    double PixelsPerInch = 96;

    /// Size of the characters in device pixels.
    double PixelSize() const { return Size * PixelsPerInch / 72; }
    /// The size as negative whole pixels, as logical fonts carry it.
    int Height() const;

    friend bool operator==(const TFontState&, const TFontState&) = default;
};

/// A font as a component owns it; each setter that changes something calls `OnChanged`.
class TFont : public TPersistent
{
public:
    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    const TFontState& State() const { return FState; }
    void SetState(const TFontState& state);
    /// From another font, all but the resolution.
    void Assign(const TPersistent& source) override;

    const std::string& GetName() const { return FState.Name; }
    void SetName(const std::string& name) { Change(&TFontState::Name, name); }
    int GetSize() const { return FState.Size; }
    void SetSize(int points) { Change(&TFontState::Size, points); }
    TColor GetColor() const { return FState.Color; }
    void SetColor(TColor color) { Change(&TFontState::Color, color); }
    int GetCharset() const { return FState.Charset; }
    void SetCharset(int charset) { Change(&TFontState::Charset, charset); }
    TFontPitch GetPitch() const { return FState.Pitch; }
    void SetPitch(TFontPitch pitch) { Change(&TFontState::Pitch, pitch); }
    bool GetBold() const { return FState.Bold; }
    void SetBold(bool bold) { Change(&TFontState::Bold, bold); }
    bool GetItalic() const { return FState.Italic; }
    void SetItalic(bool italic) { Change(&TFontState::Italic, italic); }
    bool GetUnderline() const { return FState.Underline; }
    void SetUnderline(bool underline) { Change(&TFontState::Underline, underline); }
    bool GetStrikeOut() const { return FState.StrikeOut; }
    void SetStrikeOut(bool strikeOut) { Change(&TFontState::StrikeOut, strikeOut); }
    /// Resolution that the size is turned into pixels with; not published, the control tree sets it.
    void SetPixelsPerInch(double value) { Change(&TFontState::PixelsPerInch, value); }

    TEvent<> OnChanged;

private:
    template <class T>
    void Change(T TFontState::*field, const T& value)
    {
        if (FState.*field == value)
            return;
        FState.*field = value;
        OnChanged();
    }

    TFontState FState;
};

}  // namespace plotkit
