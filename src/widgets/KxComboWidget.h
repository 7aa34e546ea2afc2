// The job of KxComboWidget is a drop-down of the library as a widget: the style's box, and a window for the list.
#pragma once

#include "host/CustomComboBox.h"
#include "widgets/KxControlWidget.h"

class QStyleOptionComboBox;

namespace plotkit {

class TKxComboWidget : public TKxControlWidget
{
public:
    ~TKxComboWidget() override;

    TCustomComboBox& Combo() const { return static_cast<TCustomComboBox&>(*Root()); }
    /// The window of the list while it is down.
    QWidget* Popup() const;

    QSize sizeHint() const override;

protected:
    TKxComboWidget(std::unique_ptr<TCustomComboBox> combo, QWidget* parent);

    /// Logical pixels that an item wants.
    void SetItemRoom(int width) { FItemRoom = width; }
    virtual void DroppedDown() { ShowList(); }

    QRect RootRect() const override;
    QRect Hole() const override;
    void PaintChrome(QPainter& painter) override;
    bool IsWheelWanted() const override { return Combo().HasFocus(); }
    void hideEvent(QHideEvent* event) override;

private:
    class TPopup;

    QStyleOptionComboBox Option() const;
    void ShowList();
    void HideList();
    void PlaceList(QWidget& popup) const;

    TPopup* FPopup = nullptr;
    int FItemRoom = 64;
};

}  // namespace plotkit
