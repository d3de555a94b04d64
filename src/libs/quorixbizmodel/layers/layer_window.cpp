#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/layers/layer_p.h>
#include <quorixbizmodel/topology/input.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

namespace Quorix::BizModel {

namespace {

using Enum::Layer::AspectRatioType;

struct NamedRatio {
    AspectRatioType type;
    double ratio;
    const char *text;
};

constexpr NamedRatio kNamedRatios[] = {
    {AspectRatioType::_1_1, 1.0, "1:1"},     {AspectRatioType::_5_4, 1.25, "5:4"},
    {AspectRatioType::_3_2, 1.5, "3:2"},     {AspectRatioType::_16_9, 16.0 / 9.0, "16:9"},
    {AspectRatioType::_16_10, 1.6, "16:10"},
};

template <class Predicate>
const NamedRatio *namedRatio(Predicate matches) {
    const auto *const found = std::find_if(std::begin(kNamedRatios), std::end(kNamedRatios), matches);
    return found == std::end(kNamedRatios) ? nullptr : found;
}

} // namespace

QPoint Layer::pos() const { return Helper::sPoint2QPoint(copyOf(m_detailRWLock, m_detail.window)); }
QRect Layer::windowRect() const { return Helper::sRect2QRect(copyOf(m_detailRWLock, m_detail.window)); }

// The road of every drag of the mouse: what is locked besides the window, is read on the thread that writes it.
void Layer::setWindowRect(const QRect &rect, const QString &senderName, bool isChangeRatio) {
    if (const auto before = exchanged(m_detailRWLock, m_detail.window, Helper::qRect2SRect(rect))) {
        Q_EMIT signalWindowRectChanged(senderName);
        Q_EMIT signalLayerWindowRectChanged(Helper::sRect2QRect(*before), rect);
    }
    if (isChangeRatio && !m_bWindowWHRatioLockd)
        setWindowWHRatio(rect);
}

double Layer::widthHeightRatio() const { return copyOf(m_detailRWLock, m_bWindowWHRatio); }

void Layer::setWindowWHRatio(double ratio) {
    if (!isOtherRatio(m_bWindowWHRatio, ratio))
        return;
    std::ignore = assign(m_detailRWLock, m_bWindowWHRatio, ratio);
    updateWidthHeightRatioType();
    Q_EMIT signalWidthHeightRatioChanged();
}

void Layer::setWindowWHRatio(QRect rect) {
    const auto window = Helper::qRect2SRect(rect);
    if (window.height != 0)
        setWindowWHRatio(static_cast<double>(window.width) / window.height);
}

AspectRatioType Layer::widthHeightRatioType() const { return copyOf(m_detailRWLock, m_eAspectRatioType); }

void Layer::setWidthHeightRatioType(AspectRatioType type) {
    std::ignore = assign(m_detailRWLock, m_eAspectRatioType, type);
    Q_EMIT signalWidthHeightRatioTypeChanged();
}

void Layer::updateWidthHeightRatioType() {
    const double ratio = widthHeightRatio();
    const auto *named = namedRatio([ratio](const auto &row) { return std::abs(row.ratio - ratio) < 1e-6; });
    setWidthHeightRatioType(named == nullptr ? AspectRatioType::_Custom : named->type);
}

QString Layer::widthHeightRatioStr() const {
    const auto type = widthHeightRatioType();
    if (type == AspectRatioType::_Custom)
        return tr("Custom");
    if (type == AspectRatioType::_SourceScale)
        return tr("SourceScale");
    const auto *named = namedRatio([type](const auto &row) { return row.type == type; });
    return named == nullptr ? QString() : QString(QLatin1String(named->text));
}

void Layer::setWindowWHRatioLocked(bool isLocked) {
    if (assign(m_detailRWLock, m_bWindowWHRatioLockd, isLocked))
        Q_EMIT signalWindowWHRatioLockedStateChanged();
}

bool Layer::windowWHRatioLockd() const { return copyOf(m_detailRWLock, m_bWindowWHRatioLockd); }

QSize Layer::defulatSize(const std::weak_ptr<Input> &input) const {
    const auto shown = input.lock();
    if (shown == nullptr)
        return Constants::Layer::minWindowSize;
    const QSize frame = shown->validSizeUnderActive();
    return {qRound(0.5 * frame.width()), qRound(0.5 * frame.height())};
}

} // namespace Quorix::BizModel
