/// What the objects inside a device join their signals with, and the mechanisms beside it.
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/hub/relay.h>
#include <support/builders.h>
#include <support/eventlog.h>

#include <gmock/gmock.h>

#include <thread>

namespace Quorix::Tests {

using namespace BizModel;
using testing::ElementsAre;
using testing::IsEmpty;

/// Plays a layer: its signals have the arguments of some of a layer's.
class Source : public QObject {
    Q_OBJECT

public:
    void createConnects(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen) {
        const Relay join(this, m_relays, device, screen, std::weak_ptr<Layer>(m_layer));
        join(&Source::signalNameChanged, &DeviceList::signalLayerNameChanged);
        join(&Source::signalCropChanged, &DeviceList::signalLayerCropChanged);
        join(&Source::signalRectChanged, &DeviceList::signalWindowRectChanged);
        join.call(&Source::signalLockChanged, [](const auto &...owners) {
            Q_EMIT DeviceList::instance()->signalWindowWHRatioLockedStateChanged(owners..., QString());
        });
    }
    std::shared_ptr<Layer> m_layer = standIn<Layer>();

Q_SIGNALS:
    void signalNameChanged();
    void signalCropChanged(const QString &sender);
    void signalRectChanged(const QRect &before, const QRect &after);
    void signalLockChanged();

private:
    RelaySet m_relays;
};

struct Relays : testing::Test {
    HubScope scope;
    std::shared_ptr<Device> device = appendedDevice();
    std::shared_ptr<Screen> screen = standIn<Screen>();
    std::unique_ptr<Source> source = std::make_unique<Source>();
    EventLog log{DeviceList::instance()};

    void SetUp() override {
        log.name(device.get(), QStringLiteral("device"));
        log.name(screen.get(), QStringLiteral("screen"));
        log.name(source->m_layer.get(), QStringLiteral("layer"));
        source->createConnects(device, screen);
    }
};

TEST_F(Relays, PutTheOwnersInFront) {
    Q_EMIT source->signalNameChanged();
    Q_EMIT source->signalCropChanged(QStringLiteral("panel"));
    Q_EMIT source->signalRectChanged({0, 0, 64, 64}, {1, 2, 3, 4});
    Q_EMIT source->signalLockChanged();
    EXPECT_THAT(log.take(),
                ElementsAre(QStringLiteral("signalLayerNameChanged(device, screen, layer)"),
                            QStringLiteral("signalLayerCropChanged(device, screen, layer, \"panel\")"),
                            QStringLiteral("signalWindowRectChanged(device, screen, layer, 64x64+0+0, 3x4+1+2)"),
                            QStringLiteral("signalWindowWHRatioLockedStateChanged(device, screen, layer, \"\")")));
}

TEST_F(Relays, AreJoinedOnceAndRenewedForAnotherOwner) {
    source->createConnects(device, screen);
    Q_EMIT source->signalNameChanged();
    const auto other = standIn<Screen>();
    log.name(other.get(), QStringLiteral("other"));
    source->createConnects(device, other);
    Q_EMIT source->signalNameChanged();
    EXPECT_THAT(log.take(), ElementsAre(QStringLiteral("signalLayerNameChanged(device, screen, layer)"),
                                        QStringLiteral("signalLayerNameChanged(device, other, layer)")));
}

TEST_F(Relays, KeepNobodyAlive) {
    EXPECT_EQ(screen.use_count(), 1);
    EXPECT_EQ(source->m_layer.use_count(), 1);
    screen.reset();
    Q_EMIT source->signalNameChanged();
    EXPECT_THAT(log.take(), ElementsAre(QStringLiteral("signalLayerNameChanged(device, null, layer)")));
}

TEST_F(Relays, RunOnTheEmittingThread) {
    QObject listener;
    std::thread::id heardOn;
    QObject::connect(
        DeviceList::instance(), &DeviceList::signalLayerNameChanged, &listener,
        [&] { heardOn = std::this_thread::get_id(); }, Qt::DirectConnection);
    std::thread emitter([&] { Q_EMIT source->signalNameChanged(); });
    const auto emitterId = emitter.get_id();
    emitter.join();
    EXPECT_EQ(heardOn, emitterId);
}

TEST_F(Relays, AreSilentWhileTheSourceIsLocked) {
    {
        const ObjectSignalLocker outer(source.get());
        Q_EMIT source->signalNameChanged();
        { const ObjectSignalLocker inner(source.get()); }
        EXPECT_FALSE(source->signalsBlocked()); // an inner end unblocks, whatever the state was before
    }
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST(Lists, SearchTakeSortAndCount) {
    const auto a = std::make_shared<int>(2);
    const auto b = std::make_shared<int>(1);
    const auto c = std::make_shared<int>(2);
    std::vector<std::shared_ptr<int>> list{a, nullptr, b, c};
    QReadWriteLock lock;
    EXPECT_EQ(weakReferences(lock, list).size(), 3);
    EXPECT_EQ(findFirst(list, [](int value) { return value == 2; }), a);
    EXPECT_EQ(findFirst(list, [](int value) { return value == 9; }), nullptr);
    EXPECT_EQ(takePointer(lock, list, a.get()), a);
    EXPECT_EQ(takePointer(lock, list, a.get()), nullptr);
    EXPECT_EQ(takePointer(list, static_cast<int *>(nullptr)), nullptr);
    EXPECT_THAT(list, ElementsAre(nullptr, b, c));
    list = {a, c, b};
    sortByKey(list, [](const auto &entry) { return *entry; });
    EXPECT_THAT(list, ElementsAre(b, a, c));
    EXPECT_EQ(lowestFree<quint8>(0, [](int id) { return id < 3; }), 3);
    const auto name = [](int number) { return QStringLiteral("Screen%1").arg(number); };
    EXPECT_EQ(firstFreeName(name, [&](const QString &taken) { return taken == name(1); }), name(2));
}

} // namespace Quorix::Tests

#include "relay_test.moc"
