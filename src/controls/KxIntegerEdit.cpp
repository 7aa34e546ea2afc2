#include "controls/KxIntegerEdit.h"

#include <cstdlib>
#include <limits>

#include "host/NumberFormat.h"

namespace plotkit {

namespace {

constexpr std::array IntegerRows{
    Property<&TKxIntegerEdit::GetMinValue, &TKxIntegerEdit::SetMinValue>("MinValue"),
    Property<&TKxIntegerEdit::GetMaxValue, &TKxIntegerEdit::SetMaxValue>("MaxValue"),
    Property<&TKxIntegerEdit::GetValue, &TKxIntegerEdit::SetValue>("Value"),
};
constexpr std::array SpinRows{
    Property<&TKxSpinIntegerEdit::GetIncrement, &TKxSpinIntegerEdit::SetIncrement>("Increment"),
    Property<&TKxSpinIntegerEdit::GetBtnWidth, &TKxSpinIntegerEdit::SetBtnWidth>("BtnWidth"),
};

int Saturated(std::int64_t value)
{
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

}  // namespace

constinit const TClassInfo TKxIntegerEdit::Class{"TKxIntegerEdit", &TCustomEdit::Class, IntegerRows,
                                                 &CreateComponent<TKxIntegerEdit>};
constinit const TClassInfo TKxSpinIntegerEdit::Class{"TKxSpinIntegerEdit", &TKxIntegerEdit::Class, SpinRows,
                                                     &CreateComponent<TKxSpinIntegerEdit>};

std::optional<int> TKxIntegerEdit::NumberOf(std::string_view text) const
{
    const auto number = ParseInteger(text);
    if (!number || !std::in_range<int>(*number))
        return std::nullopt;
    return static_cast<int>(*number);
}

TKxSpinIntegerEdit::TKxSpinIntegerEdit(TComponent* owner) : TKxIntegerEdit(owner)
{
    FButtons.SetAssociate(this);
    FButtons.OnStep = TEvent<TUpDownButton>::Bind<&TKxSpinIntegerEdit::Step>(this);
    FButtons.SetCursor(crDefault);
    FButtons.SetParent(this);
    PlaceButtons();
}

TKxSpinIntegerEdit::~TKxSpinIntegerEdit()
{
    BeginDestroy();
}

void TKxSpinIntegerEdit::SetBtnWidth(int width)
{
    FBtnWidth = std::max(width, 0);
    FButtons.SetVisible(FBtnWidth > 0);
    PlaceButtons();
}

void TKxSpinIntegerEdit::PlaceButtons()
{
    const int frame = FrameWidth(), width = Px(FBtnWidth);
    FButtons.SetBounds(GetWidth() - frame - width, frame, width, GetHeight() - 2 * frame);
    LayoutChanged();
}

TRect TKxSpinIntegerEdit::EditRect() const
{
    TRect box = TKxIntegerEdit::EditRect();
    box.Right = std::max(box.Left, box.Right - Px(FBtnWidth));
    return box;
}

void TKxSpinIntegerEdit::SetBounds(int left, int top, int width, int height)
{
    TKxIntegerEdit::SetBounds(left, top, width, height);
    PlaceButtons();
}

void TKxSpinIntegerEdit::CMScaleChanged()
{
    TKxIntegerEdit::CMScaleChanged();
    PlaceButtons();
}

void TKxSpinIntegerEdit::Step(TUpDownButton button)
{
    const std::int64_t by = button == udUp ? FIncrement : -std::int64_t{FIncrement};
    if (Edit(0, ekOther, true, [&] { SetValue(Saturated(GetValue() + by)); }))
        SelectAll();
}

bool TKxSpinIntegerEdit::WantsKey(int key, TShiftState shift) const
{
    return TKxIntegerEdit::WantsKey(key, shift) || (!shift.Alt && (key == kyUp || key == kyDown));
}

void TKxSpinIntegerEdit::KeyDown(int key, TShiftState shift)
{
    if (!shift.Alt && (key == kyUp || key == kyDown))
        Step(key == kyUp ? udUp : udDown);
    TKxIntegerEdit::KeyDown(key, shift);
}

void TKxSpinIntegerEdit::MouseWheel(TShiftState shift, int delta, int x, int y)
{
    if (!HasFocus() || delta == 0)
        return TKxIntegerEdit::MouseWheel(shift, delta, x, y);
    const int notches = FWheel.Take(delta);
    for (int i = std::abs(notches); i > 0; --i)
        Step(notches > 0 ? udUp : udDown);
}

}  // namespace plotkit
