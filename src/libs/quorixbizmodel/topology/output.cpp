#include <quorixbizmodel/topology/output.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <utility>

namespace Quorix::BizModel {

namespace {

/// HDR of an output that nobody has set.
ProtoModel::s_HDRBody defaultHdr() {
    ProtoModel::s_HDRBody hdr;
    hdr.colorGamut.presetColorGamut = toInt(Enum::Interface::ColorGamut::Rec_709);
    hdr.dynamicRange.presetDynamicRange.type = toInt(Enum::Interface::DynamicRange::SDR);
    return hdr;
}

} // namespace

Output::Output() { initHDRDefaultValue(); }

Output::Output(std::weak_ptr<Device> device, uint8_t slotId, uint8_t connectorId)
    : Interface(std::move(device), slotId, connectorId) {
    initHDRDefaultValue();
}

Output::Output(const Output &other) : Interface(other) { *this = other; }

Output &Output::operator=(const Output &other) {
    if (this == &other)
        return *this;
    Interface::operator=(other);
    const int zOrder = copyOf(other.m_detailRWLock, other.m_outputZorder);
    const auto timing = copyOf(other.m_detailRWLock, other.m_currentTiming);
    const auto para = copyOf(other.m_detailRWLock, other.m_paraBeforeAddToScreen);
    const WriteGuard guard(m_detailRWLock);
    m_outputZorder = zOrder;
    m_currentTiming = timing;
    m_paraBeforeAddToScreen = para;
    return *this;
}

Output::~Output() = default;

void Output::initHDRDefaultValue() { m_detail.HDR = defaultHdr(); }

int Output::zOrder() const { return copyOf(m_detailRWLock, m_outputZorder); }

void Output::setZorder(int zOrder) {
    if (assign(m_detailRWLock, m_outputZorder, zOrder))
        Q_EMIT outputZorderChanged();
}

std::shared_ptr<Interface> Output::copyPartner() const {
    const auto device = owerDevice().lock();
    return device == nullptr ? nullptr : device->findCopyInterface(interfaceFullId()).lock();
}

void Output::backupParaBeforeAdd2Screen() {
    const WriteGuard guard(m_detailRWLock);
    m_paraBeforeAddToScreen = {.colorDepths = m_detail.colorDepths,
                               .colorSpaces = m_detail.colorSpaces,
                               .colorRanges = m_detail.colorRanges,
                               .formatMapping = m_detail.formatMapping,
                               .timing = m_detail.presetTiming};
}

void Output::reloadParaBeforeAdd2Screen() {
    const auto para = copyOf(m_detailRWLock, m_paraBeforeAddToScreen);
    pushReference(*this, para);
    if (const auto partner = copyPartner())
        pushReference(*partner, para);
}

void Output::resetParamAfterRemovedByScreen() {
    const auto reset = [](Interface &interface) {
        interface.setTestPattern({});
        interface.setImageQuality(neutralImageQuality());
    };
    reset(*this);
    resetHDRParam();
    if (const auto partner = copyPartner())
        reset(*partner);
}

void Output::resetHDRParam() {
    setHDR(defaultHdr());
    if (const auto partner = copyPartner())
        partner->setHDR(defaultHdr());
}

OutputState Output::state() const {
    const ReadGuard guard(m_detailRWLock);
    return {stateWhileLocked(), m_outputZorder};
}

} // namespace Quorix::BizModel
