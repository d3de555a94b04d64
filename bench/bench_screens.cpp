/// Screens and layers of a large device: the road of an edit to the hub next to the bare mechanism, queries, a full
/// synchronisation; and how they grow with the number of layers.
#include "large_device.h"

#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screen.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QReadWriteLock>

#include <atomic>
#include <cstdlib>
#include <new>
#include <tuple>

namespace {

std::atomic<std::size_t> allocations{0};

} // namespace

void *operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void *memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void *memory) noexcept { std::free(memory); }
void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }

namespace {

using namespace Quorix;
using namespace Quorix::BizModel;
using Bench::LargeReport;

/// A device on the hub, fed from a report; gone again at the end of the scope.
struct Wall {
    std::shared_ptr<Device> device = std::make_shared<Device>(Bench::kModel);

    explicit Wall(int layers) {
        DeviceList::instance()->append(device);
        LargeReport(layers).feed(*device);
    }
    ~Wall() { DeviceList::instance()->clear(); }
    Q_DISABLE_COPY_MOVE(Wall)
};

void allocationsPerTurn(benchmark::State &state, std::size_t before) {
    const auto turns = std::max<double>(1, static_cast<double>(state.iterations()));
    state.counters["new"] = static_cast<double>(allocations - before) / turns;
}

/// What an edit costs at least: write lock, compare, store, unlock, and two emissions, each through one relay with
/// three weak references, to one listener.
class BareHub : public QObject {
    Q_OBJECT

Q_SIGNALS:
    void nameFirst(const std::weak_ptr<int> &, const std::weak_ptr<long> &, const std::weak_ptr<char> &,
                   const QString &);
    void second(const std::weak_ptr<int> &, const std::weak_ptr<long> &, const std::weak_ptr<char> &, const QRect &,
                const QRect &);
};

class BareWindow : public QObject {
    Q_OBJECT

public:
    void setRect(const QRect &rect, const QString &sender) {
        m_lock.lockForWrite();
        const QRect before = m_rect;
        const bool isOther = before != rect;
        m_rect = rect;
        m_lock.unlock();
        if (!isOther)
            return;
        Q_EMIT first(sender);
        Q_EMIT second(before, rect);
    }

Q_SIGNALS:
    void first(const QString &);
    void second(const QRect &, const QRect &);

private:
    QReadWriteLock m_lock;
    QRect m_rect;
};

void bareMechanism(benchmark::State &state) {
    using Owners = std::tuple<std::weak_ptr<int>, std::weak_ptr<long>, std::weak_ptr<char>>;
    const auto device = std::make_shared<int>(0);
    const auto screen = std::make_shared<long>(0);
    const auto layer = std::make_shared<char>('\0');
    const Owners owners(device, screen, layer);
    BareHub hub;
    BareWindow window;
    QObject listener;
    int heard = 0;
    QObject::connect(&window, &BareWindow::first, [&hub, owners](const QString &sender) {
        std::apply([&](const auto &...owner) { Q_EMIT hub.nameFirst(owner..., sender); }, owners);
    });
    QObject::connect(&window, &BareWindow::second, [&hub, owners](const QRect &before, const QRect &after) {
        std::apply([&](const auto &...owner) { Q_EMIT hub.second(owner..., before, after); }, owners);
    });
    QObject::connect(&hub, &BareHub::nameFirst, &listener, [&] { ++heard; });
    QObject::connect(&hub, &BareHub::second, &listener, [&] { ++heard; });
    int turn = 0;
    const std::size_t before = allocations;
    for (auto _ : state)
        window.setRect({++turn % 2, 0, 1280, 720}, {});
    allocationsPerTurn(state, before);
    if (heard == 0)
        state.SkipWithError("nothing was heard");
}
BENCHMARK(bareMechanism);

/// The same of a layer among many, all of them joined to the hub, each with a relay for every signal.
void setWindowRectToHub(benchmark::State &state) {
    const Wall wall(static_cast<int>(state.range(0)));
    auto *hub = DeviceList::instance();
    const auto screen = wall.device->findScreen(Enum::Screen::ScreenType::RegularScreen, 0).lock();
    const auto layer = screen->PVWLayers(Enum::Layer::LayerType::Regular).front().lock();
    QObject listener;
    int heard = 0;
    QObject::connect(hub, &DeviceList::signalLayerWindowRectChanged, &listener, [&] { ++heard; });
    QObject::connect(hub, &DeviceList::signalWindowRectChanged, &listener, [&] { ++heard; });
    int turn = 0;
    const std::size_t before = allocations;
    for (auto _ : state)
        layer->setWindowRect({++turn % 2, 0, 1280, 720}, {}, true);
    allocationsPerTurn(state, before);
    if (heard == 0)
        state.SkipWithError("nothing was heard");
}
BENCHMARK(setWindowRectToHub)->RangeMultiplier(2)->Range(Bench::kLayers, 8 * Bench::kLayers);

void screensOfAllKinds(benchmark::State &state) {
    const Wall wall(Bench::kLayers);
    for (auto _ : state)
        benchmark::DoNotOptimize(wall.device->screens(30));
}
BENCHMARK(screensOfAllKinds);

void layersOfScreen(benchmark::State &state) {
    const Wall wall(static_cast<int>(state.range(0)));
    const auto screen = wall.device->findScreen(Enum::Screen::ScreenType::RegularScreen, 0).lock();
    for (auto _ : state)
        benchmark::DoNotOptimize(screen->layers(6, 126));
    state.counters["layers"] = screen->layers(6, 126).size();
}
BENCHMARK(layersOfScreen)->RangeMultiplier(2)->Range(Bench::kLayers, 8 * Bench::kLayers);

void layersBySource(benchmark::State &state) {
    const Wall wall(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(wall.device->layersBySource(0, Enum::Layer::SourceType::Input, 30, 126));
}
BENCHMARK(layersBySource)->RangeMultiplier(2)->Range(Bench::kLayers, 8 * Bench::kLayers);

void fullSynchronisation(benchmark::State &state) {
    const LargeReport report(static_cast<int>(state.range(0)));
    const auto device = std::make_shared<Device>(Bench::kModel);
    DeviceList::instance()->append(device);
    const std::size_t before = allocations;
    for (auto _ : state) {
        device->clearAll(false);
        report.feed(*device);
        QCoreApplication::sendPostedEvents();
    }
    allocationsPerTurn(state, before);
    DeviceList::instance()->clear();
}
BENCHMARK(fullSynchronisation)
    ->RangeMultiplier(2)
    ->Range(Bench::kLayers, 8 * Bench::kLayers)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    Bench::readCapabilities();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

#include "bench_screens.moc"
