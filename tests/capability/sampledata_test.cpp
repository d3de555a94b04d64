#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <gmock/gmock.h>

#include <QSet>

using namespace Quorix::BizModel;

namespace {

/// The sample deployment stands for a customer's: it has to read, and its two halves have to agree.
TEST(SampleData, ReadsAndAgrees) {
    auto *devices = DeviceConfigManager::instance();
    auto *interfaces = InterfaceConfig::instance();
    const QString data = QStringLiteral(QUORIX_DATA_DIR "/");
    QString errMsg;
    ASSERT_TRUE(devices->readConfig(data + DEVICECONFIG_FOLDER, errMsg)) << errMsg.toStdString();
    ASSERT_TRUE(interfaces->readConfig(data + INTERFACE_CONFIG_FILE, errMsg)) << errMsg.toStdString();
    EXPECT_EQ(errMsg, QString()); // no timing was dropped either

    const auto ids = devices->modelIdList();
    EXPECT_EQ(QSet<int>(ids.begin(), ids.end()).size(), 7);
    EXPECT_EQ(ids.size(), 7);
    QSet<int> types;
    for (const auto &info : interfaces->connectorInfos())
        types.insert(toInt(info.m_eType));
    EXPECT_EQ(types.size(), toInt(InterfaceConfig::ConnectorType::ConnectorTypeCnt) - 1);
    for (const DeviceConfig &device : devices->DeviceConfigs()) {
        EXPECT_EQ(devices->findDeviceConfigByID(device.ModelID), &device);
        for (const auto *cards : {&device.inputCards, &device.outputCards, &device.expCards, &device.mvrCards})
            for (const s_SubCardConfig &card : *cards) {
                const auto *layout = interfaces->findSubCardByModelId(card.m_ModelID);
                ASSERT_NE(layout, nullptr) << card.m_ModelID;
                EXPECT_EQ(layout->CardName("en"), card.m_LanguageForName["en"]);
            }
        EXPECT_LE(device.InputSlotCount + device.OutputSlotCount + device.ExpSlotCount, device.SlotCount);
    }
    for (const quint16 limited : QList<quint16>{30472, 30473, 30474})
        EXPECT_FALSE(interfaces->getCapacityGroup(limited).isEmpty());
    DeviceConfigManager::destroyInstance();
    InterfaceConfig::destroyInstance();
}

} // namespace
