#include "config_files.h"

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/common/enumtools.h>

#include <QCoreApplication>
#include <QVariant>

#include <thread>

using namespace Quorix::BizModel;
using testing::ElementsAre;

namespace {

const QByteArray kDevice = R"(<Quorix version="1.0">
<Name Icon="elm_icon" SlotCount="9"><en>Elm</en></Name>
<ModelID>100</ModelID>
<BackplaneModelId>200</BackplaneModelId>
<Sections><A Name="Main" Type="3" Code="7" CompatibilityCode="8" Visible="1"/><!-- none --><B Code="9"/></Sections>
<UpgradeVersions><V Version="V1" Type="257"/></UpgradeVersions>
<SubCardDirection>2</SubCardDirection>
<InputCards SlotCount="4" StartSlotIndex="2">
  <Card ModelID="11" Enable="1"><Name><en>First</en><zh_CN>Eins</zh_CN></Name></Card>
  <Card ModelID="11"><Name><en>Second</en></Name></Card>
  <Card ModelID="12"><Name><en>English</en></Name></Card>
</InputCards>
<OutputCards SlotCount="2" StartSlotIndex="6"><Card ModelID="21"><Name><en>Out</en></Name></Card></OutputCards>
<ExpCards SlotCount="3" StartSlotIndex="5"><Card ModelID="31"><Name><en>Link</en></Name></Card></ExpCards>
<MvrCards><Card ModelID="41"><Name><en>View</en></Name></Card></MvrCards>
<Screens>
  <MainScreens/>
  <MvrScreens><S ConnectorIndex="1" SlotIndex="6"/><S ConnectorIndex="1" SlotIndex="6"/><S SlotIndex="6"/></MvrScreens>
  <AuxScreens><S ConnectorIndex="2" SlotIndex="7"/><S ConnectorIndex="2" SlotIndex="7"/></AuxScreens>
</Screens>
</Quorix>)";

const QByteArray kTimeOuts = R"(<Quorix><ModelID>100</ModelID><DefaultTimeOut>9000</DefaultTimeOut>
<TimeOuts><T Bc="2" Fc="3">500</T><T Bc="2" Fc="4">600</T></TimeOuts></Quorix>)";

struct DeviceConfigTest : testing::Test {
    ~DeviceConfigTest() override { DeviceConfigManager::destroyInstance(); }

    /// The record of a device file's text; the test fails if it doesn't read.
    DeviceConfig read(const QByteArray &xml) {
        QString errMsg;
        EXPECT_TRUE(manager->readDeviceConfig(xml, errMsg)) << errMsg.toStdString();
        return manager->DeviceConfigs().isEmpty() ? DeviceConfig() : manager->DeviceConfigs().last();
    }

    DeviceConfigManager *manager = DeviceConfigManager::instance();
};

using Get = int (*)(const DeviceConfig &);
#define FIELD(expression) [](const DeviceConfig &c) { return static_cast<int>(c.expression); }

TEST_F(DeviceConfigTest, AttributesGoToTheirFields) {
    const struct {
        const char *tag, *attribute;
        int absent, three; // the field without the attribute, and with a 3
        Get get;
    } rows[] = {
        {"ModelID", "IsSupportCancelProcess", 0, 1, FIELD(IsSupportCancelProcess)},
        {"ModelID", "IsRestoreKeepUserData", 0, 1, FIELD(IsRestoreKeepUserData)},
        {"ModelID", "IsSupportSoftRestart", 0, 1, FIELD(IsSupportSoftRestart)},
        {"ModelID", "IsSupportProjectFile", 0, 1, FIELD(IsSupportProjectFile)},
        {"ModelID", "IsSupportPresetLoadToPGM", 0, 1, FIELD(IsSupportPresetLoadToPGM)},
        {"ModelID", "IsSupportFactoryResetAutoRestart", 0, 1, FIELD(IsSupportFactoryResetAutoRestart)},
        {"ModelID", "UpgradeType", 0, 3, FIELD(UpgradeType)},
        {"ModelID", "Ethernet", 0, 3, FIELD(EthernetType)},
        {"MainScreens", "MaxLayerCount", 0, 3, FIELD(MainScreenCfg.MaxLayerCount)},
        {"MainScreens", "PGMLayerOffset", 0, 3, FIELD(MainScreenCfg.PGMLayerOffset)},
        {"MainScreens", "IsSupportProjectionFusion", 0, 1, FIELD(MainScreenCfg.IsSupportProjectionFusion)},
        {"MainScreens", "IsSupportOutputZOrder", 0, 1, FIELD(MainScreenCfg.IsSupportOutputZOrder)},
        {"MainScreens", "SpliceMode", 2, 3, FIELD(MainScreenCfg.ScreenSpliceMode)},
        {"Layer", "IsSupportReverseColor", 0, 1, FIELD(MainScreenCfg.MainLayerCfg.IsSupportReverseColor)},
        {"Layer", "IsSupportMask", 0, 1, FIELD(MainScreenCfg.MainLayerCfg.IsSupportMask)},
        {"Layer", "IsSupportBroder", 0, 1, FIELD(MainScreenCfg.MainLayerCfg.IsSupportBorder)},
        {"MvrScreens", "IsManualSwitch", 0, 0, FIELD(MVRScreensCfg.IsManualSwitch)},
        {"MvrScreens", "OpenState", 0, 3, FIELD(MVRScreensCfg.OpenState)},
        {"MvrScreens", "StartSlotIndex", 255, 3, FIELD(MVRScreensCfg.StartSlotIndex)},
        {"MvrScreens", "SpliceMode", 2, 3, FIELD(MVRScreensCfg.ScreenSpliceMode)},
        {"AuxScreens", "IsSupport", 0, 1, FIELD(AuxSceensCfg.IsSupport)},
        {"AuxScreens", "IsManualSwitch", 0, 0, FIELD(AuxSceensCfg.IsManualSwitch)},
        {"AuxScreens", "StartSlotIndex", 255, 3, FIELD(AuxSceensCfg.StartSlotIndex)},
        {"AuxScreens", "IsSupportIncompleteSplicing", 0, 1, FIELD(AuxSceensCfg.IsSupportIncompleteSplicing)},
        {"AuxScreens", "MaxAUXLayerCount", 0, 3, FIELD(AuxSceensCfg.MaxAUXLayerCount)},
        {"AuxScreens", "MaxAUXScreenCount", 0, 3, FIELD(AuxSceensCfg.MaxAUXScreenCount)},
        {"AuxScreens", "IsEXPSlotSupport", 0, 1, FIELD(AuxSceensCfg.IsEXPSlotSupport)},
        {"EchoVideo", "ECVideoType", 0, 3, FIELD(EchoVideoCfg.ECVideoSourceType)},
        {"EchoVideo", "SlotIndex", 0, 3, FIELD(EchoVideoCfg.SlotIndex)},
        {"EchoVideo", "ConnectorIndex", 0, 3, FIELD(EchoVideoCfg.ConnectorIndex)},
        {"EchoVideo", "FPS", 15, 3, FIELD(EchoVideoCfg.FPS)},
        {"Input", "IsSupportCutout", 0, 1, FIELD(InputCfg.IsSupportCutout)},
        {"MvrLayer", "AntishakeOffset", 0, 3, FIELD(MvrLayerCfg.AntishakeOffset)},
        {"Output", "IsSupportVPU", 0, 1, FIELD(OutputCfg.IsSupportVPU)},
    };
    const QByteArray device = edited(edited(kDevice, "<MainScreens/>", "<MainScreens><Layer/></MainScreens>"),
                                     "</Screens>", "</Screens><EchoVideo/><Input/><MvrLayer/><Output/>");
    const DeviceConfig without = read(device);
    for (const auto &row : rows) {
        const QByteArray open = QByteArray("<") + row.tag;
        const QByteArray end = device.contains(open + "/>") ? "/>" : ">";
        const DeviceConfig with = read(edited(device, open + end, open + ' ' + row.attribute + "=\"3\"" + end));
        EXPECT_EQ(row.get(without), row.absent) << row.tag << ' ' << row.attribute;
        EXPECT_EQ(row.get(with), row.three) << row.tag << ' ' << row.attribute;
    }
}

TEST_F(DeviceConfigTest, ElementsGoToTheirFields) {
    const DeviceConfig c = read(kDevice);
    EXPECT_EQ(c.Name, "Elm");
    EXPECT_EQ(c.IconName, "elm_icon");
    EXPECT_EQ(read(edited(kDevice, "Icon=\"elm_icon\"", "")).IconName, "Elm");
    EXPECT_THAT(
        (std::vector<int>{c.SlotCount, c.ModelID, c.BackplaneModelId, c.MaxPresetCount, toInt(c.SubCardDirection)}),
        ElementsAre(9, 100, 200, 240, 2));
    EXPECT_THAT((std::vector<int>{c.InputSlotCount, c.InputSlotStartIndex, c.OutputSlotCount, c.OutputSlotStartIndex,
                                  c.ExpSlotCount, c.ExpSlotStartIndex, c.AuxSlotCount, c.AuxSlotStartIndex}),
                ElementsAre(4, 2, 2, 6, 3, 5, 0, 255));
    ASSERT_EQ(c.upgradeCfgs.size(), 2);
    const s_UpgradeCfg section = c.upgradeCfgs[0];
    EXPECT_THAT((std::vector<int>{section.type, section.sectionCode, section.compatibilityCode, section.visible}),
                ElementsAre(3, 7, 8, true));
    EXPECT_FALSE(c.upgradeCfgs[1].visible);
    EXPECT_EQ(c.UpgradeVersions["V1"], 1);
    EXPECT_TRUE(c.InputCfg.IsSupportCutout && c.OutputCfg.IsSupportVPU); // true without their elements
    EXPECT_EQ(c.findCodeBySectionName("Main"), 7);
    EXPECT_EQ(c.findCodeBySectionName("None"), -1);
    EXPECT_EQ(c.findSectionNameByCode(7), "Main");

    // What stands in a list already is dropped.
    ASSERT_EQ(c.InputCards().size(), 2);
    EXPECT_EQ(c.InputCards()[0].m_LanguageForName["en"], "First");
    EXPECT_TRUE(c.InputCards()[0].m_bEnable);
    EXPECT_TRUE(c.InputCards()[1].m_LanguageForName.contains("zh_CN")); // absent in the file: stored empty
    EXPECT_EQ(c.MVRScreensCfg.mvrScreenConfigs(), (QList<MVRScreenConfig>{{1, 6}, {255, 6}}));
    EXPECT_EQ(c.AuxSceensCfg.auxScreenConfigs(), (QList<AuxScreenConfig>{{2, 7}}));
    EXPECT_EQ(DeviceConfig::findSubCardByModelId(c.MvrCards(), 41), &c.mvrCards.at(0));
    EXPECT_EQ(DeviceConfig::findSubCardByModelId(c.MvrCards(), 42), nullptr);
}

TEST_F(DeviceConfigTest, Numbers) {
    const struct {
        const char *text;
        int wanted; // of an 8-bit field that is 255 when absent
    } rows[] = {
        {"7", 7},    {" 7\n", 7}, {"+7", 7},   {"007", 7},        {"", 0},
        {"x", 0},    {"7x", 0},   {"0x10", 0}, {"7.0", 0},        {"1,000", 0},
        {"-1", 255}, {"300", 44}, {"+-1", 0},  {"4294967303", 7}, {"99999999999999999999", 0},
    };
    for (const auto &row : rows)
        EXPECT_EQ(read(edited(kDevice, "StartSlotIndex=\"2\"", QByteArray("StartSlotIndex=\"") + row.text + '"'))
                      .InputSlotStartIndex,
                  row.wanted)
            << row.text;
    EXPECT_TRUE(
        read(edited(kDevice, "<MvrScreens>", "<MvrScreens IsManualSwitch=\"0\">")).MVRScreensCfg.IsManualSwitch);
}

TEST_F(DeviceConfigTest, BadDeviceFiles) {
    const struct {
        const char *from, *to, *errMsg;
    } rows[] = {
        {"</Quorix>", "", "Parse error at line 21, column 1:\nunexpected end of file"},
        {"version=\"1.0\"", "version=\"1.00\"",
         "The file is not a valid configuration file of version 1.0 for device."},
        {"version=\"1.0\"", "version=\"\"", "The file is not a valid configuration file of version 1.0 for device."},
        {"<en>Elm</en>", "", "Invalid [en] node."},
        {"<ModelID>100</ModelID>", "", "Elm Invalid [ModelID] node."},
        {"<BackplaneModelId>200</BackplaneModelId>", "", "Elm Invalid [BackplaneModelId] node."},
        {"<MainScreens/>", "", "Elm Invalid [MainScreens] node."},
        // A card speaks without the model's name.
        {"<Name><en>Second</en></Name>", "", "Invalid [Name] node."},
        {"<Name><en>Link</en></Name>", "", "Invalid [Name] node."},
        {"<Name><en>View</en></Name>", "", "Invalid [Name] node."},
    };
    for (const auto &row : rows) {
        QString errMsg;
        EXPECT_FALSE(manager->readDeviceConfig(edited(kDevice, row.from, row.to), errMsg)) << row.from;
        EXPECT_THAT(errMsg.toStdString(), testing::StartsWith(row.errMsg)) << row.from;
    }
    for (const char *tag : {"InputCards", "OutputCards", "Screens", "MvrScreens", "AuxScreens"}) {
        QByteArray without = kDevice;
        without.replace(QByteArray("<") + tag, "<Other").replace(QByteArray("</") + tag, "</Other");
        QString errMsg;
        EXPECT_FALSE(manager->readDeviceConfig(without, errMsg));
        EXPECT_EQ(errMsg, QStringLiteral("Elm Invalid [%1] node.").arg(tag));
    }
    QByteArray two = edited(kDevice, "<Name><en>Second</en></Name>", "");
    two.replace("OutputCards", "Other");
    QString errMsg;
    EXPECT_FALSE(manager->readDeviceConfig(two, errMsg));
    EXPECT_EQ(errMsg, "Invalid [Name] node."); // the order of the elements decides
    EXPECT_FALSE(manager->readDeviceConfig("<quorix/>", errMsg));
    EXPECT_EQ(errMsg, "The file is not a valid configuration file for device.");
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
    const struct {
        QByteArray xml;
        const char *errMsg; // null: reads
    } rows[] = {
        {inDevice(nested(63)), nullptr},
        {inDevice(nested(64)), "Parse error at line 6, column 192:\nelements are nested too deeply"},
        {nested(1000000), "Parse error at line 1, column 195:\nelements are nested too deeply"},
        {QByteArray("<a>").repeated(1000000), "Parse error at line 1, column 195:\nelements are nested too deeply"},
        {inDevice(attributes), "Parse error at line 6, column"},
        {"<!DOCTYPE Quorix>" + kDevice, nullptr},
        {"<!DOCTYPE q [<!ELEMENT a " + QByteArray("(").repeated(1000000) + ">]>" + kDevice,
         "Parse error at line 1, column 13:\ninternal document type definitions are not supported"},
        {inDevice("<!--" + nested(100) + "--><![CDATA[" + nested(100) + "]]><?a " + nested(100) + "?>"), nullptr},
        // The comment ends at its second "-->": what stands in it takes nothing off the depth.
        {inDevice("<!-->" + QByteArray("</a>").repeated(100) + "-->" + nested(100)),
         "Parse error at line 6, column 600:\nelements are nested too deeply"},
        {"\xEF\xBB\xBF" + kDevice, nullptr}, // byte order mark
        {inDevice("<a b=\"<\"/>"), "Parse error at line 6"},
        {kDevice.left(200), "Parse error at line"},
        {QByteArray(100, '\0'), "Parse error at line"},
        {QByteArray(), "Parse error at line"},
    };
    for (const auto &row : rows) {
        QString errMsg;
        EXPECT_EQ(manager->readDeviceConfig(row.xml, errMsg), row.errMsg == nullptr) << "row " << &row - rows;
        EXPECT_THAT(errMsg.toStdString(), testing::StartsWith(row.errMsg != nullptr ? row.errMsg : ""));
    }
}

TEST_F(DeviceConfigTest, Folders) {
    QString errMsg;
    EXPECT_FALSE(manager->readConfig(QString(), errMsg));
    EXPECT_EQ(errMsg, "Invalid file path!\n");

    const ConfigDir dir;
    const QString deep = dir.path() + "/not/yet";
    EXPECT_TRUE(manager->readConfig(deep, errMsg)); // made, with its sub-folder; no file is no failure
    EXPECT_TRUE(QFileInfo(deep + "/timeout").isDir());
    EXPECT_EQ(manager->findDeviceConfigByID(100), nullptr);

    // By name, whatever its case; neither folders nor other endings.
    dir.write("b.xml", kDevice);
    dir.write("A.xml", edited(kDevice, "<en>Elm</en>", "<en>Oak</en>"));
    dir.write("c.xml/inner.xml", "no document");
    dir.write("notes.txt", "no document");
    dir.write("timeout/x.xml", kTimeOuts);
    ASSERT_TRUE(manager->readConfig(dir.path(), errMsg)) << errMsg.toStdString();
    EXPECT_EQ(manager->modelIdList(), (QList<unsigned short>{100, 100}));
    const DeviceConfig *first = manager->findDeviceConfigByID(100);
    EXPECT_EQ(first->Name, "Oak");
    EXPECT_EQ(first->DefaultTimeOut, 9000U);
    EXPECT_EQ(manager->DeviceConfigs()[1].DefaultTimeOut, 10000U); // the first record of a model takes the times
    EXPECT_EQ(first->findTimeOutByBcAndFc(2, 4), 600U);
    EXPECT_EQ(first->findTimeOutByBcAndFc(3, 4), 9000U);

    const QString notAFolder = dir.path() + "/b.xml";
    EXPECT_FALSE(manager->readConfig(notAFolder, errMsg));
    EXPECT_EQ(errMsg, "Invalid file path!\n" + notAFolder);
    dir.write("d.xml", "<Quorix/>");
    EXPECT_FALSE(manager->readConfig(dir.path(), errMsg));
    EXPECT_EQ(errMsg, "Invalid [en] node.");
    EXPECT_EQ(manager->DeviceConfigs().size(), 4); // the files before the bad one stay, behind those of the first read
    const ConfigDir blocked;
    blocked.write("timeout", "a file");
    EXPECT_FALSE(manager->readConfig(blocked.path(), errMsg));
    EXPECT_EQ(errMsg, "Invalid file path!\n" + blocked.path() + "/timeout");
}

TEST_F(DeviceConfigTest, BadTimeOutFiles) {
    const struct {
        const char *from, *to, *errMsg;
    } rows[] = {
        {"<Quorix>", "<Quorix version='2'>", "The file is not a valid configuration file of version 1.0 for device."},
        {"<ModelID>100</ModelID>", "", "t.xml Invalid [ModelID] node."},
        {"<ModelID>100</ModelID>", "<ModelID>101</ModelID>", "DeviceConfig Not Find From ModelID:101"},
        {"<DefaultTimeOut>9000</DefaultTimeOut>", "", "t.xml Invalid [DefaultTimeOut] node."},
    };
    for (const auto &row : rows) {
        const ConfigDir dir;
        dir.write("a.xml", kDevice);
        dir.write("timeout/t.xml", edited(kTimeOuts, row.from, row.to));
        QString errMsg;
        EXPECT_FALSE(manager->readConfig(dir.path(), errMsg));
        EXPECT_EQ(errMsg, row.errMsg);
    }
}

TEST_F(DeviceConfigTest, RecordsKeepTheirAddresses) {
    EXPECT_EQ(manager->initDeviceConfig(65535), nullptr);
    DeviceConfig *first = manager->initDeviceConfig(1);
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->IsSupportCancelProcess);
    EXPECT_EQ(toInt(first->MainScreenCfg.ScreenSpliceMode), 12);
    const QList<DeviceConfig> copy = manager->DeviceConfigs();
    for (quint16 id = 2; id < 300; ++id)
        manager->initDeviceConfig(id);
    EXPECT_NE(manager->initDeviceConfig(1), first); // no look whether there is one
    EXPECT_EQ(manager->findDeviceConfigByID(1), first);
    EXPECT_EQ(&manager->DeviceConfigs().first(), first);
    EXPECT_NE(&copy.first(), first);
}

TEST_F(DeviceConfigTest, SlotsAndCards) {
    read(kDevice); // expansion 5 to 7, input 2 to 5, output 6 to 7
    read(edited(edited(kDevice, "<ModelID>100", "<ModelID>101"), "<ExpCards SlotCount=\"3\"",
                "<ExpCards SlotCount=\"0\""));
    const struct {
        int model, slot, card;
        const char *label, *name;
    } rows[] = {
        {100, 2, 11, "In1", "First"}, {100, 4, 12, "In3", "English"}, {100, 5, 31, "EXP", "Link"},
        {100, 5, 11, "EXP", "First"}, // not in the first range's list: the next range is tried
        {100, 6, 11, "EXP", ""},      {101, 6, 21, "Out1", "Out"},    {101, 7, 11, "Out2", ""},
        {100, 1, 11, "", ""},         {100, 8, 21, "", ""},           {102, 2, 11, "", ""},
        {100, 255, 21, "", ""},
    };
    for (const auto &row : rows) {
        const auto model = static_cast<quint16>(row.model);
        const auto slot = static_cast<quint8>(row.slot);
        EXPECT_EQ(manager->subCardIndexInfo(model, slot), row.label) << row.slot;
        EXPECT_EQ(manager->subCardName(model, static_cast<quint16>(row.card), slot), row.name) << row.slot;
    }
}

TEST_F(DeviceConfigTest, CardNamesFollowTheApplicationsLanguage) {
    using Names = QMap<QString, QString>;
    const struct {
        Names names;
        const char *locale;
        const char *wanted;
    } rows[] = {
        {{}, "en", ""},
        {{{"en", "E"}, {"zh_CN", "C"}}, "zh_CN", "C"},
        {{{"en", "E"}, {"zh_CN", "C"}}, "", "E"},
        {{{"en", "E"}, {"zh_CN", "C"}}, "fr", "E"},
        {{{"en", "E"}, {"zh_CN", ""}}, "zh_CN", ""}, // an empty text hides the English name
        {{{"zh_CN", "C"}}, "fr", ""},
    };
    for (const auto &row : rows) {
        qApp->setProperty("quorix_locale", row.locale);
        s_SubCardConfig card;
        card.m_LanguageForName = row.names;
        EXPECT_EQ(card.CardName(), row.wanted) << row.locale;
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

} // namespace
