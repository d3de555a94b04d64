/// The large device of the benchmarks: 40 inputs, 40 outputs, 20 regular and 4 AUX screens, layers in both scenes.
#ifndef QUORIX_BENCH_LARGE_DEVICE_H
#define QUORIX_BENCH_LARGE_DEVICE_H

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixprotomodel/layer.h>
#include <quorixprotomodel/screen.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace Quorix::Bench {

inline constexpr quint16 kModel = 29959; // 12 input slots, 10 output slots, 2 expansion slots
inline constexpr int kInputs = 40;
inline constexpr int kOutputs = 40;
inline constexpr int kRegularScreens = 20;
inline constexpr int kAuxScreens = 4;
/// Layers of a scene over all regular screens.
inline constexpr int kLayers = 64;
inline constexpr int kPresets = 200;
/// Screens that a preset covers, and so a quarter of the layers of a scene.
inline constexpr int kScreensOfPreset = kRegularScreens / 4;

inline void readCapabilities() {
    QString error;
    if (!BizModel::DeviceConfigManager::instance()->readConfig(QUORIX_DATA_DIR "/devices", error) ||
        !BizModel::InterfaceConfig::instance()->readConfig(QUORIX_DATA_DIR "/QuorixInterfaceCfg.xml", error))
        throw std::runtime_error(error.toStdString());
}

inline ProtoModel::s_TimingDetailBody fullHd(int refresh = 6000) {
    return {.interlaced = 0,
            .refresh = refresh,
            .horizontal = {.addTime = 1920, .frontPorch = 88, .sync = 44, .syncPolarity = 0, .totalTime = 2200},
            .vertical = {.addTime = 1080, .frontPorch = 4, .sync = 5, .syncPolarity = 0, .totalTime = 1125}};
}

/// What such a device reports. @param layers of each scene
struct LargeReport {
    ProtoModel::Device::s_DeviceDetail detail;
    ProtoModel::Interface::s_InterfaceDetailArry interfaces;
    ProtoModel::Screen::s_ScreenFullDetailArray screens;
    ProtoModel::Layer::s_LayerDetailArray layers;

    explicit LargeReport(int layersOfScene = kLayers) {
        for (int slot = 0; slot < 24; ++slot)
            addCard(slot);
        for (int i = 0; i < kInputs; ++i)
            addInterface(i / 4, i % 4, 2);
        for (int i = 0; i < kOutputs; ++i)
            addInterface(12 + i / 4, i % 4, 4);
        // Two outputs side by side on most regular screens; the AUX screens take the last ones.
        for (int i = 0; i < kRegularScreens; ++i)
            addScreen(i, 2, i < kOutputs / 2 - kAuxScreens ? 2 : 1, i < 16 ? 2 * i : 16 + i);
        for (int i = 0; i < kAuxScreens; ++i)
            addScreen(i, 4, 1, kOutputs - kAuxScreens + i);
        for (int i = 0; i < layersOfScene; ++i)
            for (const int scene : {2, 4})
                addLayer(i, scene);
    }

    void feedHardware(BizModel::Device &device) const {
        QString error;
        device.initModelData(detail, error);
        device.initModelData(interfaces, error);
    }

    void feed(BizModel::Device &device) const {
        QString error;
        feedHardware(device);
        device.initModelData(screens, error);
        device.initModelData(layers, error);
    }

private:
    void addCard(int slot) {
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
        const auto *layout = BizModel::InterfaceConfig::instance()->findSubCardByModelId(static_cast<quint16>(model));
        for (const auto &entry : layout->getCardConnector())
            card.connectors.push_back(entry.Connector);
        detail.subcards.push_back(card);
    }

    void addInterface(int slot, int connector, int type) {
        ProtoModel::Interface::s_InterfaceDetail record;
        record.interfaceId = {.slotId = slot, .connectorId = connector, .splitId = 0};
        record.general.type = type;
        record.presetTiming = record.actualTiming = fullHd();
        interfaces.push_back(record);
    }

    void addScreen(int id, int type, int outputs, int firstOutput) {
        ProtoModel::Screen::s_ScreenFullDetail record;
        record.screenId = static_cast<std::uint8_t>(id);
        record.screenType = static_cast<std::uint8_t>(type);
        record.general.name = "screen " + std::to_string(type) + "-" + std::to_string(id);
        record.general.index = static_cast<int>(screens.size());
        record.mosaic.splice.column = outputs;
        record.mosaic.window.width = 1920 * outputs;
        for (int i = 0; i < outputs; ++i) {
            ProtoModel::Screen::s_OutputDetail output;
            output.interfaceId = {
                .slotId = 12 + (firstOutput + i) / 4, .connectorId = (firstOutput + i) % 4, .splitId = 0};
            output.pos.x = 1920 * i;
            output.feather.resize(4);
            record.mosaic.outputs.push_back(output);
        }
        screens.push_back(record);
    }

    void addLayer(int number, int scene) {
        ProtoModel::Layer::s_LayerFullDetail record;
        record.layerIdenti.screenId = static_cast<std::uint8_t>(number % kRegularScreens);
        record.layerIdenti.screenType = 2;
        record.layerIdenti.layerId = static_cast<std::uint8_t>(number / kRegularScreens);
        record.layerIdenti.layerType = 2;
        record.layerIdenti.sceneType = scene;
        record.general.name = "layer " + std::to_string(number);
        record.zorder = number / kRegularScreens;
        record.source.general = {.type = 2,
                                 .id = static_cast<std::uint32_t>((number % kInputs) / 4) << 16U |
                                       static_cast<std::uint32_t>(number % 4) << 8U};
        ProtoModel::s_CropDetailBody crop;
        crop.type = 2;
        crop.id = record.source.general.id;
        crop.widthRatio = crop.heightRatio = 100000;
        record.source.crop.push_back(crop);
        record.window.x = 100 * (number % 7);
        record.window.width = 1280;
        record.window.height = 720;
        layers.push_back(record);
    }
};

inline void addPresets(BizModel::Device &device) {
    using BizModel::Enum::File::FileType;
    for (int id = 0; id < kPresets; ++id) {
        const auto preset =
            std::static_pointer_cast<BizModel::Preset>(BizModel::Device::createFile(FileType::PresetPVW));
        preset->setFileId(static_cast<std::uint8_t>(id));
        device.addPreset(preset);
        std::vector<ProtoModel::s_ScreenId> screens;
        for (int i = 0; i < kScreensOfPreset; ++i)
            screens.push_back({.screenId = static_cast<std::uint8_t>((id + i) % kRegularScreens), .screenType = 2});
        preset->setScreens(screens, FileType::PresetPVW);
    }
}

} // namespace Quorix::Bench

#endif
