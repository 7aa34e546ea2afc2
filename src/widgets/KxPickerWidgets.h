// The job of KxPickerWidgets is the pickers of lines, symbols and fills as widgets.
#pragma once

#include "controls/KxSelectBrushStyle.h"
#include "controls/KxSelectLine.h"
#include "controls/KxSelectPoints.h"
#include "widgets/KxComboWidget.h"

namespace plotkit {

/// A list with its own frame.
class TKxListWidget : public TKxControlWidget
{
public:
    TCustomListBox& List() const { return static_cast<TCustomListBox&>(*Root()); }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QScrollBar& ScrollBar() const { return FScroll.Bar(); }

protected:
    TKxListWidget(std::unique_ptr<TCustomListBox> list, QWidget* parent);

    QRect RootRect() const override;
    QRect Hole() const override;
    void PaintChrome(QPainter& painter) override;
    bool IsWheelWanted() const override { return true; }
    void Follow() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Within the frame.
    QRect Inside() const;

    TKxLetterSearch FSearch;
    int FToldItem = -1;
    TKxListScroll FScroll{*this, List()};
};

/// `TControl`: one of the pickers; `TBase`: TKxListWidget or TKxComboWidget.
template <class TPicker, class TBase>
class TKxPickerWidget : public TBase
{
public:
    explicit TKxPickerWidget(QWidget* parent = nullptr);

    TPicker& Control() const { return static_cast<TPicker&>(*this->Root()); }
    QString ValueText() const override;
    QString ItemName(int index) const override;
};

using TKxLineStylesComboWidget = TKxPickerWidget<TKxLineStylesCombo, TKxComboWidget>;
using TKxLineStylesListWidget = TKxPickerWidget<TKxLineStylesList, TKxListWidget>;
using TKxPointSymbolsComboWidget = TKxPickerWidget<TKxPointSymbolsCombo, TKxComboWidget>;
using TKxPointSymbolsListWidget = TKxPickerWidget<TKxPointSymbolsList, TKxListWidget>;
using TKxBrushStylesComboWidget = TKxPickerWidget<TKxBrushStylesCombo, TKxComboWidget>;
using TKxBrushStylesListWidget = TKxPickerWidget<TKxBrushStylesList, TKxListWidget>;

}  // namespace plotkit
