// The job of KxDropWidget is the window in which the list of a drop-down shows, in front of all others.
#pragma once

#include "qt/KxGraphWidget.h"
#include "widgets/KxListChrome.h"

namespace plotkit {

class TKxComboWidget;

/// Stands below its box, or above it where there is more room; what still has none is scrolled.
class TKxDropWidget : public KxGraphWidget
{
public:
    explicit TKxDropWidget(TKxComboWidget& box);

    TKxComboWidget& Box() const { return FBox; }
    TCustomListBox& List() const { return static_cast<TCustomListBox&>(*Root()); }
    QScrollBar& ScrollBar() const { return FScroll.Bar(); }
    /// Shows itself.
    void Drop();

protected:
    QRect RootRect() const override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool focusNextPrevChild(bool) override { return false; }

private:
    QRect Inside() const;
    QRect PlaceBeside(const QRect& box, const QRect& screen) const;
    void FollowItem();

    TKxComboWidget& FBox;
    TKxLetterSearch FSearch;
    int FToldItem = -1;
    TKxListScroll FScroll;
};

}  // namespace plotkit
