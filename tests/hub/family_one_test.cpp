/// Family 1: each signal of a device comes out of the hub once, with the device in front.
#include <quorixbizmodel/files/file.h>
#include <support/builders.h>
#include <support/eventlog.h>

#include <gmock/gmock.h>

#include <QMetaMethod>

#include <map>
#include <thread>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using testing::ElementsAre;
using testing::IsEmpty;

struct Row {
    QByteArray deviceSignal;
    QString event;
};

/// What each signal of a device becomes on the hub.
const std::vector<Row> &family() {
    static const auto rows = [] {
        std::vector<Row> read;
        for (const auto &line : readLines(QStringLiteral(QUORIX_TEST_DIR "/family_one.txt")))
            read.push_back(
                {line.section(QStringLiteral(" -> "), 0, 0).toLatin1(), line.section(QStringLiteral(" -> "), 1)});
        return read;
    }();
    return rows;
}

struct FamilyOne : testing::Test {
    HubScope scope;
    EventLog log{DeviceList::instance()};
    std::map<QByteArray, std::shared_ptr<void>> values; ///< an argument of each type, by the type's spelling
    std::shared_ptr<Device> device;

    void SetUp() override {
        device = appendedDevice();
        log.name(device.get(), QStringLiteral("device"));
        add<Subcard>("Subcard", "subcard");
        add<Input>("Input", "input");
        add<Output>("Output", "output");
        add<Screen>("Screen", "screen");
        add<MVRScreen>("MVRScreen", "mvrScreen");
        add<Preset>("Preset", "preset");
        add<File>("File", "file", std::make_shared<File>()); // the hub asks it for its class
        add<Image>("Image", "image");
        values["int"] = std::make_shared<int>(7);
        log.take();
    }

    template <class T>
    void add(const QByteArray &type, const char *name, const std::shared_ptr<T> &object = standIn<T>()) {
        log.name(object.get(), QString::fromLatin1(name));
        values["std::weak_ptr<" + type + ">"] = std::make_shared<std::weak_ptr<T>>(object);
        values["std::shared_ptr<" + type + ">"] = std::make_shared<std::shared_ptr<T>>(object);
    }

    /// Emits a signal of the device with an argument of each type that it takes.
    void emitSignal(const QByteArray &name) {
        const QMetaObject *meta = device->metaObject();
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            if (meta->method(i).name() != name)
                continue;
            QGenericArgument arguments[2];
            const auto types = meta->method(i).parameterTypes();
            for (int k = 0; k < types.size(); ++k)
                arguments[k] = QGenericArgument(types.at(k).constData(), values.at(types.at(k)).get());
            ASSERT_TRUE(meta->method(i).invoke(device.get(), Qt::DirectConnection, arguments[0], arguments[1]));
            return;
        }
        FAIL() << "no signal " << name.constData();
    }
};

TEST_F(FamilyOne, RepeatsEachSignalOnceEvenAfterASecondAppending) {
    DeviceList::instance()->remove(device);
    DeviceList::instance()->append(device);
    log.take();
    for (const auto &[deviceSignal, event] : family()) {
        emitSignal(deviceSignal);
        QCoreApplication::sendPostedEvents();
        EXPECT_THAT(log.take(), ElementsAre(event)) << deviceSignal.constData();
    }
}

TEST_F(FamilyOne, LeavesFiveSignalsToDirectListeners) {
    for (const char *name : {"signalSubCardChanged", "signalInterfaceMappingChanged",
                             "signalDynamicRangConversionChanged", "signalActivedOutputChanged"})
        emitSignal(name);
    Q_EMIT device->signalUpdateOperatorProcess(QStringLiteral("upgrading"));
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(FamilyOne, QueuesTheActivatedScreenAndNothingElse) {
    for (const auto &[deviceSignal, event] : family()) {
        emitSignal(deviceSignal);
        EXPECT_EQ(log.take().isEmpty(), deviceSignal == "signalActivedScreenChanged") << deviceSignal.constData();
    }
}

TEST_F(FamilyOne, QueuesWhateverComesFromAnotherThread) {
    std::thread([this] {
        for (const auto &row : family())
            emitSignal(row.deviceSignal);
    }).join();
    EXPECT_THAT(log.take(), IsEmpty());
    QCoreApplication::sendPostedEvents();
    QStringList expected;
    for (const auto &row : family())
        expected += row.event;
    EXPECT_EQ(log.take(), expected);
}

TEST_F(FamilyOne, DropsLateCallsOfAGoneDevice) {
    std::thread([this] {
        for (const auto &row : family())
            emitSignal(row.deviceSignal);
    }).join();
    DeviceList::instance()->clear();
    device.reset();
    log.take();
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(FamilyOne, SlotsWithoutASharedSenderDoNothing) {
    auto *hub = DeviceList::instance();
    hub->slotDeviceNameChanged();
    hub->slotRestoreDefLayout();
    Device unshared(29958);
    QObject::connect(&unshared, &Device::signalNameChanged, hub, &DeviceList::slotDeviceNameChanged);
    QObject::connect(&unshared, &Device::signalUserKeyClear, hub, &DeviceList::slotClearUserKey);
    unshared.setName(QStringLiteral("alone"));
    Q_EMIT unshared.signalUserKeyClear();
    EXPECT_THAT(log.take(), IsEmpty());
    hub->slotPageChanged(3);
    EXPECT_THAT(log.take(), ElementsAre(QStringLiteral("signalPageChanged(3)")));
}

TEST_F(FamilyOne, AListenerMayCallBackIntoTheModelFromAnySignal) {
    QObject listener;
    int calls = 0;
    const auto callBack = [&] {
        if (++calls > 1000)
            return;
        DeviceList::instance()->findDevice(device->IPAddress(), device->MAC(), device->sn());
        device->deviceInfo();
        device->setName(device->name().left(8) + QString::number(calls % 2));
        device->setMultiScreens(!device->isMultiScreens());
        device->clearAll(true);
    };
    for (const auto signal :
         {&Device::signalNetWorkChanged, &Device::signalOnlineChanged, &Device::signalOperationStatusChanged,
          &Device::signalGenlockSignalChanged, &Device::signalDeviceModelIdChanged, &Device::signalNameChanged,
          &Device::signalDeviceMasterControlStatusChanged, &Device::signalScreenMultilStateChanged})
        QObject::connect(device.get(), signal, &listener, callBack);
    device->setIPAddress(QStringLiteral("192.168.0.11"));
    device->setDeviceOnlineFlag(true);
    device->setOperationStatus(Enum::Device::OperationStatus::Loading);
    device->setDeviceOnlineFlag(false);
    device->setModelId(29959);
    EXPECT_GT(calls, 5);
}

} // namespace
