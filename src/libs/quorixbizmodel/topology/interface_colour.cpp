#include <quorixbizmodel/topology/interface.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>

namespace Quorix::BizModel {

void Interface::setColorDepth(ProtoModel::s_ColorDepthBody depth) {
    const auto old = exchanged(m_detailRWLock, m_detail.colorDepths, depth);
    if (old && old->presetColorDepth != depth.presetColorDepth)
        Q_EMIT signalInterfacePresetColorDepthChanged();
    if (old && old->actualColorDepth != depth.actualColorDepth)
        Q_EMIT signalInterfaceActualColorDepthChanged();
}

ProtoModel::s_ColorDepthBody Interface::colorDepth() const { return copyOf(m_detailRWLock, m_detail.colorDepths); }

void Interface::setPresetColorDepth(ColorDepth depth) {
    if (assign(m_detailRWLock, m_detail.colorDepths.presetColorDepth, toInt(depth)))
        Q_EMIT signalInterfacePresetColorDepthChanged();
}

Interface::ColorDepth Interface::presetColorDepth() const {
    return static_cast<ColorDepth>(copyOf(m_detailRWLock, m_detail.colorDepths.presetColorDepth));
}

void Interface::setActualColorDepth(ColorDepth depth) {
    if (assign(m_detailRWLock, m_detail.colorDepths.actualColorDepth, toInt(depth)))
        Q_EMIT signalInterfaceActualColorDepthChanged();
}

Interface::ColorDepth Interface::actualColorDepth() const {
    return static_cast<ColorDepth>(copyOf(m_detailRWLock, m_detail.colorDepths.actualColorDepth));
}

Interface::ColorDepth Interface::validColorDepth() const {
    return static_cast<ColorDepth>(valid(m_detail.colorDepths.actualColorDepth, m_detail.colorDepths.presetColorDepth));
}

void Interface::setColorSpace(ProtoModel::s_ColorSpaceBody space) {
    const auto old = exchanged(m_detailRWLock, m_detail.colorSpaces, space);
    if (old && old->presetColorSpace != space.presetColorSpace)
        Q_EMIT signalInterfacePresetColorSpaceChanged();
    if (old && old->actualColorSpace != space.actualColorSpace)
        Q_EMIT signalInterfaceActualColorSpaceChanged();
}

ProtoModel::s_ColorSpaceBody Interface::colorSpace() const { return copyOf(m_detailRWLock, m_detail.colorSpaces); }

void Interface::setPresetColorSpace(ColorSpace space) {
    if (assign(m_detailRWLock, m_detail.colorSpaces.presetColorSpace, toInt(space)))
        Q_EMIT signalInterfacePresetColorSpaceChanged();
}

Interface::ColorSpace Interface::presetColorSpace() const {
    return static_cast<ColorSpace>(copyOf(m_detailRWLock, m_detail.colorSpaces.presetColorSpace));
}

void Interface::setActualColorSpace(ColorSpace space) {
    if (assign(m_detailRWLock, m_detail.colorSpaces.actualColorSpace, toInt(space)))
        Q_EMIT signalInterfaceActualColorSpaceChanged();
}

Interface::ColorSpace Interface::actualColorSpace() const {
    return static_cast<ColorSpace>(copyOf(m_detailRWLock, m_detail.colorSpaces.actualColorSpace));
}

Interface::ColorSpace Interface::validColorSpace() const {
    return static_cast<ColorSpace>(valid(m_detail.colorSpaces.actualColorSpace, m_detail.colorSpaces.presetColorSpace));
}

void Interface::setColorRange(ProtoModel::s_ColorRangeBody range) {
    const auto old = exchanged(m_detailRWLock, m_detail.colorRanges, range);
    if (old && old->presetColorRange != range.presetColorRange)
        Q_EMIT signalInterfacePresetColorRangeChanged();
    if (old && old->actualColorRange != range.actualColorRange)
        Q_EMIT signalInterfaceActualColorRangeChanged();
}

ProtoModel::s_ColorRangeBody Interface::colorRange() const { return copyOf(m_detailRWLock, m_detail.colorRanges); }

Interface::ColorRange Interface::presetColorRange() const {
    return static_cast<ColorRange>(copyOf(m_detailRWLock, m_detail.colorRanges.presetColorRange));
}

Interface::ColorRange Interface::actualColorRange() const {
    return static_cast<ColorRange>(copyOf(m_detailRWLock, m_detail.colorRanges.actualColorRange));
}

Interface::ColorRange Interface::validColorRange() const {
    return static_cast<ColorRange>(valid(m_detail.colorRanges.actualColorRange, m_detail.colorRanges.presetColorRange));
}

void Interface::setHDR(ProtoModel::s_HDRBody hdr) {
    const auto old = exchanged(m_detailRWLock, m_detail.HDR, hdr);
    if (!old)
        return;
    const auto &was = old->dynamicRange;
    const auto &is = hdr.dynamicRange;
    if (old->colorGamut.presetColorGamut != hdr.colorGamut.presetColorGamut)
        Q_EMIT signalInterfacePresetColorGamutChanged();
    if (old->colorGamut.actualColorGamut != hdr.colorGamut.actualColorGamut)
        Q_EMIT signalInterfaceAcualColorGamutChanged();
    if (was.presetDynamicRange.type != is.presetDynamicRange.type)
        Q_EMIT signalInterfacePresetDynamicRangeChanged();
    if (was.actualDynamicRange.type != is.actualDynamicRange.type)
        Q_EMIT signalInterfaceAcualDynamicRangeChanged();
    if (was.presetDynamicRange.HDR10.pqMaxCll != is.presetDynamicRange.HDR10.pqMaxCll)
        Q_EMIT signalInterfacePresetPqMaxCllChanged();
    if (was.actualDynamicRange.HDR10.pqMaxCll != is.actualDynamicRange.HDR10.pqMaxCll)
        Q_EMIT signalInterfaceAcualPqMaxCllChanged();
}

ProtoModel::s_HDRBody Interface::hdr() const { return copyOf(m_detailRWLock, m_detail.HDR); }

Interface::ColorGamut Interface::presetColorGamut() const {
    return static_cast<ColorGamut>(copyOf(m_detailRWLock, m_detail.HDR.colorGamut.presetColorGamut));
}

Interface::ColorGamut Interface::actualColorGamut() const {
    return static_cast<ColorGamut>(copyOf(m_detailRWLock, m_detail.HDR.colorGamut.actualColorGamut));
}

Interface::DynamicRange Interface::presetDynamicRange() const {
    return static_cast<DynamicRange>(copyOf(m_detailRWLock, m_detail.HDR.dynamicRange.presetDynamicRange.type));
}

Interface::DynamicRange Interface::actualDynamicRange() const {
    return static_cast<DynamicRange>(copyOf(m_detailRWLock, m_detail.HDR.dynamicRange.actualDynamicRange.type));
}

int Interface::presetPqMaxCll() const {
    return copyOf(m_detailRWLock, m_detail.HDR.dynamicRange.presetDynamicRange.HDR10.pqMaxCll);
}

int Interface::actualPqMaxCll() const {
    return copyOf(m_detailRWLock, m_detail.HDR.dynamicRange.actualDynamicRange.HDR10.pqMaxCll);
}

void Interface::setHDCPEnable(bool isEnabled) {
    if (assign(m_detailRWLock, m_detail.HDCP.enable, isEnabled))
        Q_EMIT signalHDCPInfoChanged();
}

void Interface::setHDCPPresetType(HDCPType type) {
    if (assign(m_detailRWLock, m_detail.HDCP.presetType, toInt(type)))
        Q_EMIT signalHDCPInfoChanged();
}

void Interface::setHDCPActualType(HDCPType type) {
    if (assign(m_detailRWLock, m_detail.HDCP.actualType, toInt(type)))
        Q_EMIT signalHDCPInfoChanged();
}

ProtoModel::Interface::s_HDCPBody Interface::HDCP() const { return copyOf(m_detailRWLock, m_detail.HDCP); }

Interface::HDCPType Interface::presetHDCPType() const {
    return static_cast<HDCPType>(copyOf(m_detailRWLock, m_detail.HDCP.presetType));
}

Interface::HDCPType Interface::actualHDCPType() const {
    return static_cast<HDCPType>(copyOf(m_detailRWLock, m_detail.HDCP.actualType));
}

QString Interface::presetHDCPTypeQString(bool bShowDetailType) const {
    return Helper::HDCPTypeQString(presetHDCPType(), bShowDetailType);
}

QString Interface::actualHDCPTypeQString(bool bShowDetailType) const {
    return Helper::HDCPTypeQString(actualHDCPType(), bShowDetailType);
}

} // namespace Quorix::BizModel
