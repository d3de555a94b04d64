#include "drawing.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPen>
#include <QVector>

#include <cmath>

namespace quorixctl {
namespace {

QColor toQt(const Colour &colour) { return {colour.red, colour.green, colour.blue, (colour.percent * 255 + 50) / 100}; }

QRectF toQt(const Area &area) { return {area.x, area.y, area.width, area.height}; }

QPen toQt(const Stroke &stroke) {
    if (stroke.width <= 0)
        return Qt::NoPen;
    QPen pen(toQt(stroke.colour), stroke.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (stroke.dash > 0)
        pen.setDashPattern({stroke.dash / stroke.width, stroke.dash / stroke.width});
    return pen;
}

QBrush brushOf(const Box &box) {
    constexpr double kVectors[][4] = {{}, {0, 0, 1, 0}, {1, 0, 0, 0}, {0, 0, 0, 1}, {0, 1, 0, 0}};
    if (box.fade == Fade::None)
        return toQt(box.fill);
    const auto &[x1, y1, x2, y2] = kVectors[static_cast<int>(box.fade)];
    QLinearGradient gradient(x1, y1, x2, y2);
    gradient.setCoordinateMode(QGradient::ObjectBoundingMode);
    QColor end = toQt(box.fill);
    gradient.setColorAt(0, end);
    end.setAlpha(0);
    gradient.setColorAt(1, end);
    return gradient;
}

struct Painter {
    QPainter &painter;

    void operator()(const Box &box) const {
        painter.setPen(toQt(box.stroke));
        painter.setBrush(brushOf(box));
        if (box.radius > 0)
            painter.drawRoundedRect(toQt(box.area), box.radius, box.radius);
        else
            painter.drawRect(toQt(box.area));
    }

    void operator()(const Lines &lines) const {
        QVector<QLineF> segments;
        for (const Segment &segment : lines.segments)
            segments.append({segment.x1, segment.y1, segment.x2, segment.y2});
        painter.setPen(toQt(lines.stroke));
        painter.drawLines(segments);
    }

    void operator()(const Text &text) const {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(static_cast<int>(std::lround(text.size)));
        font.setBold(text.isBold);
        // Glyphs stay where the layout reckoned with them.
        font.setHintingPreference(QFont::PreferNoHinting);
        const double width = text.anchor == Anchor::Start ? 0 : QFontMetricsF(font).horizontalAdvance(text.text);
        painter.setFont(font);
        painter.setPen(toQt(text.colour));
        painter.drawText(QPointF(text.x - (text.anchor == Anchor::Middle ? width / 2 : width), text.baseline),
                         text.text);
    }
};

} // namespace

QImage imageOf(const Drawing &drawing) {
    QImage image(drawing.width, drawing.height, QImage::Format_RGB32);
    image.fill(toQt(drawing.paper));
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    for (const Mark &mark : drawing.marks)
        std::visit(Painter{painter}, mark);
    return image;
}

} // namespace quorixctl
