#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/numbers.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

namespace Quorix::BizModel {

using ProtoModel::s_ColorEnableRGB;
using ProtoModel::s_ImageQualityBody;
using ProtoModel::Layer::s_LayerMaskBody;
using ProtoModel::Layer::s_LayerShadowBody;

namespace {

using Enum::Layer::FlipType;

struct Mirrored {
    FlipType from;
    FlipType to;
};

constexpr Mirrored kMirrored[] = {
    {FlipType::Normal, FlipType::HoriImage},
    {FlipType::HoriImage, FlipType::Normal},
    {FlipType::VerImage, FlipType::DiagonalImage},
    {FlipType::DiagonalImage, FlipType::VerImage},
};

template <auto Field>
bool differs(const s_ImageQualityBody &left, const s_ImageQualityBody &right) {
    return left.*Field != right.*Field;
}

/// In the order of the signals. Gamma has none.
constexpr struct {
    bool (*differs)(const s_ImageQualityBody &, const s_ImageQualityBody &);
    void (Layer::*signal)(const QString &);
} kQualitySignals[] = {
    {differs<&s_ImageQualityBody::saturation>, &Layer::signalLayerSaturationChanged},
    {differs<&s_ImageQualityBody::hue>, &Layer::signalLayerHueChanged},
    {differs<&s_ImageQualityBody::brightness>, &Layer::signalLayerBrightnessChanged},
    {differs<&s_ImageQualityBody::contrast>, &Layer::signalLayerContrastChanged},
};

} // namespace

void Layer::setBackgroundEnable(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.general.isBackground, isEnabled))
        Q_EMIT signalBackgroundChanged();
}

bool Layer::backgroundEnable() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.general.isBackground)); }

void Layer::setFrezzeEnable(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.general.isFreeze, isEnabled))
        Q_EMIT signalFreezeStatusChanged();
}

bool Layer::frezzeEnable() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.general.isFreeze)); }

void Layer::setMonochromeEnable(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.general.isMonochrome, isEnabled))
        Q_EMIT signalMonochromeStatusChanged();
}

bool Layer::monochromeEnable() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.general.isMonochrome)); }

void Layer::setInverseEnable(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.general.isInverse, isEnabled))
        Q_EMIT signalInverseStatusChanged();
}

bool Layer::inverseEnable() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.general.isInverse)); }

void Layer::setFlipType(FlipType type) {
    if (assign(m_detailRWLock, m_detail.general.flipType, toInt(type)))
        Q_EMIT signalFlipTypeChanged();
}

FlipType Layer::flipType() const { return static_cast<FlipType>(copyOf(m_detailRWLock, m_detail.general.flipType)); }

FlipType Layer::verImageFlipType() const {
    const FlipType present = flipType();
    const auto *const row = std::find_if(std::begin(kMirrored), std::end(kMirrored),
                                         [present](const Mirrored &mirrored) { return mirrored.from == present; });
    return row == std::end(kMirrored) ? present : row->to;
}

void Layer::setMask(const s_LayerMaskBody &mask, const QString &sender) {
    if (assign(m_detailRWLock, m_detail.mask, mask))
        Q_EMIT signalMaskChanged(sender);
}

s_LayerMaskBody Layer::mask() const { return copyOf(m_detailRWLock, m_detail.mask); }
bool Layer::maskEnable() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.mask.enable)); }

void Layer::updateMaskRect(const QRect &newRect, const QRect &oldRect) {
    auto [scaled, window] = copiesOf(m_detailRWLock, m_detail.mask, m_detail.window);
    const auto before = Helper::qRect2SRect(oldRect);
    if (window.width == 0 || window.height == 0 || before.width <= 0 || before.height <= 0)
        return;
    const auto now = Helper::qRect2SRect(newRect);
    const auto scale = [](std::int32_t &length, double rate) { length = truncated(std::round(length * rate)); };
    const double hRate = static_cast<double>(now.height) / before.height;
    const double wRate = static_cast<double>(now.width) / before.width;
    scale(scaled.top, hRate);
    scale(scaled.bottom, hRate);
    scale(scaled.left, wRate);
    scale(scaled.right, wRate);
    setMask(scaled, {});
}

void Layer::setTestColor(const s_ColorEnableRGB &color) {
    if (assign(m_detailRWLock, m_detail.testColor, color))
        Q_EMIT signalTestColorChanged();
}

s_ColorEnableRGB Layer::testColor() const { return copyOf(m_detailRWLock, m_detail.testColor); }
QColor Layer::testQColor() const { return Helper::sRGB2QColor(testColor()); }

void Layer::setOpacity(uint8_t opacity, const QString &sender) {
    if (assign(m_detailRWLock, m_detail.opacity, opacity))
        Q_EMIT signalOpacityChanged(sender);
}

uint8_t Layer::opacity() const { return static_cast<uint8_t>(copyOf(m_detailRWLock, m_detail.opacity)); }
s_LayerShadowBody Layer::shadow() const { return copyOf(m_detailRWLock, m_detail.shadow); }

void Layer::setImageQuality(const s_ImageQualityBody &quality, const QString &sender) {
    const auto before = exchanged(m_detailRWLock, m_detail.imageQuality, quality);
    if (!before)
        return;
    for (const auto &row : kQualitySignals)
        if (row.differs(*before, quality))
            Q_EMIT std::invoke(row.signal, this, sender);
}

const s_ImageQualityBody &Layer::imageQuality() const { return m_detail.imageQuality; }

} // namespace Quorix::BizModel
