#include <quorixbizmodel/capability/deviceconfigmanager.h>

#include <QtGlobal>

#include <cstddef>
#include <cstdint>

using namespace Quorix::BizModel;

/// Any text as a device file and as the time-out file of a known model; what was read answers questions.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QByteArray xml(reinterpret_cast<const char *>(data), static_cast<int>(size));
    auto *manager = DeviceConfigManager::instance();
    const DeviceConfig *known = manager->initDeviceConfig(29955);
    QString errMsg;
    manager->readDeviceConfig(xml, errMsg);
    manager->readTimeOutConfig(xml, QStringLiteral("fuzz.xml"), errMsg);
    for (const DeviceConfig &config : manager->DeviceConfigs())
        for (int slot = 0; slot < 256; slot += 15) {
            const auto index = static_cast<quint8>(slot);
            manager->subCardIndexInfo(config.ModelID, index);
            manager->subCardName(config.ModelID, 30464, index);
        }
    known->findTimeOutByBcAndFc(252, 11);
    DeviceConfigManager::destroyInstance();
    return 0;
}
