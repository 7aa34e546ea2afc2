#include "plotkit/window/DesktopColours.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QToolTip>

namespace plotkit {

namespace {

QPalette PaletteOf(bool dark)
{
    const QColor window = dark ? QColor(45, 45, 48) : QColor(239, 239, 239);
    const QColor base = dark ? QColor(30, 30, 32) : QColor(Qt::white);
    const QColor text = dark ? QColor(230, 230, 230) : QColor(Qt::black);
    const QColor faint = dark ? QColor(130, 130, 130) : QColor(150, 150, 150);
    QPalette palette(dark ? QColor(60, 60, 64) : window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, QColor(38, 110, 180));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, dark ? QColor(110, 180, 250) : QColor(0, 80, 180));
    return palette;
}

}  // namespace

bool WindowsAreDark()
{
    const QPalette palette = QApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

void SetWindowColours(TSchemeChoice colours)
{
    static const QPalette desktop = QApplication::palette();
    const QPalette palette = colours == ccAuto ? desktop : PaletteOf(colours == ccDark);
    QApplication::setPalette(palette);
    // The style takes the frames of check boxes from the window's colour, darker: on dark ground they would not be
    // seen.
    QPalette boxes = palette;
    if (WindowsAreDark())
        boxes.setColor(QPalette::Window, QColor(150, 150, 156));
    for (const char* kind : {"QAbstractItemView", "QCheckBox"})
        QApplication::setPalette(boxes, kind);
    QToolTip::setPalette(palette);
}

}  // namespace plotkit
