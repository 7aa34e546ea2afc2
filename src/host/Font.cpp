#include "host/Font.h"

#include "host/CheckedMath.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::array FontProperties{
    Property<&TFont::GetName, &TFont::SetName>("Name"),
    Property<&TFont::GetSize, &TFont::SetSize>("Size"),
    Property<&TFont::GetColor, &TFont::SetColor>("Color"),
    Property<&TFont::GetCharset, &TFont::SetCharset>("Charset"),
    Property<&TFont::GetPitch, &TFont::SetPitch>("Pitch"),
    Property<&TFont::GetBold, &TFont::SetBold>("Bold"),
    Property<&TFont::GetItalic, &TFont::SetItalic>("Italic"),
    Property<&TFont::GetUnderline, &TFont::SetUnderline>("Underline"),
    Property<&TFont::GetStrikeOut, &TFont::SetStrikeOut>("StrikeOut"),
};

}  // namespace

constinit const TClassInfo TFont::Class{"TFont", &TPersistent::Class, FontProperties};

int TFontState::Height() const
{
    return RoundToInt(-PixelSize());
}

void TFont::SetState(const TFontState& state)
{
    if (FState == state)
        return;
    FState = state;
    OnChanged();
}

void TFont::Assign(const TPersistent& source)
{
    const auto* font = dynamic_cast<const TFont*>(&source);
    if (!font)
        return TPersistent::Assign(source);
    // The resolution belongs to the tree that a font stands in, not to the look that is handed on.
    TFontState state = font->FState;
    state.PixelsPerInch = FState.PixelsPerInch;
    SetState(state);
}

}  // namespace plotkit
