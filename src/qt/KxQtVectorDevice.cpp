#include "qt/KxQtVectorDevice.h"

#include <QPainterPath>

#include "host/Host.h"
#include "host/RecordingColors.h"
#include "qt/KxQtDevice.h"

namespace plotkit {

namespace {

QColor Blended(TColor color, double opacity)
{
    QColor shown = QtColor(color);
    shown.setAlphaF(static_cast<float>(opacity));
    return shown;
}

QPen PenOf(const TVectorPen& pen)
{
    const Qt::PenCapStyle cap = pen.Ends == veFlat ? Qt::FlatCap : pen.Ends == veSquare ? Qt::SquareCap : Qt::RoundCap;
    QPen stroke(Blended(pen.Color, pen.Opacity), pen.Width, Qt::SolidLine, cap,
                pen.RoundJoins ? Qt::RoundJoin : Qt::MiterJoin);
    if (IsDashed(pen.Style)) {
        stroke.setDashPattern(QtDashPattern(pen.Style));
        stroke.setDashOffset(pen.DashStart / pen.Width);
    }
    return stroke;
}

QPainterPath PathOf(const TVectorPath& path)
{
    QPainterPath drawn;
    drawn.reserve(static_cast<int>(path.Points.size() + path.Ends.size()));
    for (std::size_t i = 0; i < path.Ends.size(); ++i) {
        const auto outline = path.Outline(i);
        if (outline.empty())
            continue;
        drawn.moveTo(outline.front().X, outline.front().Y);
        for (const TVectorPoint& point : outline.subspan(1))
            drawn.lineTo(point.X, point.Y);
        if (path.Closed)
            drawn.closeSubpath();
    }
    return drawn;
}

}  // namespace

TQtVectorDevice::TQtVectorDevice(QPainter& painter, const TRect& page, double scale, const TTextMeasurer& measurer)
    : TVectorDevice(page, scale, measurer), FPainter(painter)
{}

void TQtVectorDevice::Prepare(const TVectorPen* pen, const TVectorFill* fill)
{
    FPainter.setPen(pen ? PenOf(*pen) : QPen(Qt::NoPen));
    FPainter.setBrush(fill ? QBrush(Blended(fill->Color, fill->Opacity)) : QBrush(Qt::NoBrush));
}

void TQtVectorDevice::DrawPath(const TVectorPath& path, const TVectorPen* pen, const TVectorFill* fill,
                               const TRect* clip)
{
    if (clip) {
        const TRect box = clip->Intersected(Page());
        FPainter.save();
        FPainter.setClipRect(QRect(box.Left, box.Top, box.Width(), box.Height()), Qt::IntersectClip);
    }
    Prepare(pen, fill);
    FPainter.drawPath(PathOf(path));
    if (clip)
        FPainter.restore();
}

void TQtVectorDevice::DrawOval(const TVectorBox& box, const TVectorPen* pen, const TVectorFill* fill)
{
    Prepare(pen, fill);
    FPainter.drawEllipse(QRectF(box.Left, box.Top, box.Width(), box.Height()));
}

void TQtVectorDevice::DrawRun(const TTextRun& run, const TRect* clip)
{
    FPainter.save();
    {
        TQtDevice text(FPainter, Scale());
        text.Text(run, {dmCopy, clip ? *clip : NoClip});
    }
    FPainter.restore();
}

void DrawVectorPicture(QPainter& painter, const TMetafile& picture, const QRectF& target)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(target.topLeft());
    painter.scale(target.width() / picture.Width, target.height() / picture.Height);
    const TRect page{0, 0, picture.Width, picture.Height};
    painter.setClipRect(QRectF(0, 0, picture.Width, picture.Height));
    TQtVectorDevice device(painter, page, picture.PixelScale, Host().TextMeasurer());
    BlendedXor(picture.Recording, TVectorDevice::XorOpacity).Replay(device);
    painter.restore();
}

}  // namespace plotkit
