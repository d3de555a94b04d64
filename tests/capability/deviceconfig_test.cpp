#include "config_files.h"

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <QSet>
#include <QVariant>

namespace {

const QByteArray kDevice = sampleFile("device");
const QByteArray kTimeOuts = R"(<Quorix><ModelID>100</ModelID><DefaultTimeOut>9000</DefaultTimeOut>
<TimeOuts><T Bc="2" Fc="3">500</T><T Bc="2" Fc="4">600</T></TimeOuts></Quorix>)";

struct DeviceConfigTest : testing::Test {
    ~DeviceConfigTest() override { DeviceConfigManager::destroyInstance(); }

    /// The record of a device file's text; the test fails if it doesn't read.
    DeviceConfig read(const QByteArray &xml) {
        EXPECT_EQ(fault(xml), "");
        return manager->DeviceConfigs().isEmpty() ? DeviceConfig() : manager->DeviceConfigs().last();
    }
    /// The error of a device file's text or of a folder; empty: it reads.
    std::string fault(const QByteArray &xml) {
        QString errMsg;
        const bool isRead = manager->readDeviceConfig(xml, errMsg);
        EXPECT_EQ(isRead, errMsg.isEmpty());
        return errMsg.toStdString();
    }
    QString folderFault(const QString &path) {
        QString errMsg;
        const bool isRead = manager->readConfig(path, errMsg);
        EXPECT_EQ(isRead, errMsg.isEmpty());
        return errMsg;
    }
    DeviceConfigManager *manager = DeviceConfigManager::instance();
};

/// The fields of the attributes below, in their order.
std::vector<int> fields(const DeviceConfig &c) {
    const auto &[screens, layer, mvr, aux] =
        std::tie(c.MainScreenCfg, c.MainScreenCfg.MainLayerCfg, c.MVRScreensCfg, c.AuxSceensCfg);
    const auto ints = [](auto... value) { return std::vector{static_cast<int>(value)...}; };
    return ints(
        c.IsSupportCancelProcess, c.IsRestoreKeepUserData, c.IsSupportSoftRestart, c.IsSupportProjectFile,
        c.IsSupportPresetLoadToPGM, c.IsSupportFactoryResetAutoRestart, c.UpgradeType, c.EthernetType,
        screens.MaxLayerCount, screens.PGMLayerOffset, screens.IsSupportProjectionFusion, screens.IsSupportOutputZOrder,
        screens.ScreenSpliceMode, layer.IsSupportReverseColor, layer.IsSupportMask, layer.IsSupportBorder,
        mvr.IsManualSwitch, mvr.OpenState, mvr.StartSlotIndex, mvr.ScreenSpliceMode, aux.IsSupport, aux.IsManualSwitch,
        aux.StartSlotIndex, aux.IsSupportIncompleteSplicing, aux.MaxAUXLayerCount, aux.MaxAUXScreenCount,
        aux.IsEXPSlotSupport, c.EchoVideoCfg.ECVideoSourceType, c.EchoVideoCfg.SlotIndex, c.EchoVideoCfg.ConnectorIndex,
        c.EchoVideoCfg.FPS, c.InputCfg.IsSupportCutout, c.MvrLayerCfg.AntishakeOffset, c.OutputCfg.IsSupportVPU);
}

TEST_F(DeviceConfigTest, AttributesGoToTheirFields) {
    // An element; its attributes, each with its field without it and with a 3.
    const std::pair<QByteArray, QString> rows[] = {
        {"ModelID",
         "IsSupportCancelProcess 0 1 IsRestoreKeepUserData 0 1 IsSupportSoftRestart 0 1 IsSupportProjectFile 0 1 "
         "IsSupportPresetLoadToPGM 0 1 IsSupportFactoryResetAutoRestart 0 1 UpgradeType 0 3 Ethernet 0 3"},
        {"MainScreens",
         "MaxLayerCount 0 3 PGMLayerOffset 0 3 IsSupportProjectionFusion 0 1 IsSupportOutputZOrder 0 1 SpliceMode 2 3"},
        {"Layer", "IsSupportReverseColor 0 1 IsSupportMask 0 1 IsSupportBroder 0 1"},
        {"MvrScreens", "IsManualSwitch 0 0 OpenState 0 3 StartSlotIndex 255 3 SpliceMode 2 3"},
        {"AuxScreens", "IsSupport 0 1 IsManualSwitch 0 0 StartSlotIndex 255 3 IsSupportIncompleteSplicing 0 1 "
                       "MaxAUXLayerCount 0 3 MaxAUXScreenCount 0 3 IsEXPSlotSupport 0 1"},
        {"EchoVideo", "ECVideoType 0 3 SlotIndex 0 3 ConnectorIndex 0 3 FPS 15 3"},
        {"Input", "IsSupportCutout 0 1"},
        {"MvrLayer", "AntishakeOffset 0 3"},
        {"Output", "IsSupportVPU 0 1"},
    };
    const QByteArray device = edited(edited(kDevice, "<MainScreens/>", "<MainScreens><Layer/></MainScreens>"),
                                     "</Screens>", "</Screens><EchoVideo/><Input/><MvrLayer/><Output/>");
    const auto without = fields(read(device));
    std::size_t i = 0;
    for (const auto &[tag, attributes] : rows) {
        const QByteArray open = '<' + tag;
        const QByteArray end = device.contains(open + "/>") ? "/>" : ">";
        const QStringList words = attributes.split(' ');
        for (int at = 0; at < words.size(); at += 3, ++i) {
            auto with = without;
            EXPECT_EQ(std::exchange(with.at(i), words[at + 2].toInt()), words[at + 1].toInt()) << qPrintable(words[at]);
            const QByteArray three = open + ' ' + words[at].toLatin1() + "=\"3\"" + end;
            EXPECT_EQ(fields(read(edited(device, open + end, three))), with) << three.data();
        }
    }
    EXPECT_EQ(i, without.size());
}

TEST_F(DeviceConfigTest, ElementsGoToTheirFields) {
    const DeviceConfig c = read(kDevice);
    EXPECT_EQ(c.Name + c.IconName, "Elmelm_icon");
    EXPECT_EQ(read(edited(kDevice, "Icon=\"elm_icon\"", "")).IconName, "Elm");
    EXPECT_THAT(
        (std::vector<int>{c.SlotCount, c.ModelID, c.BackplaneModelId, c.MaxPresetCount, toInt(c.SubCardDirection)}),
        ElementsAre(9, 100, 200, 240, 2));
    EXPECT_THAT((std::vector<int>{c.InputSlotCount, c.InputSlotStartIndex, c.OutputSlotCount, c.OutputSlotStartIndex,
                                  c.ExpSlotCount, c.ExpSlotStartIndex, c.AuxSlotCount, c.AuxSlotStartIndex}),
                ElementsAre(4, 2, 2, 6, 3, 5, 0, 255));
    ASSERT_EQ(c.upgradeCfgs.size(), 2);
    const auto &section = c.upgradeCfgs[0];
    EXPECT_THAT((std::vector<int>{section.type, section.sectionCode, section.compatibilityCode, section.visible,
                                  c.upgradeCfgs[1].visible}),
                ElementsAre(3, 7, 8, true, false));
    EXPECT_EQ(c.UpgradeVersions["V1"], 1);
    EXPECT_TRUE(c.InputCfg.IsSupportCutout && c.OutputCfg.IsSupportVPU); // true without their elements
    EXPECT_TRUE(c.findCodeBySectionName("Main") == 7 && c.findCodeBySectionName("None") == -1);
    EXPECT_EQ(c.findSectionNameByCode(7), "Main");

    // What stands in a list already is dropped.
    ASSERT_EQ(c.InputCards().size(), 2);
    EXPECT_EQ(c.InputCards()[0].m_LanguageForName["en"], "First");
    // A name that is absent in the file is stored empty.
    EXPECT_TRUE(c.InputCards()[0].m_bEnable && c.InputCards()[1].m_LanguageForName.contains("zh_CN"));
    EXPECT_EQ(c.MVRScreensCfg.mvrScreenConfigs(), (QList<MVRScreenConfig>{{1, 6}, {255, 6}}));
    EXPECT_EQ(c.AuxSceensCfg.auxScreenConfigs(), (QList<AuxScreenConfig>{{2, 7}}));
    EXPECT_EQ(DeviceConfig::findSubCardByModelId(c.MvrCards(), 41), &c.mvrCards.at(0));
    EXPECT_EQ(DeviceConfig::findSubCardByModelId(c.MvrCards(), 42), nullptr);
}

TEST_F(DeviceConfigTest, Numbers) {
    // What an 8-bit field makes of a text; it is 255 when absent.
    const std::pair<QByteArray, int> rows[] = {
        {"7", 7},    {" 7\n", 7}, {"+7", 7},   {"007", 7},        {"", 0},
        {"x", 0},    {"7x", 0},   {"0x10", 0}, {"7.0", 0},        {"1,000", 0},
        {"-1", 255}, {"300", 44}, {"+-1", 0},  {"4294967303", 7}, {"99999999999999999999", 0},
    };
    for (const auto &[text, wanted] : rows)
        EXPECT_EQ(read(edited(kDevice, "StartSlotIndex=\"2", "StartSlotIndex=\"" + text)).InputSlotStartIndex, wanted)
            << text.data();
    EXPECT_TRUE(
        read(edited(kDevice, "<MvrScreens>", "<MvrScreens IsManualSwitch=\"0\">")).MVRScreensCfg.IsManualSwitch);
}

TEST_F(DeviceConfigTest, BadDeviceFiles) {
    const std::string notOne = "The file is not a valid configuration file of version 1.0 for device.";
    const std::tuple<QByteArray, QByteArray, std::string> rows[] = {
        {"</Quorix>", "", "Parse error at line 21, column 1:\nunexpected end of file"},
        {"version=\"1.0\"", "version=\"1.00\"", notOne},
        {"version=\"1.0\"", "version=\"\"", notOne},
        {"<en>Elm</en>", "", "Invalid [en] node."},
        {"<ModelID>100</ModelID>", "", "Elm Invalid [ModelID] node."},
        {"<BackplaneModelId>200</BackplaneModelId>", "", "Elm Invalid [BackplaneModelId] node."},
        {"<MainScreens/>", "", "Elm Invalid [MainScreens] node."},
        // A card speaks without the model's name.
        {"<Name><en>Second</en></Name>", "", "Invalid [Name] node."},
        {"<Name><en>Link</en></Name>", "", "Invalid [Name] node."},
        {"<Name><en>View</en></Name>", "", "Invalid [Name] node."},
    };
    for (const auto &[from, to, errMsg] : rows)
        EXPECT_THAT(fault(edited(kDevice, from, to)), testing::StartsWith(errMsg)) << from.data();
    for (const char *tag : {"InputCards", "OutputCards", "Screens", "MvrScreens", "AuxScreens"}) {
        QByteArray without = kDevice;
        without.replace(QByteArray("<") + tag, "<Other").replace(QByteArray("</") + tag, "</Other");
        EXPECT_EQ(fault(without), std::string("Elm Invalid [") + tag + "] node.");
    }
    QByteArray two = edited(kDevice, "<Name><en>Second</en></Name>", "");
    EXPECT_EQ(fault(two.replace("OutputCards", "Other")), "Invalid [Name] node."); // the order of the elements decides
    EXPECT_EQ(fault("<quorix/>"), "The file is not a valid configuration file for device.");
    EXPECT_TRUE(manager->DeviceConfigs().isEmpty());
}

TEST_F(DeviceConfigTest, HostileDocuments) {
    const auto nested = [](int n) { return QByteArray("<a>").repeated(n) + QByteArray("</a>").repeated(n); };
    const auto inDevice = [](const QByteArray &part) {
        return edited(kDevice, "<UpgradeVersions>", part + "<UpgradeVersions>");
    };
    QByteArray attributes = "<a";
    for (int i = 0; i < 100000; ++i)
        attributes += " b" + QByteArray::number(i) + "='>'";
    attributes += "/>";
    const std::pair<QByteArray, std::string> rows[] = {
        {inDevice(nested(63)), ""},
        {inDevice(nested(64)), "Parse error at line 6, column 192:\nelements are nested too deeply"},
        {nested(1000000), "Parse error at line 1, column 195:\nelements are nested too deeply"},
        {QByteArray("<a>").repeated(1000000), "Parse error at line 1, column 195:\nelements are nested too deeply"},
        {inDevice(attributes), "Parse error at line 6, column"},
        {"<!DOCTYPE Quorix>" + kDevice, ""},
        {"<!DOCTYPE q [<!ELEMENT a " + QByteArray("(").repeated(1000000) + ">]>" + kDevice,
         "Parse error at line 1, column 13:\ninternal document type definitions are not supported"},
        {inDevice("<!--" + nested(100) + "--><![CDATA[" + nested(100) + "]]><?a " + nested(100) + "?>"), ""},
        // The comment ends at its second "-->": what stands in it takes nothing off the depth.
        {inDevice("<!-->" + QByteArray("</a>").repeated(100) + "-->" + nested(100)),
         "Parse error at line 6, column 600:\nelements are nested too deeply"},
        {"\xEF\xBB\xBF" + kDevice, ""}, // byte order mark
        {inDevice("<a b=\"<\"/>"), "Parse error at line 6"},
        {kDevice.left(200), "Parse error at line"},
        {QByteArray(100, '\0'), "Parse error at line"},
        {QByteArray(), "Parse error at line"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(fault(row.first).substr(0, row.second.empty() ? 99 : row.second.size()), row.second) << &row - rows;
}

TEST_F(DeviceConfigTest, Folders) {
    EXPECT_EQ(folderFault({}), "Invalid file path!\n");
    const ConfigDir dir;
    const QString deep = dir.path() + "/not/yet";
    EXPECT_EQ(folderFault(deep), ""); // made, with its sub-folder; no file is no failure
    EXPECT_TRUE(QFileInfo(deep + "/timeout").isDir() && manager->findDeviceConfigByID(100) == nullptr);

    // By name, whatever its case; neither folders nor other endings.
    dir.write("b.xml", kDevice);
    dir.write("A.xml", edited(kDevice, "<en>Elm</en>", "<en>Oak</en>"));
    dir.write("c.xml/inner.xml", "no document");
    dir.write("notes.txt", "no document");
    dir.write("timeout/x.xml", kTimeOuts);
    EXPECT_EQ(folderFault(dir.path()), "");
    EXPECT_EQ(manager->modelIdList(), (QList<unsigned short>{100, 100}));
    const DeviceConfig *first = manager->findDeviceConfigByID(100);
    EXPECT_EQ(first->Name, "Oak");
    EXPECT_EQ(first->DefaultTimeOut, 9000U);
    EXPECT_EQ(manager->DeviceConfigs()[1].DefaultTimeOut, 10000U); // the first record of a model takes the times
    EXPECT_TRUE(first->findTimeOutByBcAndFc(2, 4) == 600U && first->findTimeOutByBcAndFc(3, 4) == 9000U);

    EXPECT_EQ(folderFault(dir.path() + "/b.xml"), "Invalid file path!\n" + dir.path() + "/b.xml");
    dir.write("d.xml", "<Quorix/>");
    EXPECT_EQ(folderFault(dir.path()), "Invalid [en] node.");
    EXPECT_EQ(manager->DeviceConfigs().size(), 4); // the files before the bad one stay, behind those of the first read
    const ConfigDir blocked;
    blocked.write("timeout", "a file");
    EXPECT_EQ(folderFault(blocked.path()), "Invalid file path!\n" + blocked.path() + "/timeout");
}

TEST_F(DeviceConfigTest, BadTimeOutFiles) {
    const std::tuple<QByteArray, QByteArray, const char *> rows[] = {
        {"<Quorix>", "<Quorix version='2'>", "The file is not a valid configuration file of version 1.0 for device."},
        {"<ModelID>100</ModelID>", "", "t.xml Invalid [ModelID] node."},
        {"<ModelID>100</ModelID>", "<ModelID>101</ModelID>", "DeviceConfig Not Find From ModelID:101"},
        {"<DefaultTimeOut>9000</DefaultTimeOut>", "", "t.xml Invalid [DefaultTimeOut] node."},
    };
    for (const auto &[from, to, errMsg] : rows) {
        const ConfigDir dir;
        dir.write("a.xml", kDevice);
        dir.write("timeout/t.xml", edited(kTimeOuts, from, to));
        EXPECT_EQ(folderFault(dir.path()), errMsg);
    }
}

TEST_F(DeviceConfigTest, RecordsKeepTheirAddresses) {
    EXPECT_EQ(manager->initDeviceConfig(65535), nullptr);
    DeviceConfig *first = manager->initDeviceConfig(1);
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->IsSupportCancelProcess && toInt(first->MainScreenCfg.ScreenSpliceMode) == 12);
    const QList<DeviceConfig> copy = manager->DeviceConfigs();
    for (quint16 id = 2; id < 300; ++id)
        manager->initDeviceConfig(id);
    EXPECT_NE(manager->initDeviceConfig(1), first); // no look whether there is one
    EXPECT_TRUE(manager->findDeviceConfigByID(1) == first && &manager->DeviceConfigs().first() == first);
    EXPECT_NE(&copy.first(), first);
}

TEST_F(DeviceConfigTest, SlotsAndCards) {
    read(kDevice); // expansion 5 to 7, input 2 to 5, output 6 to 7
    read(edited(edited(kDevice, "<ModelID>100", "<ModelID>101"), "ExpCards SlotCount=\"3", "ExpCards SlotCount=\"0"));
    const std::tuple<quint16, quint8, quint16, const char *, const char *> rows[] = {
        {100, 2, 11, "In1", "First"}, {100, 4, 12, "In3", "English"}, {100, 5, 31, "EXP", "Link"},
        {100, 5, 11, "EXP", "First"}, // not in the first range's list: the next range is tried
        {100, 6, 11, "EXP", ""},      {101, 6, 21, "Out1", "Out"},    {101, 7, 11, "Out2", ""},
        {100, 1, 11, "", ""},         {100, 8, 21, "", ""},           {102, 2, 11, "", ""},
        {100, 255, 21, "", ""},
    };
    for (const auto &[model, slot, card, label, name] : rows) {
        EXPECT_EQ(manager->subCardIndexInfo(model, slot), label) << int(slot);
        EXPECT_EQ(manager->subCardName(model, card, slot), name) << int(slot);
    }
}

TEST_F(DeviceConfigTest, CardNamesFollowTheApplicationsLanguage) {
    const std::tuple<QMap<QString, QString>, const char *, const char *> rows[] = {
        {{}, "en", ""},
        {{{"en", "E"}, {"zh_CN", "C"}}, "zh_CN", "C"},
        {{{"en", "E"}, {"zh_CN", "C"}}, "", "E"},
        {{{"en", "E"}, {"zh_CN", "C"}}, "fr", "E"},
        {{{"en", "E"}, {"zh_CN", ""}}, "zh_CN", ""}, // an empty text hides the English name
        {{{"zh_CN", "C"}}, "fr", ""},
    };
    for (const auto &[names, locale, wanted] : rows) {
        qApp->setProperty("quorix_locale", locale);
        s_SubCardConfig card;
        card.m_LanguageForName = names;
        EXPECT_EQ(card.CardName(), wanted) << locale;
    }
    qApp->setProperty("quorix_locale", QVariant());
}

TEST(DeviceConfigSingleton, ThreadsMeetAtOneInstance) {
    std::vector<DeviceConfigManager *> seen(8);
    std::vector<std::thread> threads(seen.size());
    for (std::size_t i = 0; i < seen.size(); ++i)
        threads[i] = std::thread([&slot = seen[i]] { slot = DeviceConfigManager::instance(); });
    for (auto &thread : threads)
        thread.join();
    EXPECT_THAT(seen, testing::Each(DeviceConfigManager::instance()));
    DeviceConfigManager *next = nullptr;
    QObject::connect(seen[0], &QObject::destroyed, [&next] { next = DeviceConfigManager::instance(); });
    DeviceConfigManager::destroyInstance(); // holds no lock while its signal is out
    EXPECT_NE(next, nullptr);
    DeviceConfigManager::destroyInstance();
}

/// The sample deployment stands for a customer's: it has to read, and its two halves have to agree.
TEST(SampleData, ReadsAndAgrees) {
    auto *devices = DeviceConfigManager::instance();
    auto *interfaces = InterfaceConfig::instance();
    const QString data = QStringLiteral(QUORIX_DATA_DIR "/");
    QString errMsg;
    EXPECT_TRUE(devices->readConfig(data + DEVICECONFIG_FOLDER, errMsg));
    EXPECT_TRUE(interfaces->readConfig(data + INTERFACE_CONFIG_FILE, errMsg));
    ASSERT_EQ(errMsg, QString()); // no timing was dropped either

    const auto ids = devices->modelIdList();
    EXPECT_TRUE(ids.size() == 7 && QSet<int>(ids.begin(), ids.end()).size() == 7);
    QSet<int> types;
    for (const auto &info : interfaces->connectorInfos())
        types.insert(toInt(info.m_eType));
    EXPECT_EQ(types.size(), toInt(InterfaceConfig::ConnectorType::ConnectorTypeCnt) - 1);
    for (const DeviceConfig &device : devices->DeviceConfigs()) {
        EXPECT_EQ(devices->findDeviceConfigByID(device.ModelID), &device);
        for (const auto *cards : {&device.inputCards, &device.outputCards, &device.expCards, &device.mvrCards})
            for (const s_SubCardConfig &card : *cards) {
                const auto *layout = interfaces->findSubCardByModelId(card.m_ModelID);
                ASSERT_NE(layout, nullptr) << card.m_ModelID;
                EXPECT_EQ(layout->CardName("en"), card.m_LanguageForName["en"]);
            }
        EXPECT_LE(device.InputSlotCount + device.OutputSlotCount + device.ExpSlotCount, device.SlotCount);
    }
    for (const quint16 limited : QList<quint16>{30472, 30473, 30474})
        EXPECT_FALSE(interfaces->getCapacityGroup(limited).isEmpty());
    DeviceConfigManager::destroyInstance();
    InterfaceConfig::destroyInstance();
}

} // namespace
