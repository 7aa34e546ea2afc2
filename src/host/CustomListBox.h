// The job of CustomListBox is a list of items of one height, drawn by its descendants, of which one can be selected.
#pragma once

#include <optional>

#include "host/StringList.h"
#include "host/WheelNotches.h"
#include "host/WindowControl.h"

namespace plotkit {

/// Items stand below each other, in more than one column top to bottom and then to the right. `OnChange` tells that the
/// user selected another item, `OnDblClick` that one was chosen with a double click, the Enter key or the space bar.
class TCustomListBox : public TWindowControl
{
public:
    explicit TCustomListBox(TComponent* owner);
    ~TCustomListBox() noexcept override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    const TStringList& Items() const { return FItems; }
    /// A selection beyond the last item ends.
    void SetItems(const TStringList& items);
    int ItemCount() const { return FItems.Count(); }
    /// -1: none is selected. Places beyond the items select none.
    int GetItemIndex() const { return FItemIndex; }
    void SetItemIndex(int index);
    /// In 1/96 inch, at least 1.
    int GetItemHeight() const { return FItemHeight; }
    void SetItemHeight(int height);
    /// At least 1.
    int GetColumns() const { return FColumns; }
    void SetColumns(int columns);

    /// The first item that is shown: a multiple of the items in a column when there are more columns than one.
    int GetTopIndex() const { return FTopIndex; }
    void SetTopIndex(int index);
    /// Whole items that a column has room for, at least 1, and what all columns have.
    int Rows() const;
    int VisibleCount() const { return Rows() * FColumns; }
    /// Own pixels of an item, also of one that is scrolled out.
    TRect ItemRect(int index) const;
    /// -1 where no item is.
    int ItemAtPos(int x, int y) const;
    /// Places beyond the items change nothing.
    void SelectByUser(int index);
    TEvent<> OnChange;

    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseWheel(TShiftState shift, int delta, int x, int y) override;
    void KeyDown(int key, TShiftState shift) override;
    bool WantsKey(int key, TShiftState shift) const override;
    /// Where an arrow key leads from `index`; nothing for other keys.
    std::optional<int> TargetOf(int key, int index) const;
    void SetBounds(int left, int top, int width, int height) override;

protected:
    /// Fills `box` and draws the item on `canvas`, which is the list's.
    virtual void DrawItem(TCanvas& canvas, int index, const TRect& box) = 0;

    void Paint() override;
    void CMScaleChanged() override { ScrollTo(FItemIndex); }
    void CMEnter() override;
    void CMExit() override;

private:
    void ScrollTo(int index);

    TStringList FItems;
    TWheelNotches FWheel;
    int FItemIndex = -1;
    int FItemHeight = 16;
    int FColumns = 1;
    int FTopIndex = 0;
    bool FDragging = false;
};

/// Halfway between text and ground of the desktop, so that it shows on both whatever they are.
TColor MiddleColor();
/// The selected item of a list or drop-down: a frame inside its box, so that its picture keeps its colours.
void DrawItemFrame(TCanvas& canvas, const TRect& box, bool hasFocus);

}  // namespace plotkit
