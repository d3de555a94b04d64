/// Devices for tests, in a few words.
#ifndef QUORIX_TESTS_BUILDERS_H
#define QUORIX_TESTS_BUILDERS_H

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <support/eventlog.h>
#include <support/messagelog.h>

#include <QCoreApplication>
#include <QFile>

#include <gmock/gmock.h>

#include <atomic>
#include <memory>
#include <thread>

namespace Quorix::Tests {

/// Empties the hub before and after a test.
struct HubScope {
    HubScope() { reset(); }
    ~HubScope() { reset(); }
    Q_DISABLE_COPY_MOVE(HubScope)

    static void reset() {
        QCoreApplication::sendPostedEvents();
        BizModel::DeviceList::instance()->clear();
        BizModel::DeviceList::instance()->setActivtedDevice({}, false);
        BizModel::DeviceList::instance()->clearDeviceScreenLayersChangedType();
    }
};

/// What makes a device findable. Bytes: the last one of MAC and of serial number, the others 0.
struct Identity {
    QString name = QStringLiteral("N/A");
    QString ip = QStringLiteral("192.168.0.10");
    std::uint8_t mac = 0;
    std::uint8_t sn = 0;
};

/// A device, on the hub already.
inline std::shared_ptr<BizModel::Device> appendedDevice(const Identity &identity = {}, quint16 modelId = 29958) {
    auto device = std::make_shared<BizModel::Device>(modelId);
    ProtoModel::DeviceBaseInfo info;
    info.MAC[5] = identity.mac;
    info.SN[7] = identity.sn;
    device->updateDeviceBaseInfo(info);
    device->setName(identity.name);
    device->setIPAddress(identity.ip);
    BizModel::DeviceList::instance()->append(device);
    return device;
}

/// The lines of a file in the test's own folder; a missing file has none.
inline QStringList readLines(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

/// A live reference to an object of a class that a test can't make: it says who it is, and must not be used.
template <class T>
std::shared_ptr<T> standIn() {
    auto object = std::make_shared<std::max_align_t>();
    return {object, reinterpret_cast<T *>(object.get())};
}

/// Runs @p work on a thread of its own, and @p meanwhile here, again and again, until that has ended.
template <class Work, class Meanwhile>
void runBeside(const Work &work, const Meanwhile &meanwhile) {
    std::atomic<bool> isDone = false;
    std::thread other([&] { work(), isDone = true; });
    while (!isDone)
        meanwhile();
    other.join();
}

} // namespace Quorix::Tests

#endif
