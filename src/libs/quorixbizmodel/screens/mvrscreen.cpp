#include <quorixbizmodel/screens/mvrscreen.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/layers/layerkinds.h>
#include <quorixbizmodel/screens/screen_p.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Quorix::BizModel {

namespace {

/// More cells to a side than any wall has, so that a grid of any size ends.
constexpr int kMaxCells = 256;

bool touch(const QRect &left, const QRect &right) { return left.intersected(right).isValid(); }

/// Puts the pair of edges @p first, @p last of one axis into @p rect.
void setEdges(QRect &rect, Qt::Orientation ori, int first, int last) {
    if (ori == Qt::Horizontal)
        rect.setCoords(first, rect.top(), last, rect.bottom());
    else
        rect.setCoords(rect.left(), first, rect.right(), last);
}

int firstEdge(const QRect &rect, Qt::Orientation ori) { return ori == Qt::Horizontal ? rect.left() : rect.top(); }
int lastEdge(const QRect &rect, Qt::Orientation ori) { return ori == Qt::Horizontal ? rect.right() : rect.bottom(); }

QSize sizeOf(const QRect &rect) { return Helper::sSize2QSize(Helper::qRect2SRect(rect)); }

int lastOf(int first, int length) { return wrappingSum(wrappingSum(first, length), -1); }

qint64 distance(int a, int b) { return std::abs(qint64{a} - b); }

} // namespace

MVRScreen::MVRScreen(QObject *parent) : Screen(parent) { setScreenType(ScreenType::MVRScreen); }

MVRScreen::MVRScreen(const MVRScreen &other) : MVRScreen(other.parent()) {}

MVRScreen &MVRScreen::operator=(const MVRScreen & /*other*/) { return *this; }

bool MVRScreen::PGMEdit() const { return true; }

void MVRScreen::createConnects(std::weak_ptr<Device> device) {
    Screen::createConnects(device);
    if (device.expired())
        return;
    std::weak_ptr<MVRScreen> self = std::static_pointer_cast<MVRScreen>(weak_from_this().lock());
    const Relay join(this, m_kindRelays, std::move(device), std::move(self));
    join(&MVRScreen::signalRowColSpanChanged, &DeviceList::signalMVRScreenRowColSpanChanged);
}

QSize MVRScreen::rowColSpan() const { return Helper::sSize2QSize(copyOf(m_detailRWLock, m_rowColSpan)); }

void MVRScreen::setRowColSpan(QSize span) {
    if (assign(m_detailRWLock, m_rowColSpan, Helper::qSize2Size(span)))
        Q_EMIT signalRowColSpanChanged();
}

QList<QRect> MVRScreen::gridCellRects() const {
    const QSize span = rowColSpan();
    const QRect window = mosaicWindowRect();
    if (span.width() <= 1 && span.height() <= 1)
        return {window};
    const int columns = qBound(1, span.width(), kMaxCells);
    const int rows = qBound(1, span.height(), kMaxCells);
    ProtoModel::s_Rect cell;
    cell.width = sizeOf(window).width() / columns;
    cell.height = sizeOf(window).height() / rows;
    QList<QRect> cells;
    cells.reserve(rows * columns);
    for (int row = 0; row < rows; ++row) {
        cell.y = row * cell.height;
        for (int column = 0; column < columns; ++column) {
            cell.x = column * cell.width;
            cells.append(Helper::sRect2QRect(cell));
        }
    }
    return cells;
}

QRect MVRScreen::gridUnitRect(QRect itemRect) const {
    QRect unit;
    for (const auto &cell : gridCellRects())
        if (touch(cell, itemRect))
            unit |= cell;
    return unit;
}

QList<std::weak_ptr<MVRLayer>> MVRScreen::overLappedLayers(const std::weak_ptr<Layer> &pOperatLayer,
                                                           QRect layerRect) const {
    QList<std::weak_ptr<MVRLayer>> overlapped;
    for (const auto &layer : layersOf(toInt(SceneType::PGM), toInt(LayerType::MVR)))
        if (!isSameObject(layer, pOperatLayer) && touch(layer->windowRect(), layerRect))
            overlapped.append(std::static_pointer_cast<MVRLayer>(layer)); // their list takes no other class
    return overlapped;
}

QRect MVRScreen::vaildDragRect(QRect dragScreenRect, const QList<std::weak_ptr<MVRLayer>> &overLappedLayers,
                               QPoint lastScreenPoint) const {
    QRect valid = dragScreenRect;
    for (const auto &reference : overLappedLayers) {
        const auto layer = reference.lock();
        if (layer == nullptr)
            continue;
        const QRect window = layer->windowRect();
        const bool isDown = distance(window.left(), lastScreenPoint.x()) < distance(window.top(), lastScreenPoint.y());
        valid = maxValidRect(isDown ? Qt::Vertical : Qt::Horizontal, valid, window);
    }
    return valid;
}

QRect MVRScreen::validDropRect(Qt::Orientation ori, QRect gridUnitRect, QRect overLappedItemRect) const {
    const int last = lastEdge(gridUnitRect, ori);
    const int length = wrappingDifference(last, firstEdge(gridUnitRect, ori));
    const int otherLast = lastEdge(overLappedItemRect, ori);
    const bool isBehind = ori == Qt::Horizontal ? last >= otherLast : last > otherLast;
    const int behind = wrappingSum(otherLast, 1);
    const int before = wrappingSum(firstEdge(overLappedItemRect, ori), -1);
    if (isBehind)
        setEdges(gridUnitRect, ori, behind, wrappingSum(behind, length));
    else
        setEdges(gridUnitRect, ori, wrappingDifference(before, length), before);
    return gridUnitRect;
}

QRect MVRScreen::maxValidRect(Qt::Orientation ori, QRect gridUnitRect, QRect overLappedItemRect) const {
    const int first = firstEdge(gridUnitRect, ori);
    const int last = lastEdge(gridUnitRect, ori);
    const int otherLast = lastEdge(overLappedItemRect, ori);
    if (last > otherLast)
        setEdges(gridUnitRect, ori, wrappingSum(otherLast, 1), last);
    else if (last < otherLast)
        setEdges(gridUnitRect, ori, first, wrappingSum(firstEdge(overLappedItemRect, ori), -1));
    return gridUnitRect;
}

bool MVRScreen::checkItemRect(const QRectF &rect, const std::weak_ptr<MVRLayer> &pItem, bool /*moving*/) const {
    const QRect window = mosaicWindowRect();
    // What is not a number compares as contained.
    const bool isNumber = std::isfinite(rect.x() + rect.y() + rect.width() + rect.height());
    if (!isNumber || !QRectF(window.topLeft(), sizeOf(window)).contains(rect))
        return false;
    const QRect pixels = roundedRect(rect);
    const auto layers = layersOf(toInt(SceneType::PGM), toInt(LayerType::MVR));
    return std::none_of(layers.begin(), layers.end(), [&](const auto &layer) {
        return !isSameObject(layer, pItem) && layer->windowRect().intersects(pixels);
    });
}

QList<QPair<std::weak_ptr<Layer>, QRect>> MVRScreen::layerFullScreenRect(QList<std::weak_ptr<Layer>> layers) const {
    QList<QPair<std::weak_ptr<Layer>, QRect>> rects;
    for (const auto &reference : std::as_const(layers)) {
        const auto layer = reference.lock();
        if (layer == nullptr || layer->ownerScreen().expired())
            continue;
        QRect unit = gridUnitRect(layer->windowRect());
        if (!overLappedLayers(reference, unit).isEmpty()) {
            rects.append({reference, layer->windowRect()});
            continue;
        }
        const QSize largest = layer->maxWindowSize();
        const QSize size = sizeOf(unit);
        if (size.width() > largest.width())
            unit.setRight(lastOf(unit.left(), largest.width()));
        if (size.height() > largest.height())
            unit.setBottom(lastOf(unit.top(), largest.height()));
        rects.append({reference, unit});
    }
    return rects;
}

void MVRScreen::removeLayers(int /*sourceType*/, int /*sourceId*/) {}

} // namespace Quorix::BizModel
