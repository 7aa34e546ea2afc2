// The job of CustomEdit is an edit that shows its line: layout, caret, painting, keys and mouse.
#pragma once

#include <chrono>

#include "host/EditKeys.h"
#include "host/EditableText.h"
#include "host/Timer.h"

namespace plotkit {

enum TBevelCut : std::uint8_t
{
    bvNone,
    bvLowered,
    bvRaised
};
inline constexpr std::array<std::string_view, 3> BevelCutNames{"bvNone", "bvLowered", "bvRaised"};
constexpr std::span<const std::string_view> ValueNames(TBevelCut)
{
    return BevelCutNames;
}

/// What an input method composes at the caret: it is shown there, and is no part of the text yet.
struct TComposition
{
    std::string Text;
    int Caret = 0;                   ///< characters before its own caret
    int MarkStart = 0, MarkEnd = 0;  ///< characters that stand out, such as the ones that are being converted

    bool operator==(const TComposition&) const = default;
};

/// The base of edits. Text that is wider than the edit scrolls with the caret.
class TCustomEdit : public TEditableText
{
public:
    explicit TCustomEdit(TComponent* owner);
    ~TCustomEdit() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// A frame of one pixel; bevels stand inside it, the outer one first.
    bool GetBorder() const { return FBorder; }
    void SetBorder(bool border);
    TBevelCut GetBevelInner() const { return FBevelInner; }
    void SetBevelInner(TBevelCut bevel);
    TBevelCut GetBevelOuter() const { return FBevelOuter; }
    void SetBevelOuter(TBevelCut bevel);

    /// Where text shows, own pixels; the rest is frame.
    virtual TRect EditRect() const;
    /// Own pixels of the gap before a character, as scrolled; of the first one a pixel inside `EditRect`. What is being
    /// composed pushes the characters behind the caret aside.
    int GapX(int index) const;
    /// The gap between characters that is nearest to an own pixel.
    int PointToCaretPos(int x) const;
    /// Two pixels over a gap, or the character under the caret while typing replaces; whether it has the focus or not.
    TRect CaretRect() const;
    /// Whether the caret is painted: blinking, while the edit has the focus.
    bool IsCaretShown() const { return FCaretShown; }
    void DoCaret() override;

    const TComposition& Composition() const { return FComposition; }
    void Compose(const TComposition& composition);

    void KeyDown(int key, TShiftState shift) override;
    void TextInput(std::string_view text) override { Type(text); }
    bool WantsKey(int key, TShiftState shift) const override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void SetBounds(int left, int top, int width, int height) override;

protected:
    virtual void RunCommand(TEditCommand command, bool extend);
    /// Right edges of the characters, counted from the left edge of the first.
    virtual std::vector<std::int32_t> MeasuredChars() const;
    /// Draws the characters [first, last) on `at`, the top left corner of the first.
    virtual void PaintChars(TCanvas& canvas, int first, int last, TPoint at);
    /// Pixels before a character, not scrolled.
    int Offset(int index) const;
    TFontState PaintFont() const;
    virtual TFontState ComposedFont() const;
    int LineHeight() const;
    void LayoutChanged() override;
    /// Height of a frame at one side.
    int FrameWidth() const;

    void Paint() override;
    void CMFontChanged() override { LayoutChanged(); }
    void CMScaleChanged() override { LayoutChanged(); }
    void CMEnter() override;
    void CMExit() override;

private:
    template <class T>
    void ChangeLook(T& field, T value)
    {
        if (std::exchange(field, value) != value)
            LayoutChanged();
    }
    const std::vector<std::int32_t>& Rights() const;
    int PlainX(int index) const;
    /// Of the first characters of what is being composed.
    int ComposedWidth(int characters) const;
    int ComposedWidth() const;
    void ScrollToCaret();
    void Blink();
    void DragTo(int x);
    void DragOn();
    void PaintFrame(TCanvas& canvas);
    void PaintText(TCanvas& canvas);
    /// Moved to the right by some pixels.
    void PaintLine(TCanvas& canvas, int top, int shift);
    void PaintComposition(TCanvas& canvas, int top);
    void PaintCaret(TCanvas& canvas);

    mutable std::vector<std::int32_t> FRights;
    mutable const TTextMeasurer* FMeasuredBy = nullptr;  ///< nullptr: `FRights` is to be made anew
    std::unique_ptr<TTimer> FBlinkTimer, FDragTimer;
    std::optional<std::chrono::system_clock::time_point> FLastDouble;
    TComposition FComposition;
    std::pair<int, int> FDragWord;  ///< the word that a double click began with
    int FScroll = 0;                ///< pixels that are cut off at the left
    int FDragX = 0, FDoubleX = 0;
    TBevelCut FBevelInner = bvNone, FBevelOuter = bvNone;
    bool FBorder = true;
    bool FCaretShown = false;
    bool FDragging = false;
};

}  // namespace plotkit
