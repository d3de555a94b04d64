/// The capability records of all device models, read once from a folder of device files.
#ifndef QUORIXBIZMODEL_DEVICECONFIGMANAGER_H
#define QUORIXBIZMODEL_DEVICECONFIGMANAGER_H

#include <quorix_export.h>
#include <quorixbizmodel/capability/quorixbizstruct.h>

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

#include <atomic>
#include <mutex>

namespace Quorix::BizModel {

/// Process-wide register of what each device model can do. The application calls readConfig() once, before it makes a
/// device; later only initDeviceConfig() adds to it, from the thread that makes devices. The list has no lock: read
/// it from that thread, or from any thread while no device is being made.
///
/// A record keeps its address until destroyInstance(). The list is not sharable: copying it copies every record.
class QUORIX_EXPORT DeviceConfigManager : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DeviceConfigManager)

public:
    /// The one manager, made at the first call. May be called from any thread.
    static DeviceConfigManager *instance();
    /// Destroys the manager and its records; every pointer to one dangles. No device may be alive.
    static void destroyInstance();

    /// Reads all device files ("*.xml") of the folder @p cfgFullPath, then all time-out files of its sub-folder
    /// "timeout"; a folder that doesn't exist is created. Adds to what is there already.
    /// @return false at the first failure, with the reason in @p errMsg; what was read before stays.
    bool readConfig(const QString &cfgFullPath, QString &errMsg);
    /// Reads one device file's content; part of readConfig(). Failures as there.
    bool readDeviceConfig(const QByteArray &xml, QString &errMsg);
    /// Reads one time-out file's content into the record of its model; part of readConfig(). Failures as there.
    /// @param fileName stands in front of some reasons
    bool readTimeOutConfig(const QByteArray &xml, const QString &fileName, QString &errMsg);

    /// All records, those of files in reading order, then those of initDeviceConfig(). A view: it grows.
    const QList<s_DeviceConfig> &DeviceConfigs() const { return m_listDeviceConfig; }
    /// The first record of the model, null if there is none. It lives as long as the manager.
    DeviceConfig *findDeviceConfigByID(const quint16 &nModelId);
    /// Adds a default record for the model, without a look whether there is one; null for 65535.
    DeviceConfig *initDeviceConfig(const quint16 &nModelId);
    /// The model ids of all records, in their order.
    QList<unsigned short> modelIdList() const;

    /// Label of a slot: "EXP", "In1", "Out1" and so on, untranslated; empty for a slot in no range or a model without
    /// a record.
    QString subCardIndexInfo(const quint16 &nDeviceModelId, uint8_t slotId);
    /// Display name of a card in a slot; empty for a card that the slot's ranges don't list, or a model without a
    /// record.
    QString subCardName(const quint16 &nDeviceModelId, const quint16 &subCardModelId, const quint8 &slotId);

private:
    DeviceConfigManager();
    ~DeviceConfigManager() override = default;

    static std::atomic<DeviceConfigManager *> m_pInstance;
    static std::mutex m_muDeviceCfgMgr; ///< guards the making and destroying of m_pInstance

    QList<s_DeviceConfig> m_listDeviceConfig; ///< never sharable: devices hold pointers to its records
};

} // namespace Quorix::BizModel

#endif
