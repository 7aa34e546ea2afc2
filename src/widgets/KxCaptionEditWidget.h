// The job of KxCaptionEditWidget is the caption edit as a widget, with buttons for the attributes.
#pragma once

#include <array>

#include "controls/KxCaptionEdit.h"
#include "widgets/KxEditWidget.h"

class QToolButton;

namespace plotkit {

/// `OnChanged` tells of text and attributes. The context menu offers the attributes, too.
class TKxCaptionEditWidget : public TKxEditWidget
{
public:
    explicit TKxCaptionEditWidget(QWidget* parent = nullptr);

    TKxCaptionEdit& Control() const { return static_cast<TKxCaptionEdit&>(Edit()); }
    /// The caption with its markup.
    TKxCaption GetCaption() const { return Control().GetCaption(); }
    void SetCaption(const TKxCaption& caption);

    /// A row of toggle buttons below the edit: bold, italic, underline, strike-out, symbol, subscript, superscript.
    /// They follow the caret. At first there is none.
    bool GetButtonsShown() const { return FRow != nullptr; }
    void SetButtonsShown(bool shown);
    /// In this order; nullptr while there is no row.
    QToolButton* Button(int index) const { return FButtons[static_cast<std::size_t>(index)]; }
    static constexpr int ButtonCount = 7;

    QSize sizeHint() const override;

protected:
    QRect FrameRect() const override;
    void FillMenu(QMenu& menu) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeRow();
    void Toggle(int index);
    void ShowStates();

    QWidget* FRow = nullptr;
    std::array<QToolButton*, ButtonCount> FButtons{};
    std::array<bool, ButtonCount> FStates{};
};

}  // namespace plotkit
