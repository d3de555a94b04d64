/// The hardware tree: a full chassis from its records, a reported timing with a listener on the hub, lookups by id.
#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
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

constexpr quint16 kModel = 29959; // 12 input slots, 10 output slots, 2 expansion slots
constexpr int kInputs = 40;
constexpr int kOutputs = 40;

ProtoModel::s_TimingDetailBody timing(int refresh) {
    return {.interlaced = 0,
            .refresh = refresh,
            .horizontal = {.addTime = 1920, .frontPorch = 88, .sync = 44, .syncPolarity = 0, .totalTime = 2200},
            .vertical = {.addTime = 1080, .frontPorch = 4, .sync = 5, .syncPolarity = 0, .totalTime = 1125}};
}

/// What a device with a card in every slot reports.
struct Report {
    std::vector<ProtoModel::Device::s_subcardBody> cards;
    std::vector<ProtoModel::Interface::s_InterfaceDetail> interfaces;

    Report() {
        for (int slot = 0; slot < 24; ++slot) {
            const bool isInput = slot < 12;
            const bool isOutput = slot >= 12 && slot < 22;
            const int model = isInput ? 30469 : isOutput ? 30529 : 30600;
            ProtoModel::Device::s_subcardBody card{.slotId = slot,
                                                   .modelId = model,
                                                   .boardId = 0,
                                                   .cardType = isInput    ? 2
                                                               : isOutput ? 3
                                                                          : 6,
                                                   .online = 1,
                                                   .connectors = {}};
            const auto *layout = InterfaceConfig::instance()->findSubCardByModelId(static_cast<quint16>(model));
            for (const auto &entry : layout->getCardConnector())
                card.connectors.push_back(entry.Connector);
            cards.push_back(card);
        }
        for (int i = 0; i < kInputs; ++i)
            add(i / 4, i % 4, 2);
        for (int i = 0; i < kOutputs; ++i)
            add(12 + i / 4, i % 4, 4);
    }

    void add(int slot, int connector, int type) {
        ProtoModel::Interface::s_InterfaceDetail detail;
        detail.interfaceId = {.slotId = slot, .connectorId = connector, .splitId = 0};
        detail.general.type = type;
        detail.presetTiming = detail.actualTiming = timing(6000);
        interfaces.push_back(detail);
    }

    void feed(Device &device) const {
        QString error;
        for (const auto &card : cards) {
            device.initProtoConnector(card);
            device.initModelConnector(card);
        }
        for (const auto &detail : interfaces)
            device.addInterface(detail, error);
    }
};

const Report &report() {
    static const Report whole;
    return whole;
}

std::shared_ptr<Device> filledDevice() {
    auto device = std::make_shared<Device>(kModel);
    DeviceList::instance()->append(device);
    device->setDeviceOnlineFlag(true);
    report().feed(*device);
    return device;
}

void FeedFullChassis(benchmark::State &state) {
    const auto device = std::make_shared<Device>(kModel);
    DeviceList::instance()->append(device);
    device->setDeviceOnlineFlag(true);
    for (auto unused : state) {
        report().feed(*device);
        state.PauseTiming();
        if (device->interfaces().size() != kInputs + kOutputs)
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
        input->setActualTiming(timing(refresh));
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
        i = (i + 7U) % kInputs;
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
    QString error;
    if (!DeviceConfigManager::instance()->readConfig(QUORIX_DATA_DIR "/devices", error) ||
        !InterfaceConfig::instance()->readConfig(QUORIX_DATA_DIR "/QuorixInterfaceCfg.xml", error))
        qFatal("%s", qPrintable(error));
    DeviceList::instance();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
