#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <QDebug>

#include <functional>

namespace Quorix::BizModel {

namespace {

QString identity(const QString &ip, const QString &mac, const QString &sn) { return ip + '_' + mac + '_' + sn; }

} // namespace

Device::Device(quint16 modelId, QObject * /*parent*/) : m_modelId(modelId) {
    moveToModelThread(*this);
    initDeviceConfig();
}

Device::~Device() = default;

void Device::initDeviceConfig() {
    auto *manager = DeviceConfigManager::instance();
    const quint16 id = modelId();
    m_pDeviceConfig = manager->findDeviceConfigByID(id);
    if (m_pDeviceConfig == nullptr)
        m_pDeviceConfig = manager->initDeviceConfig(id);
}

quint16 Device::modelId() const { return static_cast<quint16>(copyOf(m_detailRWLock, m_modelId)); }

void Device::setModelId(quint16 id) {
    if (id == modelId())
        return;
    clearAll(false);
    {
        const WriteGuard guard(m_detailRWLock);
        m_modelId = id;
    }
    initDeviceConfig();
    Q_EMIT signalDeviceModelIdChanged();
}

QString Device::typeString() { return typeName(); }

QString Device::typeName() const { return m_pDeviceConfig == nullptr ? QString() : m_pDeviceConfig->Name; }

QString Device::name() { return QString::fromStdString(copyOf(m_detailRWLock, m_detail.general.name)); }

void Device::setName(const QString &name) {
    if (assign(m_detailRWLock, m_detail.general.name, name.toStdString()))
        Q_EMIT signalNameChanged();
}

template <class Read>
auto Device::readBaseInfo(Read read) {
    // A document may leave a device without a record.
    static const ProtoModel::DeviceBaseInfo none;
    const ReadGuard guard(m_deviceBaseInfoRWLock);
    const ProtoModel::DeviceBaseInfo &info = m_pDeviceBaseInfo == nullptr ? none : *m_pDeviceBaseInfo;
    return std::invoke(read, info);
}

QString Device::sn() { return QString::fromStdString(readBaseInfo(&ProtoModel::DeviceBaseInfo::sn)); }

QString Device::MAC() { return QString::fromStdString(readBaseInfo(&ProtoModel::DeviceBaseInfo::mac)); }

QString Device::readFirstNetwork(std::string ProtoModel::Device::s_NetworkBody::*field) {
    const ReadGuard guard(m_detailRWLock);
    return m_detail.networks.empty() ? QString() : QString::fromStdString(m_detail.networks.front().*field);
}

void Device::writeFirstNetwork(std::string ProtoModel::Device::s_NetworkBody::*field, const QString &value) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (m_detail.networks.empty())
            m_detail.networks.emplace_back();
        m_detail.networks.front().*field = value.toStdString();
    }
    Q_EMIT signalNetWorkChanged();
}

QString Device::IPAddress() { return readFirstNetwork(&ProtoModel::Device::s_NetworkBody::ip); }

QString Device::gateWay() { return readFirstNetwork(&ProtoModel::Device::s_NetworkBody::gateway); }

QString Device::netMask() { return readFirstNetwork(&ProtoModel::Device::s_NetworkBody::subnetMask); }

void Device::setIPAddress(const QString &ip) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (m_detail.networks.empty())
            m_detail.networks.emplace_back();
        else
            m_preDeviceIPAddress = QString::fromStdString(m_detail.networks.front().ip);
        m_detail.networks.front().ip = ip.toStdString();
    }
    Q_EMIT signalNetWorkChanged();
}

void Device::setGateWay(const QString &gateway) {
    writeFirstNetwork(&ProtoModel::Device::s_NetworkBody::gateway, gateway);
}

void Device::setNetMask(const QString &mask) {
    writeFirstNetwork(&ProtoModel::Device::s_NetworkBody::subnetMask, mask);
}

QString Device::ipMacSn() { return identity(IPAddress(), MAC(), sn()); }

QString Device::preIPMacSn() { return identity(preDeviceIPAddress(), MAC(), sn()); }

void Device::setPreDeviceIPAddress(const QString &ip) {
    const WriteGuard guard(m_detailRWLock);
    m_preDeviceIPAddress = ip;
}

QString Device::preDeviceIPAddress() { return copyOf(m_detailRWLock, m_preDeviceIPAddress); }

QString Device::mainControlVersion() {
    const auto version = readBaseInfo(&ProtoModel::DeviceBaseInfo::mainControlVersion);
    return version.empty() ? QStringLiteral("N/A") : QString::fromStdString(version);
}

uint16_t Device::localCtrlPort() { return readBaseInfo(&ProtoModel::DeviceBaseInfo::LocalCtrlPort); }

uint16_t Device::tcpProtocolVersion() { return readBaseInfo(&ProtoModel::DeviceBaseInfo::ProtocolVersion); }

uint16_t Device::udpProtocolVersion() { return readBaseInfo(&ProtoModel::DeviceBaseInfo::UDPProtocolVersion); }

uint32_t Device::maxDataLengthPerPacket() { return readBaseInfo(&ProtoModel::DeviceBaseInfo::MaxDataLengthPerPacket); }

QString Device::localIp() { return QString::fromStdString(readBaseInfo(&ProtoModel::DeviceBaseInfo::LocalIp)); }

std::list<ProtoModel::DeviceClientInfo> Device::clientControlList() {
    if (!onlineFlag())
        return {};
    return readBaseInfo(&ProtoModel::DeviceBaseInfo::ClientIps);
}

bool Device::isMasterControl() { return readBaseInfo(&ProtoModel::DeviceBaseInfo::isMasterControl); }

void Device::updateDeviceBaseInfo(ProtoModel::DeviceBaseInfo info) {
    const bool isMaster = info.isMasterControl();
    bool wasMaster = false;
    {
        const WriteGuard guard(m_deviceBaseInfoRWLock);
        if (m_pDeviceBaseInfo == nullptr)
            m_pDeviceBaseInfo = std::make_shared<ProtoModel::DeviceBaseInfo>();
        wasMaster = m_pDeviceBaseInfo->isMasterControl();
        *m_pDeviceBaseInfo = std::move(info);
    }
    if (wasMaster == isMaster)
        return;
    qInfo().noquote() << QStringLiteral("%1 device master control status changed,last ").arg(ipMacSn()) << wasMaster
                      << "Cur status" << isMaster;
    Q_EMIT signalDeviceMasterControlStatusChanged();
}

QString Device::deviceInfo() {
    // Copies first: the names below take locks of their own.
    QString text;
    {
        const ReadGuard guard(m_detailRWLock);
        if (m_detail.networks.empty())
            return {};
        text = QStringLiteral("  ") + QString::fromStdString(m_detail.general.name) + QStringLiteral("  ") +
               QString::fromStdString(m_detail.networks.front().ip);
    }
    const auto group = copyOf(m_deviceGroupInfoRWLock, m_deviceGroupInfo);
    const bool isInGroup = QString::fromStdString(group.groupId) != Constants::Device::defaultDeviceGroupId;
    return (onlineFlag() ? tr("[online]   ") : tr("[offline]   ")) +
           (isInGroup ? QString::fromStdString(group.groupName) + QStringLiteral("  ") : QStringLiteral("    ")) +
           typeString() + text;
}

} // namespace Quorix::BizModel
