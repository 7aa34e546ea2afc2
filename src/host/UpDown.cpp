#include "host/UpDown.h"

#include "host/ControlProperties.h"

namespace plotkit {

namespace {

constexpr std::array UpDownRows{
    Property<&TUpDown::GetMin, &TUpDown::SetMin>("Min"),
    Property<&TUpDown::GetMax, &TUpDown::SetMax>("Max"),
    Property<&TUpDown::GetPosition, &TUpDown::SetPosition>("Position"),
    Reference<&TUpDown::GetAssociate, &TUpDown::SetAssociate>("Associate"),
};
constexpr std::array UpDownProperties = JoinRows(UpDownRows, ControlLookRows, ControlEventRows);

constexpr int FirstRepeat = 400, NextRepeat = 60;

}  // namespace

constinit const TClassInfo TUpDown::Class{"TUpDown", &TWindowControl::Class, UpDownProperties,
                                          &CreateComponent<TUpDown>};

TUpDown::TUpDown(TComponent* owner) : TWindowControl(owner)
{
    SetParentColor(false);
    TControl::SetColor(clButtonFace);
    TWindowControl::SetBounds(0, 0, 15, 23);
}

TUpDown::~TUpDown()
{
    BeginDestroy();
}

void TUpDown::SetAssociate(TWindowControl* associate)
{
    if (FAssociate == associate)
        return;
    if (FAssociate)
        StopWatching(FAssociate);
    FAssociate = associate;
    WatchFor(associate);
}

void TUpDown::Notification(TComponent* component, TOperation operation)
{
    TWindowControl::Notification(component, operation);
    if (operation == opRemove && component == FAssociate)
        FAssociate = nullptr;
}

void TUpDown::SetMin(int min)
{
    FMin = min;
    SetPosition(FPosition);
}

void TUpDown::SetMax(int max)
{
    FMax = max;
    SetPosition(FPosition);
}

void TUpDown::SetPosition(int position)
{
    // While a text is read the bounds come first.
    FPosition = std::max(std::min(position, FMax), FMin);
}

void TUpDown::Step(TUpDownButton button)
{
    const std::int64_t next = std::int64_t{FPosition} + (button == udUp ? 1 : -1);
    FPosition = static_cast<int>(std::max(std::min<std::int64_t>(next, FMax), std::int64_t{FMin}));
    OnStep(button);
}

void TUpDown::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    TWindowControl::MouseDown(button, shift, x, y);
    if (button != mbLeft)
        return;
    if (FAssociate)
        FAssociate->SetFocus();
    FPressed = 2 * y < GetHeight() ? udUp : udDown;
    FTimer = std::make_unique<TTimer>(FirstRepeat, TEvent<>::Bind<&TUpDown::Repeat>(this));
    Invalidate();
    Step(FPressed);
}

void TUpDown::Repeat()
{
    if (FTimer->Interval() != NextRepeat)
        FTimer = std::make_unique<TTimer>(NextRepeat, TEvent<>::Bind<&TUpDown::Repeat>(this));
    Step(FPressed);
}

void TUpDown::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    if (button == mbLeft) {
        FTimer.reset();
        Invalidate();
    }
    TWindowControl::MouseUp(button, shift, x, y);
}

void TUpDown::PaintButton(TCanvas& canvas, TUpDownButton button, const TRect& box)
{
    const bool isPressed = FTimer && FPressed == button;
    canvas.Pen.Color = clButtonShadow;
    canvas.Brush.SetColor(isPressed ? clButtonShadow : GetColor());
    canvas.Rectangle(box.Left, box.Top, box.Right, box.Bottom);
    const int size = std::max(std::min(box.Width() / 5, box.Height() / 3), 1);
    const int x = (box.Left + box.Right - 1) / 2, up = button == udUp ? 1 : -1;
    const int y = (box.Top + box.Bottom - 1) / 2 + up * (size / 2);
    canvas.Pen.Color = GetEnabled() ? clButtonText : clGrayText;
    canvas.Brush.SetColor(canvas.Pen.Color);
    const std::array<TPoint, 3> arrow{{{x - size, y}, {x + size, y}, {x, y - up * size}}};
    canvas.Polygon(arrow);
}

void TUpDown::Paint()
{
    TCanvas& canvas = Canvas();
    const int middle = GetHeight() / 2;
    PaintButton(canvas, udUp, {0, 0, GetWidth(), middle});
    PaintButton(canvas, udDown, {0, middle, GetWidth(), GetHeight()});
}

}  // namespace plotkit
