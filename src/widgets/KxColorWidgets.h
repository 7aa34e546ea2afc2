// The job of KxColorWidgets is the pickers of colours as widgets, with the window for any other colour.
#pragma once

#include "controls/KxColorBtn.h"
#include "controls/KxColorPickCombo.h"
#include "widgets/KxComboWidget.h"

class QDialog;

namespace plotkit {

/// Shows a form for choosing a colour as a dialog over a widget, whenever the form shows itself.
class TKxColorWindow
{
public:
    explicit TKxColorWindow(QWidget& over) : FOver(over) {}
    TKxColorWindow(const TKxColorWindow&) = delete;
    TKxColorWindow& operator=(const TKxColorWindow&) = delete;
    ~TKxColorWindow();

    void Serve(TKxColorPickerForm& form);
    /// While it is open.
    QDialog* Dialog() const { return FDialog; }

private:
    void Open(TKxColorPickerForm& form);
    void Close();

    QWidget& FOver;
    QDialog* FDialog = nullptr;
};

class TKxColorButtonWidget : public TKxControlWidget
{
public:
    explicit TKxColorButtonWidget(QWidget* parent = nullptr);

    TKxColorBtn& Control() const { return static_cast<TKxColorBtn&>(*Root()); }
    TColor GetSelected() const { return Control().GetSelected(); }
    void SetSelected(TColor color) { Control().SetSelected(color); }
    QDialog* Dialog() const { return FWindow.Dialog(); }

    QString ValueText() const override;
    QSize sizeHint() const override;

protected:
    QRect RootRect() const override;
    QRect Hole() const override;
    void PaintChrome(QPainter& painter) override;

private:
    TKxColorWindow FWindow{*this};
};

class TKxColorPickComboWidget : public TKxComboWidget
{
public:
    explicit TKxColorPickComboWidget(QWidget* parent = nullptr);

    TKxColorPickCombo& Control() const { return static_cast<TKxColorPickCombo&>(Combo()); }
    TColor GetSelected() const { return Control().GetSelected(); }
    void SetSelected(TColor color) { Control().SetSelected(color); }
    QDialog* Dialog() const { return FWindow.Dialog(); }

    QString ValueText() const override;
    QString ItemName(int index) const override;

protected:
    void DroppedDown() override;

private:
    TKxColorWindow FWindow{*this};
};

}  // namespace plotkit
