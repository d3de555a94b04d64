#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/layers/layer_p.h>

#include <algorithm>
#include <iterator>
#include <tuple>

namespace Quorix::BizModel {

namespace {

using Enum::Layer::LayerType;
using Enum::Layer::SourceType;

/// Windows of the multiviewer are marked by what they show.
constexpr struct {
    LayerType type;
    SourceType source;
    const QColor &color;
} kBorderColors[] = {
    {LayerType::MVR, SourceType::Input, Constants::Layer::defaultMVRInputLayerBorderColor},
    {LayerType::MVR, SourceType::PGM, Constants::Layer::defaultMVRPGMLayerBorderColor},
    {LayerType::MVR, SourceType::PVW, Constants::Layer::defaultMVRPVWLayerBorderColor},
};

} // namespace

bool Layer::borderEnable() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.border.enable)); }
void Layer::setBorderEnabled(bool isEnabled) {
    std::ignore = assignSwitch(m_detailRWLock, m_detail.border.enable, isEnabled);
}

QSize Layer::borderSize() const {
    const auto size = copyOf(m_detailRWLock, m_detail.border.size);
    return {size.hWidth, size.vWidth};
}

void Layer::setBorderSize(const QSize &size, const QString &sender) {
    if (assign(m_detailRWLock, m_detail.border.size, {.hWidth = size.width(), .vWidth = size.height()}))
        Q_EMIT signalBorderChanged(sender);
}

QColor Layer::borderColor() const { return Helper::sRGB2QColor(copyOf(m_detailRWLock, m_detail.border.color)); }
int Layer::borderColorOpacity() const { return copyOf(m_detailRWLock, m_detail.border.color.opacity); }

void Layer::setBorderColor(const QColor &color, const QString &sender) {
    if (assign(m_detailRWLock, m_detail.border.color, Helper::qColor2RGBO(color)))
        Q_EMIT signalBorderColorChanged(sender);
}

Layer::BorderType Layer::borderType() const {
    return static_cast<BorderType>(copyOf(m_detailRWLock, m_detail.border.type));
}

void Layer::setBorderType(BorderType type) {
    const bool isEnabled = type != BorderType::Invalid;
    bool isChanged = false;
    {
        const WriteGuard guard(m_detailRWLock);
        isChanged = assign(m_detail.border.type, toInt(type));
        if (isChanged)
            m_detail.border.enable = Helper::bool2Int(isEnabled);
    }
    if (isChanged)
        Q_EMIT signalBorderChanged({});
    else
        setBorderEnabled(isEnabled);
}

QColor Layer::defaultBorderColor(LayerType type, SourceType source) {
    const auto *const row =
        std::find_if(std::begin(kBorderColors), std::end(kBorderColors),
                     [&](const auto &candidate) { return candidate.type == type && candidate.source == source; });
    return row == std::end(kBorderColors) ? Constants::Layer::defaultLayerBorderColor : row->color;
}

bool Layer::defaultBorderEnabled(LayerType type) { return type == LayerType::MVR; }

void Layer::setBorderWHRatioLocked(bool isLocked) {
    std::ignore = assign(m_detailRWLock, m_bBorderWHRatioLockd, isLocked);
}

bool Layer::borderWHRatioLockd() const { return copyOf(m_detailRWLock, m_bBorderWHRatioLockd); }

void Layer::setBorderWHRatio(qreal ratio) {
    const WriteGuard guard(m_detailRWLock);
    if (isOtherRatio(m_dBorderWHRatio, ratio))
        m_dBorderWHRatio = ratio;
}

qreal Layer::borderWHRatio() const { return copyOf(m_detailRWLock, m_dBorderWHRatio); }

void Layer::setBorderForUIColor(const QColor &color) {
    std::ignore = assign(m_detailRWLock, m_uiBorderColor, Helper::qColor2RGB(color));
}

QColor Layer::borderForUIColor() const { return Helper::sRGB2QColor(copyOf(m_detailRWLock, m_uiBorderColor)); }

} // namespace Quorix::BizModel
