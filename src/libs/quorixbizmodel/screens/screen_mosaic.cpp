#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/numbers.h>

#include <algorithm>
#include <cmath>

namespace Quorix::BizModel {

using ProtoModel::Screen::s_Enable;
using ProtoModel::Screen::s_OutputDetail;
using ProtoModel::Screen::s_OutputDetailArray;
using ProtoModel::Screen::s_PhysicalSizeBody;
using ProtoModel::Screen::s_ScreenMosaic;

namespace {

/// @p length divided by @p rate; a rate of 0, that of a screen without a physical size, gives 0.
double unscaled(double length, double rate) { return rate == 0 ? 0 : length / rate; }

/// The place from @p origin on, @p offset further.
int placed(int origin, double offset) { return truncated(origin + offset); }

double offsetOf(int place, int origin) { return static_cast<double>(place) - origin; }

/// Outputs are told apart as reports give them, in any order; a record of other than four feathers equals none.
bool isSame(const s_ScreenMosaic &stored, const s_ScreenMosaic &given) {
    const auto isGiven = [&given](const s_OutputDetail &output) {
        return std::any_of(given.outputs.begin(), given.outputs.end(),
                           [&output](const s_OutputDetail &other) { return output == other; });
    };
    return stored.type == given.type && stored.splice == given.splice && stored.window == given.window &&
           stored.outputs.size() == given.outputs.size() &&
           std::all_of(stored.outputs.begin(), stored.outputs.end(), isGiven);
}

} // namespace

Screen::ScreenSpliceMode Screen::spliceMode() const {
    return static_cast<ScreenSpliceMode>(copyOf(m_detailRWLock, m_detail.mosaic.type));
}

void Screen::setSpliceMode(ScreenSpliceMode mode) {
    if (assign(m_detailRWLock, m_detail.mosaic.type, toInt(mode)))
        Q_EMIT signalSpliceModeChanged();
}

QPair<int, int> Screen::grid() const {
    const auto splice = copyOf(m_detailRWLock, m_detail.mosaic.splice);
    return {splice.row, splice.column};
}

void Screen::setGrid(QPair<int, int> grid, bool bSendSignal) {
    if (assign(m_detailRWLock, m_detail.mosaic.splice, {.row = grid.first, .column = grid.second}) && bSendSignal)
        Q_EMIT signalGridChanged();
}

QPair<int, int> Screen::order(const std::weak_ptr<Output> & /*output*/) const { return grid(); }

bool Screen::isGridFilled() const {
    const ReadGuard guard(m_detailRWLock);
    const auto &mosaic = m_detail.mosaic;
    return qint64{mosaic.splice.row} * mosaic.splice.column == static_cast<qint64>(mosaic.outputs.size());
}

QRect Screen::calcMosaicWindowRect(const s_OutputDetailArray &outputs) {
    QRect window;
    for (const auto &output : outputs)
        window |= areaInMosaic(output);
    return window;
}

QSize Screen::calcMosaicWindowSize(const s_OutputDetailArray &outputs) {
    return Helper::sSize2QSize(Helper::qRect2SRect(calcMosaicWindowRect(outputs)));
}

QRect Screen::mosaicWindowRect() const {
    const ReadGuard guard(m_detailRWLock);
    return calcMosaicWindowRect(m_detail.mosaic.outputs);
}

QPoint Screen::mosaicWindowPos() const { return mosaicWindowRect().topLeft(); }

QSize Screen::mosaicWindowSize() const { return Helper::sSize2QSize(Helper::qRect2SRect(mosaicWindowRect())); }

void Screen::setMosaicWindowRect(const QRect &rect) {
    const auto window = Helper::qRect2SRect(rect);
    if (!assign(m_detailRWLock, m_detail.mosaic.window, window))
        return;
    setPhysicalSize(Helper::sSize2QSize(window));
    Q_EMIT signalMosaicWindowRectChanged();
}

void Screen::updateScreenMosaicWindowRectAfterModifyOutput() { setMosaicWindowRect(mosaicWindowRect()); }

void Screen::setPhysicalSize(const QSize &size) {
    if (assign<ProtoModel::s_Size>(m_detailRWLock, m_detail.physicalSize, Helper::qSize2Size(size)))
        Q_EMIT signalPhysicalSizeChanged();
}

void Screen::setPhysicalSize(const s_PhysicalSizeBody &size) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (static_cast<const ProtoModel::s_Size &>(m_detail.physicalSize) == size)
            return;
        m_detail.physicalSize = size;
    }
    Q_EMIT signalPhysicalSizeChanged();
}

s_PhysicalSizeBody Screen::physicalSize() const { return copyOf(m_detailRWLock, m_detail.physicalSize); }

QSize Screen::physicalQSize() const { return Helper::sSize2QSize(physicalSize()); }

void Screen::setPhysicalUnit(PhysicalUnitType unit) {
    if (assign(m_detailRWLock, m_detail.physicalSize.unit, toInt(unit)))
        Q_EMIT signalPhysicalUnitChanged();
}

Screen::PhysicalUnitType Screen::physicalUnit() const { return static_cast<PhysicalUnitType>(physicalSize().unit); }

bool Screen::physicalEnable() const {
    const ReadGuard guard(m_detailRWLock);
    const ProtoModel::s_Size &window = m_detail.mosaic.window;
    return window != m_detail.physicalSize || m_detail.physicalSize.unit != toInt(PhysicalUnitType::Pixel);
}

void Screen::setPhysicalEnable(bool /*isEnabled*/) {}

QRect Screen::realRect() const {
    const QRect window = mosaicWindowRect();
    return physicalEnable() ? Helper::sRect2QRect({Helper::qPoint2SPoint(window.topLeft()), physicalSize()}) : window;
}

QPair<double, double> Screen::physicalMosaicSizeRate() const {
    constexpr QPair<double, double> same{1.0, 1.0};
    if (owerDevice().expired())
        return same;
    const QSize mosaic = mosaicWindowSize();
    const auto physical = physicalSize();
    const bool isSameSize = mosaic == Helper::sSize2QSize(physical);
    if (mosaic.width() == 0 || mosaic.height() == 0 || (isSameSize && physical.unit == toInt(PhysicalUnitType::Pixel)))
        return same;
    return {static_cast<double>(physical.width) / mosaic.width(),
            static_cast<double>(physical.height) / mosaic.height()};
}

QSize Screen::mosaicSize2PhysicalSize(const QSize &size) const {
    const auto [across, down] = physicalMosaicSizeRate();
    return {rounded(size.width() * across), rounded(size.height() * down)};
}

QPoint Screen::mosaicPoint2PhysicalPoint(const QPoint &point) const {
    const auto [across, down] = physicalMosaicSizeRate();
    return {rounded(point.x() * across), rounded(point.y() * down)};
}

QRect Screen::mosaicRect2PhysicalRect(const QRect &rect) const {
    const auto [across, down] = physicalMosaicSizeRate();
    const QPoint corner = mosaicWindowPos();
    const auto mosaic = Helper::qRect2SRect(rect);
    return Helper::sRect2QRect({{.x = placed(corner.x(), std::round(offsetOf(mosaic.x, corner.x()) * across)),
                                 .y = placed(corner.y(), std::round(offsetOf(mosaic.y, corner.y()) * down))},
                                {.width = truncated(std::round(mosaic.width * across)),
                                 .height = truncated(std::round(mosaic.height * down))}});
}

QSize Screen::physicalSize2MosaicSize(const QSize &size) const {
    const auto [across, down] = physicalMosaicSizeRate();
    return {rounded(unscaled(size.width(), across)), rounded(unscaled(size.height(), down))};
}

QPoint Screen::physicalPoint2MosaicPoint(const QPoint &point) const {
    const auto [across, down] = physicalMosaicSizeRate();
    return {rounded(unscaled(point.x(), across)), rounded(unscaled(point.y(), down))};
}

QRect Screen::physicalRect2MosaicRect(const QRect &rect) const {
    const auto [across, down] = physicalMosaicSizeRate();
    const QPoint corner = mosaicWindowPos();
    const auto physical = Helper::qRect2SRect(rect);
    return Helper::sRect2QRect(
        {{.x = placed(corner.x(), std::trunc(unscaled(offsetOf(physical.x, corner.x()), across))),
          .y = placed(corner.y(), std::trunc(unscaled(offsetOf(physical.y, corner.y()), down)))},
         {.width = rounded(unscaled(physical.width, across)), .height = rounded(unscaled(physical.height, down))}});
}

void Screen::setScreenMosaic(const s_Enable &enable) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (isSame(m_detail.mosaic, enable.mosaic))
            return;
        m_detail.mosaic = enable.mosaic;
    }
    Q_EMIT signalMosaicWindowRectChanged();
}

s_Enable Screen::screenMosaic() const {
    auto enable = screenEnableStruct();
    enable.layout = {};
    return enable;
}

s_Enable Screen::screenEnableStruct() const {
    const ReadGuard guard(m_detailRWLock);
    return {m_detail, m_detail.mosaic, m_detail.general, m_detail.physicalSize, m_detail.layout};
}

} // namespace Quorix::BizModel
