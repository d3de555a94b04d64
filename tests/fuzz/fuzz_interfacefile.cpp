#include <quorixbizmodel/capability/interfaceconfig.h>

#include <QtGlobal>

#include <cstddef>
#include <cstdint>

using namespace Quorix::BizModel;

/// Any text as the interface file; the cards and connector types read answer questions.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    auto *config = InterfaceConfig::instance();
    QString errMsg;
    config->readConfigData(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)), errMsg);
    for (const InterfaceConfig::SubCard *card : config->getSubCards()) {
        const auto id = static_cast<quint16>(card->m_ModelID);
        card->getPostionForConnectorInfo();
        for (const InterfaceConfig::CardConnector &connector : card->getCardConnector()) {
            InterfaceConfig::CardConnector found;
            const int capacity = connector.Connector.capacityMode;
            config->CardConnectorInfo(id, connector.Connector, found);
            config->connectorBackupPos(id, capacity, connector.Connector.id);
            config->getSubCardCapacity(id, connector.ValueGroup, capacity, connector.BackupPos);
            config->getSubCardCardConnectors(id, connector.ValueGroup, capacity, connector.OriginType);
        }
        config->isSubCardSwitch(id);
        config->findSectionNameByCode(id, 256, 1);
    }
    for (const InterfaceConfig::ConnectorInfo &info : config->connectorInfos()) {
        InterfaceConfig::ConnectorInfo filtered;
        InterfaceConfig::ConnectorCapacity limits;
        using Direction = InterfaceConfig::InterfaceType;
        config->findConnectorInfo(InterfaceConfig::CapacityMode::_4K, Direction::Input, info.m_eType, filtered);
        config->findConnectorCapacity(InterfaceConfig::CapacityMode::_SL, Direction::Output, info.m_eType, limits);
    }
    InterfaceConfig::destroyInstance();
    return 0;
}
