#include <quorixbizmodel/capability/configxml_p.h>
#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

namespace Quorix::BizModel {

namespace {

/// A slot range, up to and without start plus count.
struct SlotRange {
    int start;
    int count;
    bool holds(int slot) const { return slot >= start && slot < start + count; }
};

/// The files of a folder that is made when it isn't there; false if that fails.
bool listFiles(const QString &folder, QFileInfoList &files) {
    const QDir dir(folder, QStringLiteral("*.xml"), QDir::Name | QDir::IgnoreCase, QDir::Files);
    if (folder.isEmpty() || (!dir.exists() && !QDir().mkpath(folder)))
        return false;
    files = dir.entryInfoList();
    return true;
}

} // namespace

std::atomic<DeviceConfigManager *> DeviceConfigManager::m_pInstance{nullptr};
std::mutex DeviceConfigManager::m_muDeviceCfgMgr;

DeviceConfigManager::DeviceConfigManager() { m_listDeviceConfig.setSharable(false); }

DeviceConfigManager *DeviceConfigManager::instance() {
    if (m_pInstance.load(std::memory_order_acquire) == nullptr) {
        const std::lock_guard guard(m_muDeviceCfgMgr);
        if (m_pInstance.load(std::memory_order_relaxed) == nullptr)
            m_pInstance.store(new DeviceConfigManager, std::memory_order_release);
    }
    return m_pInstance.load(std::memory_order_acquire);
}

void DeviceConfigManager::destroyInstance() {
    if (m_pInstance.load(std::memory_order_acquire) == nullptr)
        return;
    DeviceConfigManager *last = nullptr;
    {
        const std::lock_guard guard(m_muDeviceCfgMgr);
        last = m_pInstance.exchange(nullptr);
    }
    delete last; // unlocked: a slot of its signal destroyed() may ask for the instance
}

bool DeviceConfigManager::readConfig(const QString &cfgFullPath, QString &errMsg) {
    const auto readFolder = [&errMsg](const QString &folder, const auto &readFile) {
        QFileInfoList files;
        if (!listFiles(folder, files)) {
            errMsg = tr("Invalid file path!\n%1").arg(folder);
            return false;
        }
        for (const QFileInfo &info : qAsConst(files)) {
            QFile file(info.absoluteFilePath());
            if (!file.open(QIODevice::ReadOnly)) {
                errMsg = tr("Fail to open file [%1]!").arg(folder);
                return false;
            }
            if (!readFile(file.readAll(), info.fileName()))
                return false;
        }
        return true;
    };
    return readFolder(cfgFullPath,
                      [&](const QByteArray &xml, const QString &) { return readDeviceConfig(xml, errMsg); }) &&
           readFolder(QStringLiteral("%1/%2").arg(cfgFullPath, QLatin1String(DEVICETIMEOUTCONFIG_FOLDER)),
                      [&](const QByteArray &xml, const QString &name) { return readTimeOutConfig(xml, name, errMsg); });
}

DeviceConfig *DeviceConfigManager::findDeviceConfigByID(const quint16 &nModelId) {
    for (s_DeviceConfig &config : m_listDeviceConfig)
        if (config.ModelID == nModelId)
            return &config;
    return nullptr;
}

DeviceConfig *DeviceConfigManager::initDeviceConfig(const quint16 &nModelId) {
    if (nModelId == Invalid_DeviceModelId)
        return nullptr;
    m_listDeviceConfig.append(s_DeviceConfig());
    m_listDeviceConfig.last().ModelID = nModelId;
    return &m_listDeviceConfig.last();
}

QList<unsigned short> DeviceConfigManager::modelIdList() const {
    QList<unsigned short> ids;
    for (const s_DeviceConfig &config : m_listDeviceConfig)
        ids.append(config.ModelID);
    return ids;
}

QString DeviceConfigManager::subCardIndexInfo(const quint16 &nDeviceModelId, uint8_t slotId) {
    const DeviceConfig *config = findDeviceConfigByID(nDeviceModelId);
    if (config == nullptr)
        return {};
    const SlotRange inputs{config->InputSlotStartIndex, config->InputSlotCount};
    const SlotRange outputs{config->OutputSlotStartIndex, config->OutputSlotCount};
    if (SlotRange{config->ExpSlotStartIndex, config->ExpSlotCount}.holds(slotId))
        return QStringLiteral("EXP");
    if (inputs.holds(slotId))
        return QStringLiteral("In%1").arg(slotId - inputs.start + 1);
    if (outputs.holds(slotId))
        return QStringLiteral("Out%1").arg(slotId - outputs.start + 1);
    return {};
}

QString DeviceConfigManager::subCardName(const quint16 &nDeviceModelId, const quint16 &subCardModelId,
                                         const quint8 &slotId) {
    const DeviceConfig *config = findDeviceConfigByID(nDeviceModelId);
    if (config == nullptr)
        return {};
    const struct {
        SlotRange range;
        const QList<s_SubCardConfig> &cards;
    } rows[] = {
        {{config->ExpSlotStartIndex, config->ExpSlotCount}, config->expCards},
        {{config->AuxSlotStartIndex, config->AuxSlotCount}, config->auxCards},
        {{config->InputSlotStartIndex, config->InputSlotCount}, config->inputCards},
        {{config->OutputSlotStartIndex, config->OutputSlotCount}, config->outputCards},
    };
    for (const auto &row : rows)
        if (row.range.holds(slotId))
            if (const s_SubCardConfig *card = s_DeviceConfig::findSubCardByModelId(row.cards, subCardModelId))
                return card->CardName();
    return {};
}

} // namespace Quorix::BizModel
