/// The thread that stores the model.
#ifndef QUORIXBIZMODEL_SAVEDEVICEDATATHREAD_H
#define QUORIXBIZMODEL_SAVEDEVICEDATATHREAD_H

#include <quorix_export.h>
#include <quorixbizmodel/common/modelreferences.h>

#include <QMutex>
#include <QString>
#include <QThread>
#include <QWaitCondition>

#include <atomic>

namespace Quorix::BizModel {

/// Stores all devices beside the application's thread, each time that it is woken; it has no timer. The hub owns it:
/// DeviceList::initSaveDeviceDataThread() makes it, DeviceList::saveDeviceDataThread() hands it out.
///
/// A wake that comes while a save runs is lost, so that a change made meanwhile may be stored at the next wake only:
/// who has to be sure waits for saveDeviceInfoFinished() and wakes again.
///
/// Threads. All operations may be called from any thread but its own.
class QUORIX_EXPORT SaveDeviceDataThread : public QThread {
    Q_OBJECT

public:
    /// @param path the root folder, as Serailizer takes it
    SaveDeviceDataThread(QString path, QObject *parent);
    /// Stops the thread; a save that runs is finished first.
    ~SaveDeviceDataThread() override;
    Q_DISABLE_COPY_MOVE(SaveDeviceDataThread)

    /// Asks for one save; the first wake starts the thread. Not while devices are loaded, see
    /// Serailizer::unserailize().
    void wakeSaveDeviceDataTask();
    /// Holds saves off, or lets them go on from the next wake. A save that runs goes on.
    void setTemporaryStop(bool isStopped);
    bool isSavingData();
    /// Waits for a save that has begun, looking every 100 ms. Right after a wake it may not have begun yet: then this
    /// returns at once, and saveDeviceInfoFinished() is what to wait for.
    void waitForSavingDataFinished();
    /// Saves on the calling thread: all devices, or one.
    void saveDevicesInfor();
    void saveDevicesInfor(std::weak_ptr<Device> device);
    /// Ends the thread, after a save that runs. For good: one that is woken later ends at once and saves nothing.
    void stopRun();

Q_SIGNALS:
    /// A save is over, well or not. Comes on this thread.
    void saveDeviceInfoFinished();

protected:
    void run() override;

private:
    /// Sleeps until the next wake, unless the thread is to stop or @p isAwake says that there is no need.
    template <class Predicate>
    void sleepUnless(Predicate isAwake);

    std::atomic_bool m_bStop = false;
    std::atomic_bool m_bTempporaryStop = false;
    QString m_deviceConfigFilePath;
    QMutex m_mutex; ///< for m_cond alone
    QWaitCondition m_cond;
    std::atomic_bool m_bSavingData = false;
};

} // namespace Quorix::BizModel

#endif
