// The job of Form is the top of a control tree: a window with a state and a place on the screen.
#pragma once

#include "host/WindowControl.h"

namespace plotkit {

enum TWindowState : std::uint8_t
{
    wsNormal,
    wsMinimized,
    wsMaximized
};
inline constexpr std::array<std::string_view, 3> WindowStateNames{"wsNormal", "wsMinimized", "wsMaximized"};
constexpr std::span<const std::string_view> ValueNames(TWindowState)
{
    return WindowStateNames;
}

/// A new form is 800 by 600 and hidden. Its bounds are in screen pixels.
class TForm : public TWindowControl
{
public:
    explicit TForm(TComponent* owner);
    ~TForm() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TWindowState GetWindowState() const { return FWindowState; }
    /// Leaving the normal state keeps the bounds, coming back restores them; a maximised form fills the screen.
    void SetWindowState(TWindowState state);
    /// The bounds of the normal state, whatever the present state.
    TRect NormalBounds() const;
    /// Moves the form, or the place that it comes back to.
    void SetNormalBounds(const TRect& bounds);
    int GetNormalLeft() const { return NormalBounds().Left; }
    int GetNormalTop() const { return NormalBounds().Top; }
    int GetNormalWidth() const { return NormalBounds().Width(); }
    int GetNormalHeight() const { return NormalBounds().Height(); }
    void SetNormalLeft(int left);
    void SetNormalTop(int top);
    void SetNormalWidth(int width);
    void SetNormalHeight(int height);
    void Show() { SetShown(true); }
    void Hide() { SetShown(false); }
    bool IsShown() const { return FShown; }

    TEvent<> OnShow, OnHide;

protected:
    void Paint() override;
    void CMScaleChanged() override;

private:
    void SetShown(bool shown);

    TRect FNormalBounds;      ///< while the state is another one
    double FNormalScale = 1;  ///< resolution that these are in
    TWindowState FWindowState = wsNormal;
    bool FShown = false;
};

}  // namespace plotkit
