#include "plotkit/window/ToolIcons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace plotkit {

namespace {

/// Signs are strokes on a sheet of 16 by 16.
using TStrokes = QPainterPath;

void AddPolyline(TStrokes& strokes, std::initializer_list<QPointF> points)
{
    strokes.moveTo(*points.begin());
    for (const QPointF& point : points)
        strokes.lineTo(point);
}

void AddLens(TStrokes& strokes)
{
    strokes.addEllipse(QPointF(6.5, 6.5), 4.5, 4.5);
    AddPolyline(strokes, {{9.8, 9.8}, {14, 14}});
}

TStrokes FileSigns(TToolIcon icon)
{
    TStrokes s;
    switch (icon) {
        case tiOpen:
            AddPolyline(s, {{1.5, 13}, {1.5, 3}, {6, 3}, {7.5, 5}, {13, 5}, {13, 7}});
            AddPolyline(s, {{1.5, 13}, {4, 7}, {15, 7}, {12.5, 13}, {1.5, 13}});
            break;
        case tiExport:
            AddPolyline(s, {{2, 8}, {2, 14}, {14, 14}, {14, 8}});
            AddPolyline(s, {{8, 10.5}, {8, 2}});
            AddPolyline(s, {{4.8, 5}, {8, 1.8}, {11.2, 5}});
            break;
        case tiPrint:
            AddPolyline(s, {{4, 6}, {4, 2}, {12, 2}, {12, 6}});
            AddPolyline(s, {{4, 11}, {2, 11}, {2, 6}, {14, 6}, {14, 11}, {12, 11}});
            s.addRect(4, 9, 8, 5);
            break;
        case tiCopy:
            s.addRect(5.5, 5.5, 8.5, 8.5);
            AddPolyline(s, {{10.5, 3}, {10.5, 2}, {2, 2}, {2, 10.5}, {3, 10.5}});
            break;
        case tiReload:
            s.arcMoveTo(2.5, 2.5, 11, 11, 60);
            s.arcTo(2.5, 2.5, 11, 11, 60, 285);
            AddPolyline(s, {{7.6, 1}, {11, 3.2}, {8.8, 6.2}});
            break;
        case tiFollow:
            AddPolyline(s, {{2, 11}, {5, 7}, {7.5, 9}, {12, 3}});
            AddPolyline(s, {{8.8, 2.6}, {12.4, 2.4}, {12.6, 6}});
            AddPolyline(s, {{2, 14}, {14, 14}});
            break;
        default:
            AddPolyline(s, {{4, 4}, {12, 12}});
            AddPolyline(s, {{12, 4}, {4, 12}});
    }
    return s;
}

TStrokes GraphSigns(TToolIcon icon)
{
    TStrokes s;
    switch (icon) {
        case tiHome:
            AddPolyline(s, {{1.5, 8}, {8, 2}, {14.5, 8}});
            AddPolyline(s, {{3.5, 7}, {3.5, 14}, {12.5, 14}, {12.5, 7}});
            break;
        case tiBack:
            AddPolyline(s, {{7, 3}, {2, 8}, {7, 13}});
            AddPolyline(s, {{2, 8}, {14, 8}});
            break;
        case tiForward:
            AddPolyline(s, {{9, 3}, {14, 8}, {9, 13}});
            AddPolyline(s, {{14, 8}, {2, 8}});
            break;
        case tiZoom:
            AddLens(s);
            s.addRect(4.5, 4.7, 4, 3.6);
            break;
        case tiZoomIn:
            AddLens(s);
            AddPolyline(s, {{4.5, 6.5}, {8.5, 6.5}});
            AddPolyline(s, {{6.5, 4.5}, {6.5, 8.5}});
            break;
        case tiZoomOut:
            AddLens(s);
            AddPolyline(s, {{4.5, 6.5}, {8.5, 6.5}});
            break;
        case tiPan:
            AddPolyline(s, {{8, 1.5}, {8, 14.5}});
            AddPolyline(s, {{1.5, 8}, {14.5, 8}});
            AddPolyline(s, {{6, 3.5}, {8, 1.5}, {10, 3.5}});
            AddPolyline(s, {{6, 12.5}, {8, 14.5}, {10, 12.5}});
            AddPolyline(s, {{3.5, 6}, {1.5, 8}, {3.5, 10}});
            AddPolyline(s, {{12.5, 6}, {14.5, 8}, {12.5, 10}});
            break;
        case tiCursor:
            AddPolyline(s, {{1.5, 12}, {5, 9}, {8, 6}, {11, 8}, {14.5, 3}});
            AddPolyline(s, {{8, 1.5}, {8, 14.5}});
            s.addEllipse(QPointF(8, 6), 2, 2);
            break;
        default:  // markers
            AddPolyline(s, {{4, 1.5}, {4, 14.5}});
            AddPolyline(s, {{12, 1.5}, {12, 14.5}});
            AddPolyline(s, {{4, 8}, {12, 8}});
            AddPolyline(s, {{6, 6.2}, {4.2, 8}, {6, 9.8}});
            AddPolyline(s, {{10, 6.2}, {11.8, 8}, {10, 9.8}});
    }
    return s;
}

class TSignEngine : public QIconEngine
{
public:
    explicit TSignEngine(TToolIcon icon) : FIcon(icon) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const bool isGraph = FIcon >= tiHome && FIcon <= tiMarkers;
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor ink = QApplication::palette().color(group, QPalette::WindowText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        painter->setPen(QPen(ink, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(isGraph ? GraphSigns(FIcon) : FileSigns(FIcon));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap sheet(size);
        sheet.fill(Qt::transparent);
        QPainter painter(&sheet);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return sheet;
    }

    QIconEngine* clone() const override { return new TSignEngine(*this); }

private:
    TToolIcon FIcon;
};

}  // namespace

QIcon ToolIcon(TToolIcon icon)
{
    return QIcon(new TSignEngine(icon));  // the icon owns its engine
}

}  // namespace plotkit
