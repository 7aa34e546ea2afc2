// The job of KxFormView is to show a whole form of the library as a widget, whose controls assistive programs can walk.
#pragma once

#include "widgets/KxControlWidget.h"

namespace plotkit {

/// Keys go round in the form, and it gives none away.
class TKxFormView : public TKxControlWidget
{
public:
    TKxFormView(TWindowControl& form, QWidget* parent);

    QSize sizeHint() const override { return size(); }
    /// The controls with a window, in the order of their making.
    std::vector<TWindowControl*> Parts() const;
    /// What a control is called: its own text, or the label at its left or above it.
    QString NameOf(const TWindowControl& part) const;
    /// What it holds, in words.
    virtual QString PartValue(const TWindowControl& part) const;

protected:
    bool IsKeyWanted(int, TShiftState) const override { return true; }
    bool IsWheelWanted() const override { return true; }
    bool focusNextPrevChild(bool) override { return false; }
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void Follow() override;

private:
    const TWindowControl* FToldPart = nullptr;
    QString FToldText;
    int FToldCaret = 0;
};

}  // namespace plotkit
