/// Family 1: each signal of a device comes out of the hub once, with the device in front.
#include <quorixbizmodel/files/file.h>
#include <support/builders.h>

#include <QMetaMethod>

#include <map>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using testing::ElementsAre;
using testing::IsEmpty;

/// What each signal of a device becomes on the hub.
const std::vector<std::pair<QByteArray, QString>> &family() {
    static const auto rows = [] {
        std::vector<std::pair<QByteArray, QString>> read;
        for (const auto &line : readLines(QUORIX_TEST_DIR "/family_one.txt"))
            read.emplace_back(line.section(" -> ", 0, 0).toLatin1(), line.section(" -> ", 1));
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
        log.name(device.get(), "device");
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

    void emitAllElsewhere() {
        std::thread([this] {
            for (const auto &row : family())
                emitSignal(row.first);
        }).join();
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
    for (const auto &[name, event] : family()) {
        emitSignal(name);
        const auto direct = log.take(); // all but the activated screen come at once
        EXPECT_EQ(direct.isEmpty(), name == "signalActivedScreenChanged");
        QCoreApplication::sendPostedEvents();
        EXPECT_THAT(direct + log.take(), ElementsAre(event));
    }
}

TEST_F(FamilyOne, LeavesFiveSignalsToDirectListeners) {
    for (const char *name : {"signalSubCardChanged", "signalInterfaceMappingChanged",
                             "signalDynamicRangConversionChanged", "signalActivedOutputChanged"})
        emitSignal(name);
    Q_EMIT device->signalUpdateOperatorProcess("upgrading");
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(FamilyOne, QueuesWhateverComesFromAnotherThread) {
    emitAllElsewhere();
    EXPECT_THAT(log.take(), IsEmpty());
    QCoreApplication::sendPostedEvents();
    QStringList expected;
    for (const auto &row : family())
        expected += row.second;
    EXPECT_EQ(log.take(), expected);
}

TEST_F(FamilyOne, DropsLateCallsOfAGoneDevice) {
    emitAllElsewhere();
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
    unshared.setName("alone");
    Q_EMIT unshared.signalUserKeyClear();
    hub->slotPageChanged(3); // of no device
    EXPECT_THAT(log.take(), ElementsAre("signalPageChanged(3)"));
}

} // namespace
