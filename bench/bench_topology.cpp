/// The hardware tree: a full chassis from its records, a reported timing with a listener on the hub, lookups by id.
#include "large_device.h"

#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>

using namespace Quorix;
using namespace Quorix::BizModel;

namespace {

const Bench::LargeReport &report() {
    static const Bench::LargeReport whole;
    return whole;
}

std::shared_ptr<Device> filledDevice() {
    auto device = std::make_shared<Device>(Bench::kModel);
    DeviceList::instance()->append(device);
    device->setDeviceOnlineFlag(true);
    report().feedHardware(*device);
    return device;
}

void FeedFullChassis(benchmark::State &state) {
    const auto device = std::make_shared<Device>(Bench::kModel);
    DeviceList::instance()->append(device);
    device->setDeviceOnlineFlag(true);
    for (auto unused : state) {
        report().feedHardware(*device);
        state.PauseTiming();
        if (device->interfaces().size() != Bench::kInputs + Bench::kOutputs)
            state.SkipWithError("interfaces are missing");
        device->clearAll(false);
        state.ResumeTiming();
    }
    DeviceList::instance()->clear();
}
BENCHMARK(FeedFullChassis)->Unit(benchmark::kMillisecond);

void SetActualTiming(benchmark::State &state) {
    const auto device = filledDevice();
    const auto input = device->findInput(1, 1).lock();
    quint64 heard = 0;
    const auto listener = QObject::connect(DeviceList::instance(), &DeviceList::signalInterfaceActualTimingChanged,
                                           [&heard] { ++heard; });
    int refresh = 6000;
    for (auto unused : state) {
        refresh = refresh == 6000 ? 5994 : 6000;
        input->setActualTiming(Bench::fullHd(refresh));
    }
    QObject::disconnect(listener);
    state.counters["heard"] = benchmark::Counter(static_cast<double>(heard), benchmark::Counter::kAvgIterations);
    DeviceList::instance()->clear();
}
BENCHMARK(SetActualTiming)->Unit(benchmark::kMicrosecond);

template <auto find>
void Find(benchmark::State &state) {
    const auto device = filledDevice();
    uint32_t i = 0;
    for (auto unused : state) {
        i = (i + 7U) % Bench::kInputs;
        benchmark::DoNotOptimize(find(*device, i / 4U, i % 4U));
    }
    DeviceList::instance()->clear();
}
constexpr auto inputById = [](Device &device, uint32_t card, uint32_t port) {
    return device.findInput(card << 16U | port << 8U);
};
constexpr auto outputById = [](Device &device, uint32_t card, uint32_t port) {
    return device.findOutput((12U + card) << 16U | port << 8U);
};
BENCHMARK(Find<inputById>)->Name("FindInputById");
BENCHMARK(Find<outputById>)->Name("FindOutputById");

template <auto list>
void ListAll(benchmark::State &state) {
    const auto device = filledDevice();
    for (auto unused : state)
        benchmark::DoNotOptimize(list(*device));
    DeviceList::instance()->clear();
}
constexpr auto allInterfaces = [](Device &device) { return device.interfaces(); };
constexpr auto allValidInputs = [](Device &device) { return device.validInputs(); };
BENCHMARK(ListAll<allInterfaces>)->Name("ListInterfaces")->Unit(benchmark::kMicrosecond);
BENCHMARK(ListAll<allValidInputs>)->Name("ListValidInputs")->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    Bench::readCapabilities();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
