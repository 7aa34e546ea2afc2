// The job of CustomComboBox is a selected item with a list that drops down, both drawn by its descendants.
#pragma once

#include "host/CustomListBox.h"

namespace plotkit {

/// The list is a control tree of its own, made for a window in front of all others: whoever shows it puts a site on
/// `DropList` at `OnDropDown` and takes it away at `OnCloseUp`. In the list the item under the pointer is selected; a
/// release on it, or the Enter key, takes it over, Escape does not.
class TCustomComboBox : public TWindowControl
{
public:
    explicit TCustomComboBox(TComponent* owner);
    ~TCustomComboBox() noexcept override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    const TStringList& Items() const { return FItems; }
    /// A selection beyond the last item ends.
    void SetItems(const TStringList& items);
    int ItemCount() const { return FItems.Count(); }
    /// -1: none is selected. Places beyond the items select none.
    int GetItemIndex() const { return FItemIndex; }
    void SetItemIndex(int index);
    /// In 1/96 inch, at least 1: of the items in the list and of the one shown.
    int GetItemHeight() const { return FItemHeight; }
    void SetItemHeight(int height);
    int GetColumns() const { return FColumns; }
    void SetColumns(int columns) { FColumns = std::max(columns, 1); }
    /// Rows that the list shows at most, at least 1.
    int GetDropDownCount() const { return FDropDownCount; }
    void SetDropDownCount(int count) { FDropDownCount = std::max(count, 1); }

    bool GetDroppedDown() const { return FDroppedDown; }
    /// Closed this way, the item stays as it was.
    void SetDroppedDown(bool down) { down ? DropDown() : CloseUp(false); }
    virtual void DropDown();
    void CloseUp(bool accept);
    TCustomListBox& DropList();
    /// As with a key on the closed box.
    void SelectByUser(int index) { ItemTaken(index, false); }

    /// `OnChange`: the user selected another item.
    TEvent<> OnChange, OnDropDown, OnCloseUp;

    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseWheel(TShiftState shift, int delta, int x, int y) override;
    void KeyDown(int key, TShiftState shift) override;
    bool WantsKey(int key, TShiftState shift) const override;
    void SetBounds(int left, int top, int width, int height) override;

protected:
    /// Fills `box` and draws the item on `canvas`: of the combo box, or of its list.
    virtual void DrawItem(TCanvas& canvas, int index, const TRect& box) = 0;
    /// The user has taken an item, from the list or with a key or the wheel on the closed box: it is the one in force.
    virtual void ItemTaken(int index, bool fromList);
    /// `DrawItem` is drawing for the list.
    bool IsDrawingList() const { return FDrawingList; }
    /// Where the item stands, and the button beside it.
    TRect ItemRect() const;

    void Paint() override;
    void CMEnter() override;
    void CMExit() override;

private:
    class TDropList;

    TStringList FItems;
    std::unique_ptr<TDropList> FList;
    TWheelNotches FWheel;
    int FItemIndex = -1;
    int FItemHeight = 16;
    int FColumns = 1;
    int FDropDownCount = 8;
    bool FDroppedDown = false;
    bool FDrawingList = false;
};

}  // namespace plotkit
