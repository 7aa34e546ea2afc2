// The job of KxComboWidget is a drop-down of the library as a widget: the style's box, and a window for the list.
#pragma once

#include "host/CustomComboBox.h"
#include "widgets/KxControlWidget.h"
#include "widgets/KxListChrome.h"

class QStyleOptionComboBox;

namespace plotkit {

class TKxDropWidget;

class TKxComboWidget : public TKxControlWidget
{
public:
    ~TKxComboWidget() override;

    TCustomComboBox& Combo() const { return static_cast<TCustomComboBox&>(*Root()); }
    /// The window of the list while it is down.
    QWidget* Popup() const;
    /// The same, hidden while the list is up.
    TKxDropWidget& DropWindow();
    /// Logical pixels that the list wants to be wide at least, and its rows.
    int ListWidth() const { return FItemRoom + ListMargin; }
    int ListRows() const;

    QSize sizeHint() const override;

protected:
    TKxComboWidget(std::unique_ptr<TCustomComboBox> combo, QWidget* parent);

    /// Logical pixels that an item wants, and how much of its height it can do without.
    void SetItemRoom(int width, int slack)
    {
        FItemRoom = width;
        FItemSlack = slack;
    }
    virtual void DroppedDown() { ShowList(); }

    QRect RootRect() const override;
    QRect Hole() const override;
    void PaintChrome(QPainter& painter) override;
    bool IsWheelWanted() const override { return Combo().HasFocus(); }
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    static constexpr int ListMargin = 24;

    QStyleOptionComboBox Option() const;
    void ShowList();
    void HideList();

    TKxDropWidget* FPopup = nullptr;
    TKxLetterSearch FSearch;
    int FItemRoom = 64, FItemSlack = 0;
};

}  // namespace plotkit
