// The job of KxEditWidget is what the widgets of all edits share: the frame of a line edit, its menu, its end.
#pragma once

#include <optional>

#include "host/CustomEdit.h"
#include "widgets/KxControlWidget.h"

class QMenu;
class QMimeData;

namespace plotkit {

/// Selected text can be dragged to any place that takes text, and text from anywhere dropped.
class TKxEditWidget : public TKxControlWidget
{
public:
    TCustomEdit& Edit() const { return static_cast<TCustomEdit&>(*Root()); }

    /// After changes by the user, once: Enter was pressed, or the focus went elsewhere. The value is final then.
    std::function<void()> OnFinished;

    bool GetReadOnly() const { return Edit().GetReadOnly(); }
    void SetReadOnly(bool readOnly);
    /// Average letters that the widget would like to have room for.
    void SetRoom(int letters);

    QString ValueText() const override;
    QSize sizeHint() const override;
    /// Whether the text stands for a value.
    virtual bool IsNumber() const { return false; }

protected:
    TKxEditWidget(std::unique_ptr<TCustomEdit> edit, QWidget* parent);

    /// The part of the widget that the frame takes.
    virtual QRect FrameRect() const { return rect(); }
    /// The size hint within a frame of some width.
    QSize SizeWithin(int frame) const;
    virtual void FillMenu(QMenu& menu);
    /// What an action of the menu does; the edit has the focus then.
    void AddAction(QMenu& menu, const QString& text, const QKeySequence& key, bool enabled,
                   const std::function<void()>& action);
    /// Whether the present value is another one than the last that was told or set.
    virtual bool IsNewValue() { return true; }
    /// For `OnChange` of the control.
    void EditChanged();

    QRect RootRect() const override;
    void PaintChrome(QPainter& painter) override;
    void PaintAbove(QPainter& painter) override;
    void Follow() override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct TPlace
    {
        int Caret = 0, Anchor = 0;

        bool IsSelection() const { return Caret != Anchor; }
        bool operator==(const TPlace&) const = default;
    };

    void Finish();
    void TellChanges(bool isChanged, const TPlace& before);
    bool IsOnSelection(QPoint at) const;
    void StartDrag();
    void TakeDrop(const QMimeData& dropped, int place, bool moves);
    void ShowDropPlace(std::optional<int> place);

    int FRoom = 17;
    TPlace FToldPlace;
    std::optional<QString> FToldText;  ///< while assistive programs listen
    std::optional<QPoint> FDragFrom;   ///< pressed on the selection, which may become a drag
    std::optional<int> FDropPlace;
    bool FChangedByUser = false;
    bool FTextChanged = false;
};

}  // namespace plotkit
