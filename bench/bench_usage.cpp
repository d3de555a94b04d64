/// Who uses an input or a picture of a large device with 300 layers and 200 presets, and who belongs to a group of many
/// devices. Mostly what nobody uses is asked for, so that every layer and preset is looked at.
#include "large_device.h"

#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/layers/layer.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>

namespace {

using namespace Quorix;
using namespace Quorix::BizModel;
using Enum::File::FileType;
using Enum::Layer::SourceType;

constexpr int kBackgrounds = 32;
constexpr int kDevices = 64;
/// Packed id in a slot that has no card.
constexpr uint32_t kUnusedInput = 30U << 16U;

/// @param layers in both scenes
std::shared_ptr<Device> largeDevice(std::int64_t layers) {
    auto device = std::make_shared<Device>(Bench::kModel);
    Bench::LargeReport(static_cast<int>(layers / 2)).feed(*device);
    Bench::addPresets(*device);
    for (int id = 0; id < kBackgrounds; ++id) {
        const auto file = Device::createFile(FileType::BKG);
        file->setFileId(static_cast<uint8_t>(id));
        device->addFile({file});
    }
    return device;
}

void withMoreLayers(benchmark::internal::Benchmark *benchmark) {
    benchmark->ArgName("layers")->Arg(300)->Arg(600)->Arg(1200)->Unit(benchmark::kMicrosecond);
}

void isInputUsed(benchmark::State &state) {
    const auto device = largeDevice(state.range(0));
    QString users;
    for (auto _ : state)
        if (device->isInputUsed(kUnusedInput, users))
            state.SkipWithError("a free input is used");
}
BENCHMARK(isInputUsed)->Apply(withMoreLayers);

void isFileUsed(benchmark::State &state) {
    const auto device = largeDevice(state.range(0));
    for (auto _ : state)
        if (device->isFileUsed(0, FileType::BKG))
            state.SkipWithError("a free background is used");
}
BENCHMARK(isFileUsed)->Apply(withMoreLayers);

void isAnyFileUsed(benchmark::State &state) {
    const auto device = largeDevice(state.range(0));
    for (auto _ : state)
        if (device->isFileUsed(FileType::BKG))
            state.SkipWithError("a free background is used");
}
BENCHMARK(isAnyFileUsed)->Apply(withMoreLayers);

void layersBySource(benchmark::State &state) {
    const auto device = largeDevice(state.range(0));
    int found = 0;
    for (auto _ : state)
        found = device->layersBySource(0, SourceType::Input, 30, 126).size();
    state.counters["found"] = found;
}
BENCHMARK(layersBySource)->Apply(withMoreLayers);

void groupDevices(benchmark::State &state) {
    auto *const hub = DeviceList::instance();
    for (int i = kDevices; i > 0; --i) {
        const auto device = std::make_shared<Device>(Bench::kModel);
        device->setIPAddress(QStringLiteral("10.0.0.%1").arg(i));
        device->setDeviceGroupId(QStringLiteral("1"));
        hub->append(device);
    }
    const auto any = hub->devices().front();
    for (auto _ : state)
        if (hub->groupDevices(any, false, false).size() != kDevices)
            state.SkipWithError("a member is missing");
    hub->clear();
}
BENCHMARK(groupDevices)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    Bench::readCapabilities();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
