/// What stands in the documents, and that the model comes back from them.
#include "store.h"

#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/layers/layerkinds.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>
#include <support/report.h>

#include <QRegularExpression>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using Enum::File::FileType;

/// The keys of the objects at each place of a document, in their order. A place is made of keys alone.
QMap<QString, QStringList> keysOf(const QByteArray &text) {
    static const QRegularExpression tokens(R"re("(\w+)":|"(?:\\.|[^"\\])*"|[][{}])re"_q);
    QMap<QString, QStringList> keys;
    QStringList places;
    QString next;
    for (auto match = tokens.globalMatch(QString::fromLatin1(text)); match.hasNext();) {
        const auto token = match.next();
        const QString key = token.captured(1);
        if (token.captured() == "{" || token.captured() == "[") {
            places.append(next);
        } else if (token.captured() == "}" || token.captured() == "]") {
            next = places.takeLast();
        } else if (!key.isEmpty()) {
            next = places.last() + (places.last().isEmpty() ? "" : "/") + key;
            if (!keys[places.last()].contains(key))
                keys[places.last()] += key;
        }
    }
    return keys;
}

struct Documents : StoreTest {
    static std::shared_ptr<Layer> newLayer(int type) {
        auto layer = Screen::createLayer(static_cast<Enum::Layer::LayerType>(type));
        layer->setSceneType(Enum::Layer::SceneType::PVW);
        return layer;
    }
    /// A device with something in every list.
    std::shared_ptr<Device> filled(const QString &report) {
        const auto device = appendedDevice({"Größe"_q, "10.0.0.7"_q, 0xAB, 0x1F}, readReport(report).modelId);
        readReport(report).feed(*device);
        device->setIPAddress("10.0.0.7"_q);
        for (const auto type : {FileType::BKG, FileType::LOGO, FileType::UMD, FileType::UserKeyFile, FileType::keypad})
            device->addFile({device->createFile(type)});
        for (const auto id : {2, 10, 1}) {
            const auto preset = std::static_pointer_cast<Preset>(device->createFile(FileType::PresetPGM));
            preset->setFileId(static_cast<uint8_t>(id));
            device->addPreset(preset);
            preset->setScreens({{0, 2}}, FileType::PresetPGM);
        }
        const auto mvr = std::make_shared<MVRScreen>();
        mvr->setRowColSpan({3, 5});
        device->appendScreen(mvr);
        for (const auto &screen : device->screens(30)) {
            for (const auto type : {2, 4, 8, 16, 32, 64})
                screen.lock()->addLayer(newLayer(type));
            // A load finds the name of a ratio where there is none.
            for (const auto &layer : screen.lock()->layers(6, 126))
                layer.lock()->updateWidthHeightRatioType();
        }
        device->inputs().front().lock()->setCropLocked(true);
        std::static_pointer_cast<Input>(device->inputs().front().lock())->setPickPoint({3, 4});
        device->outputs().front().lock()->setZorder(7);
        device->setMultiScreens(true);
        device->setDeviceGroupName("Foyer"_q);
        return device;
    }
    /// The first stored file of that kind.
    QByteArray stored(const QString &suffix = ".json"_q) {
        const Files files = filesUnder(root);
        return files.value(files.keys().filter(suffix).value(0));
    }
};

TEST_F(Documents, HaveTheirKeysInOrder) {
    filled("alder-max"_q);
    serailizer.serailize();
    const Files files = filesUnder(root);
    const QString id = "10.0.0.7_0000000000AB_000000000000001F"_q;
    EXPECT_EQ(files.keys(),
              (QStringList{id + "/1.preset", id + "/" + id + ".json", id + "/10.preset", id + "/2.preset"}));
    const QByteArray text = stored();
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return c >= 32 && c < 127; }));
    const QString screen = "m_detail m_regularLayerList m_auxLayerList m_mvrLayerList m_bkgLayerList m_logoLayerList "
                           "m_iZOrder m_screenState m_lastScreenState m_curOperationTarget"_q;
    const QPair<const char *, QString> rows[] = {
        {"", "m_modelId m_detail m_regularScreens m_AUXScreens m_MVRSscreens m_logos m_bkgs m_umdFiles m_inputs "
             "m_outputs m_userKey m_keypads m_subcards m_bIsMuliScreens m_pDeviceBaseInfo m_deviceGroupInfo"},
        {"m_regularScreens m_AUXScreens", screen},
        {"m_MVRSscreens", screen + " m_rowColSpan"},
        {"m_regularScreens/m_regularLayerList m_AUXScreens/m_auxLayerList m_MVRSscreens/m_mvrLayerList "
         "m_regularScreens/m_bkgLayerList m_regularScreens/m_logoLayerList",
         "m_detail m_enumCapacity m_bWindowWHRatio m_eAspectRatioType m_bWindowWHRatioLockd m_dBorderWHRatio "
         "m_bBorderWHRatioLockd m_uiBorderColor"},
        {"m_logos m_bkgs", "m_detail m_thumbnailHashKey m_originalImageHashKey"},
        {"m_umdFiles", "m_detail"},
        {"m_userKey", "m_detail m_contents"},
        {"m_keypads", "m_detail m_keypadInfo"},
        {"m_inputs", "m_detail m_cropLocked m_cutoutPosInfo m_bOverLoad m_pickUpPoint"},
        {"m_outputs", "m_detail m_cropLocked m_cutoutPosInfo m_bOverLoad m_outputZorder"},
        {"m_subcards", "m_connectors m_slotId"},
        {"m_subcards/m_connectors", "m_cardConnectorInfo m_connectorId m_iIndex m_frameRate m_refreshRate m_overLoad"},
        {"m_subcards/m_connectors/m_cardConnectorInfo",
         "Connector Enable BackupPos Margin Signal Status PrintKeyNo Visible Step"},
    };
    const auto keys = keysOf(text);
    for (const auto &[places, expected] : rows)
        for (const QString &place : QString(places).split(' '))
            EXPECT_EQ(keys[place].join(' '), expected) << qPrintable(place);
    EXPECT_EQ(keysOf(stored(".preset"_q))[""].join(' '), "m_detail m_contents"_q);
    EXPECT_TRUE(keysOf(stored(".preset"_q)).contains("m_contents/layers"_q));
    for (const char *part : {R"({"m_modelId":29959,"m_detail":{)", R"(],"m_modelId":29959,"m_userKey":[)",
                             R"("m_bIsMuliScreens":1,)", R"("m_cropLocked":1,)", R"("m_pickUpPoint":{"x":3,"y":4}})",
                             R"("m_outputZorder":7})", R"("groupName":"Foyer")", R"("SN":[0,0,0,0,0,0,0,31])"})
        EXPECT_TRUE(text.contains(part)) << part;
}

/// What is loaded is stored as the same text again, and lives.
TEST_F(Documents, BringTheModelBack) {
    for (const auto &report : {"alder"_q, "alder-max"_q, "birch-mini"_q}) {
        DeviceList::instance()->clear();
        filled(report);
        serailizer.serailize();
        const Files files = filesUnder(root);
        const auto device = load();
        ASSERT_TRUE(device != nullptr);
        serailizer.serailize();
        EXPECT_EQ(filesUnder(root), files);
        EXPECT_FALSE(device->onlineFlag());
        EXPECT_FALSE(device->activedScreen().expired());

        EventLog log(DeviceList::instance());
        log.name(device.get(), "device"_q);
        const auto screen = device->screens(2).front().lock();
        const auto layers = screen->layers(6, 64);
        ASSERT_FALSE(layers.isEmpty()) << "a cut layer keeps its kind";
        EXPECT_FALSE(std::dynamic_pointer_cast<CutLayer>(layers.front().lock()));
        log.name(screen.get(), "screen"_q);
        log.name(layers.front().lock().get(), "layer"_q);
        layers.front().lock()->setOpacity(3, "me"_q);
        device->inputs().front().lock()->setName("first"_q);
        device->files(0).front().lock()->setName("picture"_q);
        device->findPreset(10).lock()->setName("show"_q);
        EXPECT_EQ(log.take().filter("device"_q).size(), 4);
        EXPECT_EQ(device->presets().value(1).lock()->fileId(), 10) << "in the order of the folder";
        const auto input = device->inputs().front().lock();
        EXPECT_EQ(device->findInput(input->interfaceId()).lock(), input) << "packed ids come back, too";
        const auto card = device->subcards().front().lock();
        EXPECT_EQ(card->connectors().front().lock()->owerSubcard().lock(), card);
    }
}

/// Null entries come back as such, and every walk passes over them. Keys that are missing leave what a new object
/// holds.
TEST_F(Documents, MayHaveGaps) {
    const QByteArray text =
        R"({"m_modelId":29953,"m_regularScreens":[0,{"m_regularLayerList":[0,{}],"m_auxLayerList":[0],)"
        R"("m_mvrLayerList":[0],"m_bkgLayerList":[0],"m_logoLayerList":[0]}],"m_AUXScreens":[0,{}],)"
        R"("m_MVRSscreens":[0],"m_logos":[0,{}],"m_bkgs":[0],"m_umdFiles":[0],"m_inputs":[0],"m_outputs":[0,{}],)"
        R"("m_userKey":[0],"m_keypads":[0],"m_subcards":[0,{"m_connectors":[0]}],"m_pDeviceBaseInfo":0,)"
        R"("surplus":[{"a":[1,2]}]})";
    writeFile(root + "/x/x.json", text);
    const auto device = load();
    ASSERT_TRUE(device != nullptr);
    serailizer.serailize();
    const QRegularExpression zeros(R"("\w+":\[?0)"_q);
    for (auto match = zeros.globalMatch(text); match.hasNext();) {
        const QString zero = match.next().captured();
        EXPECT_TRUE(stored().contains(zero.toLatin1())) << qPrintable(zero);
    }
    const auto screen = device->screens(2).front().lock();
    const auto card = device->subcards().front().lock();
    EXPECT_EQ(device->screens(30).size() + device->subcards().size() + device->interfaces().size(), 4);
    EXPECT_EQ(device->outputs().front().lock()->presetColorGamut(), Output().presetColorGamut());
    EXPECT_EQ(device->files(int(FileType::LOGO)).size(), 1);
    EXPECT_EQ(screen->hdr(), RegularScreen().hdr());
    EXPECT_TRUE(device->deviceGroupStatus());
    EXPECT_TRUE(card->connectors().isEmpty() && screen->layers(6, 126).isEmpty() && device->findInput(1).expired() &&
                device->findInput(1, 1).expired());
    EXPECT_LE(device->outputs(4).size() + device->outputsBySameConnectorType({}).size(), 2);
    EXPECT_FALSE(device->isOpenedMVR() || device->isOutputNameExist("a"_q));
    EXPECT_EQ(device->mainControlVersion() + device->MAC(), "V0.0.0.0000000000000"_q);
    EXPECT_EQ(device->outputInterfaceCount(Enum::Interface::InterfaceType::AUXOutput, {}, false), 0);
    device->validInputs();
    device->createInput();
    device->createOutput();
    device->resetHotBackForSameCapacity();
    device->removeAllLyaerBySource(1, Enum::Layer::SourceType::BKG);
    device->appendScreen(device->createDefaultScreen(Enum::Screen::ScreenType::RegularScreen, 1, 1));
    device->addSubcard(3, Enum::Device::CardType::_INPUT, 30464);
    QString error;
    device->initModelData(readReport("alder"_q).interfaces, error);
    screen->addLayer(newLayer(2));
    card->addConnector();
    EXPECT_EQ(device->screens(30).size() + device->subcards().size() + screen->layers(6, 126).size() +
                  card->connectors().size(),
              7);
    device->clearAll(false);
}

} // namespace
