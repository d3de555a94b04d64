/// Whether a move fits on a large device: a screen on one card, a wall over all cards, and how a check grows with
/// layers, with the strips that inputs are split into, and with the screens that share a card.
#include "large_device.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/resources/resourceexplanation.h>
#include <quorixbizmodel/screens/screenkinds.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <algorithm>

namespace {

using namespace Quorix;
using namespace Quorix::BizModel;
using Capacity = Enum::Interface::CapacityMode;
using Scene = Enum::Layer::SceneType;

constexpr int kFirstOutputSlot = 12;

ProtoModel::Screen::s_OutputDetail placed(int output, int x) {
    ProtoModel::Screen::s_OutputDetail detail;
    detail.interfaceId = {.slotId = kFirstOutputSlot + output / 4, .connectorId = output % 4, .splitId = 0};
    detail.pos.x = x;
    detail.feather.resize(4);
    return detail;
}

/// A layer on the first screen of the device, about to be moved. The device goes at the end of the scope.
struct Move {
    std::shared_ptr<Device> device = std::make_shared<Device>(Bench::kModel);
    std::shared_ptr<RegularScreen> screen;
    ResourceCheck::LayerRects rects;
    QList<std::weak_ptr<Output>> invalid;

    /// @param channels of every input: 1, 2 or 4
    Move(const Bench::LargeReport &report, int channels) {
        DeviceList::instance()->append(device);
        report.feed(*device);
        const auto capacity = channels == 1 ? Capacity::_SL : channels == 2 ? Capacity::_DL : Capacity::_4K;
        for (const auto &reference : device->regulerScreens())
            for (const auto &layer : reference.lock()->layers(toInt(Scene::AllSceneType), 2))
                layer.lock()->setCapacity(capacity);
        screen = std::dynamic_pointer_cast<RegularScreen>(
            device->findScreen(Enum::Screen::ScreenType::RegularScreen, 0).lock());
        rects.append({screen->PVWLayers(Enum::Layer::LayerType::Regular).front(), QRect(700, 300, 1280, 720)});
    }
    ~Move() { DeviceList::instance()->clear(); }
    Q_DISABLE_COPY_MOVE(Move)

    void run(benchmark::State &state) {
        for (auto unused : state)
            benchmark::DoNotOptimize(ResourceCheck::CheckOperationResources(screen, rects, invalid, Scene::PVW, {}));
        if (ResourceCheck::outputPreoccupationResources(screen, rects, invalid, Scene::PVW, {}).isEmpty())
            state.SkipWithError("no card was visited");
    }
};

/// One screen over all outputs, with all the layers.
Bench::LargeReport wallReport(int layers) {
    Bench::LargeReport report(layers);
    report.screens.resize(1);
    auto &outputs = report.screens.front().mosaic.outputs;
    outputs.clear();
    for (int i = 0; i < Bench::kOutputs; ++i)
        outputs.push_back(placed(i, 1920 * i));
    for (auto &layer : report.layers) {
        layer.layerIdenti.layerId = static_cast<std::uint8_t>((&layer - report.layers.data()) / 2);
        layer.layerIdenti.screenId = 0;
        layer.window.x = 1000 * layer.layerIdenti.layerId;
    }
    return report;
}

void Check(benchmark::State &state) {
    Move(Bench::LargeReport(static_cast<int>(state.range(0))), static_cast<int>(state.range(1))).run(state);
}
BENCHMARK(Check)
    ->ArgNames({"layers", "channels"})
    ->Args({64, 1})
    ->Args({64, 2})
    ->Args({64, 4})
    ->Args({128, 4})
    ->Args({256, 4})
    ->Args({512, 4})
    ->Unit(benchmark::kMicrosecond);

void CheckSharedCard(benchmark::State &state) {
    Bench::LargeReport report;
    const auto sharing = static_cast<std::size_t>(state.range(0));
    for (std::size_t i = 0; i < std::min(sharing, report.screens.size()); ++i)
        report.screens[i].mosaic.outputs = {placed(static_cast<int>(i % 4), 0)};
    Move(report, 2).run(state);
}
BENCHMARK(CheckSharedCard)->ArgName("screens")->Arg(1)->Arg(5)->Arg(10)->Arg(20)->Unit(benchmark::kMicrosecond);

void CheckWall(benchmark::State &state) {
    Move(wallReport(static_cast<int>(state.range(0))), static_cast<int>(state.range(1))).run(state);
}
BENCHMARK(CheckWall)
    ->ArgNames({"layers", "channels"})
    ->Args({64, 1})
    ->Args({64, 4})
    ->Args({128, 4})
    ->Unit(benchmark::kMicrosecond);

void ExplainWall(benchmark::State &state) {
    const Move move(wallReport(Bench::kLayers), 4);
    for (auto unused : state)
        benchmark::DoNotOptimize(explainResources(move.screen, move.rects, Scene::PVW, {}));
}
BENCHMARK(ExplainWall)->Unit(benchmark::kMicrosecond);

void CheckAux(benchmark::State &state) {
    Bench::LargeReport report;
    for (std::size_t i = 0; i < report.layers.size(); ++i) {
        auto &id = report.layers[i].layerIdenti;
        id.screenType = 4;
        id.layerType = 4;
        id.screenId = static_cast<std::uint8_t>(i / 2 % Bench::kAuxScreens);
        id.layerId = static_cast<std::uint8_t>(i / 2 / Bench::kAuxScreens);
    }
    const auto device = std::make_shared<Device>(Bench::kModel);
    DeviceList::instance()->append(device);
    report.feed(*device);
    const auto screen =
        std::dynamic_pointer_cast<AuxScreen>(device->findScreen(Enum::Screen::ScreenType::AUXScreen, 0).lock());
    const auto layers = screen->PVWLayers(Enum::Layer::LayerType::AUX);
    const ResourceCheck::LayerRects rects{{layers.front(), QRect(0, 0, 1920, 1080)}};
    QList<std::weak_ptr<Output>> invalid;
    for (auto unused : state) {
        invalid.clear();
        benchmark::DoNotOptimize(ResourceCheck::CheckAuxOperationResources(screen, rects, invalid, Scene::PVW));
    }
    DeviceList::instance()->clear();
}
BENCHMARK(CheckAux)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    Bench::readCapabilities();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
