// The job of KxColors is the colours that pickers offer, their names, and colours as text.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/Component.h"
#include "host/Types.h"

namespace plotkit {

struct TKxNamedColor
{
    std::string_view Name;
    TColor Color;
};

/// Eight colours that eyes with any colour vision can tell apart (Okabe and Ito, 2008).
std::span<const TKxNamedColor> DistinctColors();
/// White, greys and the pure colours of a screen.
std::span<const TKxNamedColor> PlainColors();
/// Colours that follow the desktop's.
std::span<const TKxNamedColor> DesktopColors();

/// "#E69F00"; of a colour of the desktop what it is at present.
std::string ColorHex(TColor color);
/// The name under which it is offered, else as `ColorHex`.
std::string ColorName(TColor color);
/// A name (letter case ignored), "#RRGGBB", "#RGB", both also without "#", or "R, G, B" with numbers from 0 to 255,
/// also inside "rgb(" and ")". Nothing for any other text.
std::optional<TColor> ParseColor(std::string_view text);

/// The colours that were chosen last, latest first, none of them twice: for pickers to share.
class TKxRecentColors : public TComponent
{
public:
    using TComponent::TComponent;
    ~TKxRecentColors() override { BeginDestroy(); }

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    static constexpr std::size_t MaxCount = 8;

    const std::vector<TColor>& Colors() const { return FColors; }
    /// Puts it in front; the ninth is forgotten. Colours that are offered anyway are not kept.
    void Use(TColor color);
    /// As `ColorHex`, joined by ";", for settings; texts that are no colours are skipped.
    std::string GetText() const;
    void SetText(const std::string& text);

private:
    std::vector<TColor> FColors;
};

}  // namespace plotkit
