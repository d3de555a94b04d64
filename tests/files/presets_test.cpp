/// Presets: what they take from screens, how they go back into a device that has changed, and who uses a picture.
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/layers/layer.h>
#include <screens/wall.h>

namespace Quorix::Tests {

using Enum::File::FileType;
using Enum::Layer::LayerType;
using Enum::Layer::SceneType;
using Enum::Layer::SourceType;

namespace {

QString operator""_q(const char *text, std::size_t size) { return QString::fromUtf8(text, static_cast<int>(size)); }

using LayerDetail = ProtoModel::Layer::s_LayerFullDetail;

ProtoModel::Preset::s_Screen covered(uint8_t id, int type, const char *name = "", int rows = 1) {
    ProtoModel::Preset::s_Screen screen{{id, type}, 0, {.name = name}, {}};
    screen.mosaic.splice.row = rows;
    return screen;
}

/// A layer of the screen 0 of a type.
LayerDetail layer(uint8_t id, int screenType, LayerType kind, SourceType source = SourceType::Empty, int sourceId = 0) {
    LayerDetail detail;
    detail.layerIdenti = {{0, screenType}, {id, toInt(kind), 0}};
    detail.source.general = {.type = toInt(source), .id = static_cast<uint32_t>(sourceId)};
    return detail;
}

/// "number source:id" of each layer.
QStringList texts(const QList<std::weak_ptr<Layer>> &layers) {
    QStringList result;
    for (const auto &entry : livingReferences(layers))
        result +=
            QStringLiteral("%1 %2:%3").arg(entry->layerId()).arg(toInt(entry->sourceType())).arg(entry->sourceId());
    return result;
}

constexpr int kInput = 65536;   ///< slot 1, port 0
constexpr int kPartner = 65792; ///< slot 1, port 1

} // namespace

struct Presets : Wall {
    std::shared_ptr<Preset> preset = std::make_shared<Preset>();
    QString errMsg;
    QList<std::weak_ptr<Screen>> touched;

    void SetUp() override {
        Wall::SetUp();
        log.name(preset.get(), "preset"_q);
        preset->setOwerDevice(device);
    }

    void fill(std::vector<ProtoModel::Preset::s_Screen> screens, std::vector<LayerDetail> layers) {
        preset->setScreens({}, FileType::PresetPVW); // or the lists would grow
        const auto text =
            ajson::encode(ProtoModel::Preset::s_PresetCreate{0, {}, 0, std::move(screens), std::move(layers)});
        ASSERT_TRUE(preset->initModelData({{0, 6}, {}, {}, {}, text}, errMsg)) << errMsg.toStdString();
    }

    static void add(Screen &screen, SceneType scene, const LayerDetail &detail) {
        const auto made = Screen::createLayer(static_cast<LayerType>(detail.layerIdenti.layerType));
        QString error;
        made->initModelData(screen.weak_from_this(), detail, error);
        made->setSceneType(scene);
        screen.addLayer(made);
    }

    std::shared_ptr<Image> picture(FileType type, uint8_t id) {
        auto made = Device::createImage(type);
        made->setFileId(id);
        device->addImage(made);
        return made;
    }
};

TEST_F(Presets, ANumberIsANameToo) {
    EXPECT_EQ(preset->presetDetail().name + std::to_string(preset->presetDetail().presetId), "N/A255");
    EventLog own(preset.get());
    preset->setFileId(7);
    EXPECT_EQ(preset->name(), "Preset 7"_q);
    EXPECT_EQ(preset->presetDetail().name, "Preset 7");
    EXPECT_EQ(preset->presetDetail().presetId + preset->fileId(), 14);
    const auto *text = R"({"name":"other","startTime":5,"screens":[{"screenId":4,"screenType":4},)";
    EXPECT_FALSE(preset->initModelData({{259, 8}, {"Évening"}, {}, {}, text}, errMsg));
    EXPECT_TRUE(errMsg.startsWith("Decode json failed: "_q) && errMsg.size() > 21 && preset->containsAuxScreen());
    EXPECT_EQ(preset->presetDetail().name + preset->name().toStdString(), "ÉveningÉvening");
    EXPECT_EQ(preset->presetDetail().presetId + preset->presetDetail().startTime, 3 + 5);
    EXPECT_THAT(own.take(), ElementsAre("signalNameChanged()"_q));
    EXPECT_FALSE(preset->signalsBlocked());
}

TEST_F(Presets, SavingTakesOneSceneOfCompleteScreens) {
    EXPECT_FALSE(device->editPresetValidityCheck("Save"_q, errMsg));
    EXPECT_EQ(errMsg, "Save.There is no selection screen.Please select the screen to save to the preset!"_q);
    device->appendSelectedScreen({regular, aux}, false, false);
    EXPECT_FALSE(device->editPresetValidityCheck("%2"_q, errMsg));
    EXPECT_EQ(errMsg, "%2.The following screen splicing is incomplete,regular, aux"_q);
    place(*regular, {1, 2});
    place(*aux, {3});
    EXPECT_TRUE(device->editPresetValidityCheck({}, errMsg));
    add(*regular, SceneType::PVW, layer(1, 2, LayerType::Regular));
    add(*regular, SceneType::PGM, layer(2, 2, LayerType::Regular));
    preset->createConnects(device);
    log.take();
    preset->setScreens({{0, 2}, {9, 2}, {0, 4}, {0, 2}}, FileType::PresetPGM);
    EXPECT_THAT(log.take(), ElementsAre("signalFileContentChanged(device, preset)"_q));
    const auto content = preset->presetDetail();
    ASSERT_TRUE(content.screens.size() == 3 && content.layers.size() == 2);
    EXPECT_EQ(content.layers[1].layerIdenti.layerId, 2);
    EXPECT_EQ(content.screens[0].general.name + content.screens[1].general.name, "regularaux");
    EXPECT_TRUE(content.screens[0].mosaic.outputs.size() == 2 && preset->fileType() == FileType::PresetPVW);
    preset->setScreens({{0, 2}}, FileType::PresetPVW);
    EXPECT_EQ(preset->presetDetail().layers.at(0).layerIdenti.layerId, 1);
    preset->setScreens({{0, 2}}, FileType::BKG);
    EXPECT_TRUE(preset->presetDetail().layers.empty() && preset->screens().size() == 1);
}

TEST_F(Presets, NothingGoesWithoutADevice) {
    EXPECT_FALSE(preset->loadPreset(touched, FileType::LOGO, errMsg) ||
                 preset->presetSelectedScreens(touched, FileType::LOGO, errMsg));
    EXPECT_EQ(errMsg, "The preset type is invalid."_q);
    EXPECT_EQ(MessageLog::take().size(), 2);
    preset->setOwerDevice({});
    EXPECT_FALSE(preset->preCheckPresetValidity(errMsg) || preset->curCheckPresetValidity(errMsg) ||
                 preset->loadPreset(touched, FileType::LOGO, errMsg) ||
                 preset->presetSelectedScreens(touched, FileType::PresetPVW, errMsg));
    preset->checkLayerSourceValidity();
    preset->setScreens({}, FileType::PresetPVW);
    EXPECT_THAT(MessageLog::take(),
                ElementsAre("warning: The device object where the preset is located is invalid."_q,
                            "warning: The device is empty"_q, "warning: The device object is null"_q,
                            "warning: device is null"_q,
                            "warning: Set preset reguler screens has failed.The owner device is null"_q));
    preset->afterCheckPresetValidity(errMsg);
    EXPECT_EQ(errMsg, "Failed to load preset: The device object is null."_q);
}

TEST_F(Presets, TellsWhatCannotBeLoaded) {
    // What is told before the load, and after it.
    const std::pair<std::vector<ProtoModel::Preset::s_Screen>, QString> rows[] = {
        {{}, "The regular screen list and aux screen list is empty in the preset.|"_q},
        {{covered(7, 2, "lost %1")},
         "The quantity of the matched screens is zero.|Failed to load preset: lost %1 is not found."_q},
        {{covered(0, 2), covered(7, 4, "b"), covered(7, 2, "a")},
         "|Failed to load preset of some screens: a is not found, b is not found."_q},
        {{covered(0, 2, "", 0)}, "The screen splicing is incomplete.|"_q},
        {{covered(0, 2, "", 0), covered(9, 8, "a multiviewer is never named")}, "|"_q},
        {{covered(0, 2), covered(0, 4)}, "|Failed to load preset of some screens: aux is empty."_q},
        {{covered(1, 2), covered(1, 4)}, "|Failed to load preset: bare is empty, half is incomplete."_q},
    };
    place(*regular, {1, 2});
    addedScreen<RegularScreen>("bare"_q, 1);
    const auto half = addedScreen<AuxScreen>("half"_q, 1);
    place(*half, {3});
    half->setGrid({65536, 65536}, false);
    for (const auto &[screens, texts] : rows) {
        QString before;
        QString after;
        fill(screens, {});
        const bool isLoadable = preset->preCheckPresetValidity(before);
        EXPECT_EQ(isLoadable, before.isEmpty());
        preset->afterCheckPresetValidity(after);
        EXPECT_EQ(before + '|' + after, texts);
    }
}

TEST_F(Presets, LayersOfOtherScreensStay) {
    const auto stored = layer(1, 2, LayerType::Regular);
    const auto other = addedScreen<RegularScreen>("other"_q, 1);
    for (const auto &screen : {regular, other, other})
        add(*screen, SceneType::PVW, stored);
    std::vector<LayerDetail> layers(static_cast<std::size_t>(device->maxRegulerLayerCnt() - 2), stored);
    layers.push_back(layer(1, 2, LayerType::BKG));
    layers.push_back(layer(1, 4, LayerType::Regular));
    fill({covered(0, 4)}, layers); // of another kind: told apart by the id alone
    EXPECT_TRUE(preset->curCheckPresetValidity(errMsg));
    fill({covered(9, 2)}, layers);
    EXPECT_FALSE(preset->curCheckPresetValidity(errMsg));
    EXPECT_EQ(errMsg, "The preset's layer count more than max reguler layer count.\nPreset's layer reguler count is "
                      "41, Current max reguler layer count is 40"_q);
    EXPECT_EQ(MessageLog::take().size(), 1);
}

TEST_F(Presets, LoadFitsLayersToTheDeviceOfToday) {
    picture(FileType::BKG, 3);
    place(*regular, {1});
    place(*aux, {2});
    const auto bare = addedScreen<AuxScreen>("bare"_q, 1);
    for (const int port : {1, 9}) // the card has no connector 9
        ASSERT_TRUE(device->addInterface(detailOf(1, port), errMsg));
    fill({covered(7, 2), covered(0, 2), covered(0, 4), covered(1, 4)},
         {layer(0, 2, LayerType::Regular, SourceType::Input, kInput),
          layer(1, 2, LayerType::Regular, SourceType::Input, kInput + 9 * 256),
          layer(2, 2, LayerType::Regular, SourceType::Input, 99), layer(3, 2, LayerType::BKG, SourceType::BKG, 259),
          layer(4, 2, LayerType::BKG, SourceType::BKG, 4), layer(5, 2, LayerType::Logo, SourceType::LOGO, 3),
          layer(6, 2, LayerType::BKG, SourceType::BKG, 3), layer(7, 2, LayerType::Invalid),
          layer(8, 4, LayerType::AUX, SourceType::PGM, 99)});
    const auto load = [&](SceneType scene = SceneType::PVW) {
        touched.clear();
        EXPECT_TRUE(preset->loadPreset(touched, FileType::PresetPVW, errMsg));
        return texts(regular->layers(scene));
    };
    log.take();
    EXPECT_THAT(load(), ElementsAre("0 2:65536"_q, "2 2:99"_q, "3 5:259"_q, "6 5:3"_q));
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_THAT(livingReferences(touched), ElementsAre(regular, aux));
    EXPECT_EQ(aux->layers(SceneType::PVW).value(0).lock()->windowRect(), QRect(0, 0, 1920, 1080));
    EXPECT_TRUE(bare->layers(SceneType::PVW).isEmpty() && !regular->signalsBlocked());
    QList<std::weak_ptr<Screen>> planned;
    EXPECT_TRUE(preset->presetSelectedScreens(planned, FileType::PresetPGM, errMsg));
    EXPECT_EQ(livingReferences(planned), livingReferences(touched));

    // A failed input gives way to its partner, if that one has a signal and backup is on.
    device->setInterfaceRelation({.enable = 1, .relation = {{0, kInput, kPartner, kInput}}});
    EXPECT_EQ(load().first(), "0 2:65536"_q);
    device->findInput(1, 1).lock()->setActualTiming(fullHd());
    EXPECT_EQ(load().first(), "0 2:65792"_q);
    input->setActualTiming(fullHd());
    EXPECT_EQ(load().first(), "0 2:65536"_q);
    input->setActualTiming({});
    device->setInterfaceRelationEnable(false);
    EXPECT_EQ(load().first(), "0 2:65536"_q);

    // No layer shows an input whose connector carries nothing; the device's setting picks the scene.
    Body idle = singleLinks();
    idle.connectors[0].workMode = 2;
    device->initProtoConnector(idle);
    device->setLoadToPGMEnable(Enum::Device::LoadToPGMStatus::LoadToPGM);
    EXPECT_EQ(load(SceneType::PGM).first(), "0 0:65536"_q);
    EXPECT_EQ(texts(regular->layers(SceneType::PVW)).first(), "0 2:65536"_q);

    // Repaired, layers have lost the sources that aren't there.
    preset->checkLayerSourceValidity();
    QStringList sources;
    for (const auto &stored : preset->presetDetail().layers)
        sources += QStringLiteral("%1:%2").arg(stored.source.general.type).arg(stored.source.general.id);
    EXPECT_EQ(sources.join(' ').replace("4294967295"_q, "none"_q),
              "2:65536 2:67840 0:none 0:none 0:none 0:none 5:3 0:0 3:99"_q);
    EXPECT_THAT(load(SceneType::PGM), ElementsAre("0 0:65536"_q, "2 0:4294967295"_q, "6 5:3"_q));
}

TEST_F(Presets, ListTellsWhoComesAndGoes) {
    const auto stranger = Device::createFile(FileType::UMD);
    stranger->setFileType(FileType::PresetPVW);
    EXPECT_TRUE(device->addPreset(preset));
    EXPECT_FALSE(device->addPreset(preset) || device->addPreset(stranger) || device->removePreset({}) ||
                 device->removePreset(stranger));
    EXPECT_THAT(MessageLog::take(),
                ElementsAre("warning: Device add preset has failed!The preset is exists.  id 0  name= \"N/A\""_q,
                            "warning: Device add preset has failed!The preset is null."_q));
    const auto other = Device::createFile(FileType::PresetPGM);
    other->setFileId(3);
    log.name(other.get(), "other"_q);
    device->addFile({other});
    EXPECT_TRUE(device->presets().size() == 2 && device->findFile(FileType::PresetPVW, 3).lock() == other);
    EXPECT_TRUE(device->containsPreset(3) && device->containsPreset("Preset 3"_q));
    EXPECT_FALSE(device->containsPreset(259) || device->containsPreset("preset 3"_q));
    EXPECT_THAT(livingReferences(DeviceList::instance()->findGroupPresets(device, 0)), ElementsAre(preset));
    EXPECT_THAT(DeviceList::instance()->findGroupPresets(device, 1), IsEmpty());
    log.take();
    device->removeFiles({preset, other});
    EXPECT_FALSE(device->removePreset(other));
    device->clearAllFiles({FileType::BKG, FileType::PresetPGM});
    EXPECT_THAT(log.take(), ElementsAre("signalPresetRemoved(device, preset)"_q, "signalPresetRemoved(device, other)"_q,
                                        "signalPresetCleared(device)"_q, "signalPresetCleared(device)"_q));
}

TEST_F(Presets, UsersOfAPictureAreFound) {
    const auto shown = picture(FileType::BKG, 1);
    const auto saved = picture(FileType::BKG, 2);
    device->addPreset(preset);
    fill({}, {layer(0, 2, LayerType::BKG, SourceType::BKG, 2)});
    EXPECT_TRUE(device->isFileUsed(2, FileType::BKG) && device->isFileUsed(FileType::BKG));
    EXPECT_FALSE(device->isFileUsed(1, FileType::BKG) || device->isFileUsed(FileType::LOGO));
    EXPECT_FALSE(device->isFileUsed(1, FileType::UMD) || device->isFileUsed(FileType::UMD));
    EXPECT_EQ(MessageLog::take().count("warning: The type is invalid"_q), 2);
    EXPECT_EQ(device->deleteAllBKGMessage(0), "Are you sure to delete all BKG?"_q);
    add(*regular, SceneType::PGM, layer(0, 2, LayerType::BKG, SourceType::BKG, 1));
    regular->setName("%1"_q);
    device->clearPreset();
    EXPECT_TRUE(device->isFileUsed(1, FileType::BKG) && device->isFileUsed(FileType::BKG));
    EXPECT_FALSE(device->isFileUsed(2, FileType::BKG));
    const auto tail = "and the corresponding screen and preset will no longer be displayed after deletion,"
                      "Are you sure to delete "_q;
    EXPECT_EQ(device->deleteCurrentBKGMessage(shown), "Current BKG is used by %1,"_q + tail + "this BKG?"_q);
    EXPECT_EQ(device->deleteCurrentBKGMessage(saved) + device->deleteCurrentBKGMessage({}),
              "Are you sure to delete this BKG?"_q);
    EXPECT_EQ(device->deleteAllBKGMessage(0), "Part of the BKG is used, "_q + tail + "all BKG?"_q);
}

} // namespace Quorix::Tests
