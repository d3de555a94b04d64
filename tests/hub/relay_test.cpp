/// Relays of the objects inside a device, played by those of a layer, and the mechanisms beside them.
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/layers/layerkinds.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <support/builders.h>

namespace Quorix::Tests {

using namespace BizModel;
using testing::ElementsAre;

struct Relays : testing::Test {
    HubScope scope;
    std::shared_ptr<Device> device = appendedDevice();
    std::shared_ptr<RegularScreen> screen = std::make_shared<RegularScreen>();
    std::shared_ptr<Layer> layer = std::make_shared<RegularLayer>();
    EventLog log{DeviceList::instance()};

    void SetUp() override {
        join(*screen, "screen");
        log.name(device.get(), "device");
        log.name(layer.get(), "layer");
    }
    void join(Screen &owner, const QString &name) {
        owner.setOwerDevice(device);
        log.name(&owner, name);
        layer->createConnects(owner.shared_from_this());
    }
};

TEST_F(Relays, AreJoinedOnceAndRenewedForAnotherOwner) {
    join(*screen, "screen");
    layer->setName("a");
    const auto other = std::make_shared<RegularScreen>();
    join(*other, "other");
    layer->setName("b");
    EXPECT_THAT(log.take(), ElementsAre("signalLayerNameChanged(device, screen, layer)",
                                        "signalLayerNameChanged(device, other, layer)"));
}

TEST_F(Relays, KeepNobodyAlive) {
    EXPECT_TRUE(screen.use_count() == 1 && layer.use_count() == 1);
    screen.reset();
    layer->setName("a");
    EXPECT_THAT(log.take(), ElementsAre("signalLayerNameChanged(device, null, layer)"));
}

TEST_F(Relays, RunOnTheEmittingThread) {
    std::thread::id heardOn;
    QObject::connect(
        DeviceList::instance(), &DeviceList::signalLayerNameChanged, &log,
        [&] { heardOn = std::this_thread::get_id(); }, Qt::DirectConnection);
    std::thread emitter([&] { layer->setName("a"); });
    const auto emitterId = emitter.get_id();
    emitter.join();
    EXPECT_EQ(heardOn, emitterId);
}

TEST_F(Relays, AreSilentWhileTheSourceIsLocked) {
    {
        const ObjectSignalLocker outer(layer.get());
        layer->setName("a");
        { const ObjectSignalLocker inner(layer.get()); }
        EXPECT_FALSE(layer->signalsBlocked()); // an inner end unblocks, whatever the state was before
    }
    EXPECT_THAT(log.take(), testing::IsEmpty());
}

TEST(Lists, SearchTakeSortAndCount) {
    const auto a = std::make_shared<int>(2), b = std::make_shared<int>(1), c = std::make_shared<int>(2);
    std::vector<std::shared_ptr<int>> list{a, nullptr, b, c};
    QReadWriteLock lock;
    EXPECT_EQ(weakReferences(lock, list).size(), 3);
    for (const auto &[wanted, found] : {std::pair(2, a), {9, nullptr}})
        EXPECT_EQ(findFirst(list, [wanted = wanted](int value) { return value == wanted; }), found);
    for (const auto &taken : {a, std::shared_ptr<int>()})
        EXPECT_EQ(takePointer(lock, list, a.get()), taken);
    EXPECT_EQ(takePointer(list, static_cast<int *>(nullptr)), nullptr);
    EXPECT_THAT(list, ElementsAre(nullptr, b, c));
    list = {a, c, b};
    sortByKey(list, [](const auto &entry) { return *entry; });
    EXPECT_THAT(list, ElementsAre(b, a, c));
    EXPECT_EQ(lowestFree<quint8>(0, [](int id) { return id < 3; }), 3);
    const auto name = [](int number) { return QString("Screen%1").arg(number); };
    EXPECT_EQ(firstFreeName(name, [&](const QString &taken) { return taken == name(1); }), name(2));
}

} // namespace Quorix::Tests
