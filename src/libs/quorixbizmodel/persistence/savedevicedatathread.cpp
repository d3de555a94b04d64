#include <quorixbizmodel/persistence/savedevicedatathread.h>

#include <quorixbizmodel/common/guards.h>
#include <quorixbizmodel/persistence/serailizer.h>

#include <QDebug>

#include <cstdlib>
#include <tuple>
#include <utility>

namespace Quorix::BizModel {

namespace {

template <class... Device>
void save(const QString &path, const Device &...device) {
    if (!Serailizer(path).serailize(device...))
        qWarning() << "Fail to serailize model data.";
    // What other programs have written with the model goes to the disk, too; what comes of it isn't looked at.
    std::ignore = std::system("sync");
}

} // namespace

SaveDeviceDataThread::SaveDeviceDataThread(QString path, QObject *parent)
    : QThread(parent), m_deviceConfigFilePath(std::move(path)) {
    setObjectName(QStringLiteral("SaveDeviceDataThread"));
}

SaveDeviceDataThread::~SaveDeviceDataThread() { stopRun(); }

void SaveDeviceDataThread::wakeSaveDeviceDataTask() {
    if (!isRunning()) {
        start();
        return;
    }
    const MutexGuard guard(m_mutex);
    m_cond.wakeAll();
}

void SaveDeviceDataThread::setTemporaryStop(bool isStopped) { m_bTempporaryStop = isStopped; }

bool SaveDeviceDataThread::isSavingData() { return m_bSavingData; }

void SaveDeviceDataThread::waitForSavingDataFinished() {
    while (m_bSavingData)
        msleep(100);
}

void SaveDeviceDataThread::saveDevicesInfor() { save(m_deviceConfigFilePath); }

void SaveDeviceDataThread::saveDevicesInfor(std::weak_ptr<Device> device) { save(m_deviceConfigFilePath, device); }

template <class Predicate>
void SaveDeviceDataThread::sleepUnless(Predicate isAwake) {
    // Asked under the mutex: whoever changes a flag and then wakes is not missed.
    const MutexGuard guard(m_mutex);
    if (!m_bStop && !isAwake())
        m_cond.wait(&m_mutex);
}

void SaveDeviceDataThread::run() {
    qDebug() << "-----> [DeviceSave] Thread running.";
    while (!m_bStop) {
        if (m_bTempporaryStop) {
            sleepUnless([this] { return !m_bTempporaryStop; });
            continue;
        }
        m_bSavingData = true;
        qCritical() << "Begin to save data";
        saveDevicesInfor();
        qCritical() << "End to save data";
        m_bSavingData = false;
        Q_EMIT saveDeviceInfoFinished();
        sleepUnless([] { return false; });
    }
    qDebug() << "-----> [DeviceSave] Thread stop.";
}

void SaveDeviceDataThread::stopRun() {
    m_bStop = true;
    {
        const MutexGuard guard(m_mutex);
        m_cond.wakeAll();
    }
    if (isRunning() && !wait())
        qWarning() << "-----> [DeviceSave] Thread no normal exit.";
    qDebug() << "-----> [DeviceSave] Thread normal exit.";
}

} // namespace Quorix::BizModel
