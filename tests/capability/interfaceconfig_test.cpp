#include "config_files.h"

#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/enumtools.h>

using namespace Quorix::BizModel;
using testing::ElementsAre;
using Config = InterfaceConfig;
using Link = Quorix::ProtoModel::Device::s_Connectors;

namespace {

/// A connector of a layout; @p extra are further children.
QByteArray port(int position, int type, int capacity, const QByteArray &extra = {}) {
    return "<P Margin='4'><Position>" + QByteArray::number(position) + "</Position><Type>" + QByteArray::number(type) +
           "</Type><Capacity>" + QByteArray::number(capacity) +
           "</Capacity><WorkMode>1</WorkMode><Enable>1</Enable><BackupPos>9</BackupPos>" + extra + "</P>";
}

/// An element with a value, and a name made of its tag and value, around others.
QByteArray level(const QByteArray &tag, int value, bool enable, const QByteArray &inner) {
    const QByteArray number = QByteArray::number(value);
    return "<" + tag + " Value='" + number + "' Name='" + tag + number + "' Enable='" + (enable ? "1" : "0") + "'>" +
           inner + "</" + tag + ">";
}

QByteArray group(int value, int margin, const QByteArray &inner) {
    return "<G Value='" + QByteArray::number(value) + "' SeparatorMargin='" + QByteArray::number(margin) + "'>" +
           inner + "</G>";
}

QByteArray card(int modelId, const QByteArray &groups, const QByteArray &sections = {}, int copyMode = 0) {
    return "<Card ModelID='" + QByteArray::number(modelId) + "'><Name><en>N" + QByteArray::number(modelId) +
           "</en></Name>" + sections +
           "<Enable>1</Enable><IsSupportOverLoad>1</IsSupportOverLoad><IsSupportCustomEdid>0</IsSupportCustomEdid>"
           "<IsSupportColorSpace>1</IsSupportColorSpace><IsSupportColorDepth>0</IsSupportColorDepth>"
           "<IsSupportCopyMode>" +
           QByteArray::number(copyMode) + "</IsSupportCopyMode><CapacityGroups>" + groups + "</CapacityGroups></Card>";
}

/// A connector type with limits for inputs at two capacities and for outputs at none.
QByteArray connectorType(int type) {
    return "<Connector Icon='plug'><Type>" + QByteArray::number(type) +
           R"(</Type><Name>Long</Name><ShortName>S</ShortName>
<ColorSpace>2</ColorSpace><ColorDepth>10</ColorDepth>
<CardSort><D Value="1" CurrentHDCP="2" HDCPSwitch="1" CurrentHDCPOnMaxCapacity="3"><T Value="1" NameOnMaxCapacity="Max"/></D></CardSort>
<HDR><D Value="1"><C Value="0"><!-- no --><Is>0</Is><Is>1</Is></C><C Value="2"><Is>1</Is></C><C Value="1"/></D></HDR>
<CapacityMode><D Value="1"><C Value="0" Step="1" MaxBandWidth="4294967295" Width="1920" Height="1080" RefreshRate="59.94"/>
<C Value="2" Step="8" MaxWidth="3840" MaxHeight="2160" MaxRefreshRate="60"/></D></CapacityMode>
<SignalType>1</SignalType>
<ResolutionRatios Width="800" Height="600" RefreshRate="59.94" MaxWidth="4096" MaxHeight="2160" MaxRefreshRate="120" MinWidth="x" OutputMaxRefreshRate="30" OutputMinHeight="y" MinHeight="480">
<R Width="1" Height="1" RefreshRate="60"/><R Width="2" Height="1" RefreshRate="60" CardType="1" Capacity="1"/>
<R Width="3" Height="1" RefreshRate="60" CardType="2" Capacity="1"/><R Width="4" Height="1" RefreshRate="60" Capacity="3"/>
<R Width="5" Height="1" RefreshRate="60" Capacity="7" Symbol="x" Interlaced="1" FormatMapping="2"/></ResolutionRatios>
<MaxBandWidth>297000000</MaxBandWidth></Connector>)";
}

QByteArray file(const QByteArray &inputCards, const QByteArray &outputCards = {}, const QByteArray &others = {}) {
    return "<Quorix version=\"1.0\">\n<Connectors>" + connectorType(5) + connectorType(6) +
           "</Connectors>\n<InputCards>" + inputCards + "</InputCards><OutputCards>" + outputCards + "</OutputCards>" +
           others + "</Quorix>";
}

struct InterfaceConfigTest : testing::Test {
    ~InterfaceConfigTest() override { Config::destroyInstance(); }

    void read(const QByteArray &xml) {
        QString errMsg;
        EXPECT_TRUE(config->readConfigData(xml, errMsg)) << errMsg.toStdString();
        EXPECT_EQ(errMsg, QString());
    }
    std::string failure(const QByteArray &xml) {
        QString errMsg;
        EXPECT_FALSE(config->readConfigData(xml, errMsg));
        return errMsg.toStdString();
    }

    Config *config = Config::instance();
};

TEST_F(InterfaceConfigTest, ConnectorTypeFields) {
    read(file({}));
    ASSERT_EQ(config->connectorInfos().size(), 2);
    const Config::ConnectorInfo info = config->connectorInfos()[0];
    EXPECT_THAT(
        (std::vector<int>{toInt(info.m_eType), toInt(info.m_eSignalType), info.m_colorSpace, info.m_colorDepth}),
        ElementsAre(5, 1, 2, 10));
    const Config::CardAttribute hdcp = info.m_listCardSort[0];
    EXPECT_THAT((std::vector<int>{hdcp.cardType, hdcp.HDCPSwitch, hdcp.currentHDCP, hdcp.currentHDCPOnMaxCapacity}),
                ElementsAre(1, true, 2, 3));
    EXPECT_EQ(hdcp.m_listPredefinedHDCPType[0].hdcpType, 1);
    ASSERT_EQ(info.m_listHDR.size(), 3);
    EXPECT_TRUE(!info.m_listHDR[0].isSupportHDR && info.m_listHDR[1].isSupportHDR && !info.m_listHDR[2].isSupportHDR);
    const Config::ConnectorCapacity low = info.m_listCapacityMode[0].m_listConnectorCapacity[0];
    const Config::ConnectorCapacity high = info.m_listCapacityMode[0].m_listConnectorCapacity[1];
    EXPECT_EQ(low.maxBandwidth, 4294967295U);
    EXPECT_EQ(low.defaultRefreshRate, 59.94F);
    EXPECT_EQ(low.sizeDefaultResolution, QSize(1920, 1080));
    EXPECT_EQ(high.sizeDefaultResolution, QSize(0, 0));
    EXPECT_EQ(high.sizeMaxResolution, QSize(3840, 2160));
    EXPECT_EQ(info.m_sizeDefaultResolution, QSize(800, 600));
    EXPECT_EQ(info.m_sizeMinResolution, QSize(0, 480));
    EXPECT_EQ(info.m_sizeMaxOutResolution, QSize(4096, 2160)); // absent: as for inputs
    EXPECT_EQ(info.m_sizeMinOutResolution, QSize(0, 0));       // the height is there, but no number
    EXPECT_EQ(info.m_fMaxRefreshRate, 120.0F);
    EXPECT_EQ(info.m_fMaxOutRefreshRate, 30.0F);
    EXPECT_EQ(info.m_listPredefinedResolutionRatio[4].iInterlaced, 1);
    EXPECT_EQ(info.m_listPredefinedResolutionRatio[4].iFormatMapping, 2);
    EXPECT_EQ(info.m_nMaxBandwidth, 297000000U);
    EXPECT_EQ(info.m_strName + info.m_strShortName + info.m_strIconName, "LongSplug");
}

TEST_F(InterfaceConfigTest, CardFields) {
    const QByteArray extra = "<Visible>0</Visible><PrintKeyNo>7</PrintKeyNo><NameOnMaxCapacity>Big</NameOnMaxCapacity>"
                             "<OriginType>6</OriginType><Step>2</Step>";
    const QByteArray ports = port(3, 5, 1) + port(4, 6, 2, extra) + port(4, 5, 0, extra);
    const QByteArray sections = "<Sections><S Value='3'><X Name='Old' Code='1'/></S><S Value='3'>"
                                "<X Name='A' Type='2' Code='40' CompatibilityCode='5'/></S></Sections>";
    read(
        file(card(11, group(1, 20, level("C", 0, true, level("K", 0, true, ports))) + group(2, 10, {}), sections) +
                 edited(card(12, {}), "<CapacityGroups>", "<CapacitySwitchMode>0</CapacitySwitchMode><CapacityGroups>"),
             card(21, {}), "<AuxCards>" + card(41, {}) + "</AuxCards><ExpCards>" + card(31, {}) + "</ExpCards>"));
    QList<quint32> order;
    for (const Config::SubCard *c : config->getSubCards())
        order.append(c->m_ModelID);
    EXPECT_EQ(order, (QList<quint32>{11, 12, 21, 31, 41}));
    const Config::SubCard *first = config->findSubCardByModelId(11);
    ASSERT_EQ(first, &config->getInputCards().first());
    EXPECT_EQ(first->CapacityGroups[0].SeparatorMargin, 10); // sorted, whatever the file's order
    EXPECT_EQ(first->CardName("fr"), "N11");
    EXPECT_EQ(first->CardName("zh_CN"), ""); // absent in the file: stored empty
    EXPECT_TRUE(first->m_bEnable && first->m_bSupportCapacityDownward && first->m_bSupportFormatMapping);
    const auto sectionList = first->m_upgradeCfgs[3];
    ASSERT_EQ(sectionList.size(), 1); // a later list of a board replaces the earlier
    EXPECT_TRUE(sectionList[0].visible && sectionList[0].type == 2 && sectionList[0].compatibilityCode == 5);

    const auto connectors = config->getSubCardCardConnectors(11, 1, 0, 0);
    ASSERT_EQ(connectors.keys(), (QList<unsigned char>{3, 4}));
    EXPECT_EQ(connectors[3].PrintKeyNo, 3);
    EXPECT_EQ(connectors[3].ValueGroup, 1);
    EXPECT_EQ(connectors[3].Connector.copyId, 0x0FFFFFFFU);
    EXPECT_TRUE(connectors[3].Visible && connectors[3].OriginType == -1 && connectors[3].Step == -1);
    EXPECT_EQ(connectors[4].Connector.type, 5); // a later connector of a position replaces the earlier
    EXPECT_EQ(connectors[4].Connector.workMode, 1);
    EXPECT_EQ(connectors[4].PrintKeyNo, 7);
    EXPECT_EQ(connectors[4].Margin, 4U);
    EXPECT_TRUE(!connectors[4].Visible && connectors[4].OriginType == 6 && connectors[4].Step == 2);

    const auto flags = [this](quint16 id) {
        return std::vector<int>{config->isSupportOverLoad(id),         config->isSupportCustomEdid(id),
                                config->IsSupportColorSpace(id),       config->IsSupportColorDepth(id),
                                config->IsSupportCapacityDownward(id), config->IsSupportFormatMapping(id),
                                config->IsSupportCopyMode(id),         toInt(config->capacitySwitchMode(id))};
    };
    EXPECT_THAT(flags(11), ElementsAre(true, false, true, false, true, true, false, 1));
    EXPECT_EQ(toInt(config->capacitySwitchMode(12)), 0);
    const LogCapture log;
    EXPECT_THAT(flags(99), ElementsAre(false, false, false, false, false, false, false, 1));
    EXPECT_EQ(LogCapture::lines(), QStringList(QVector<QString>(7, "D The pSubCard is null").toList()));
}

TEST_F(InterfaceConfigTest, BadFiles) {
    const QByteArray good =
        file(card(11, group(0, 0, level("C", 0, true, level("K", 0, true, port(0, 5, 0))))), card(21, {}),
             "<ExpCards>" + card(31, {}) + "</ExpCards><AuxCards>" + card(41, {}) + "</AuxCards>");
    const struct {
        const char *from, *to, *errMsg, *log;
    } rows[] = {
        {"</Quorix>", "", "Parse error at line ", nullptr},
        {"version=\"1.0\"", "version=\"1\"", "This file is not a valid configuration file of version 1.0 .", nullptr},
        {"<ColorDepth>", "<D/><ColorDepth>", nullptr, nullptr},
        {"<Type>5</Type><Name>", "<Name>", "Invalid [Connector] node.", "Invalid [Type] node."},
        {"<SignalType>1</SignalType>", "", "Invalid [Connector] node.", "Invalid [SignalType] node."},
        {"<Name><en>N11</en></Name>", "", "Invalid [InputCard] node.", "Invalid [Name] node."},
        {"<WorkMode>1</WorkMode>", "", "Invalid [InputCard] node.", "Invalid [WorkMode] node."},
        {"<BackupPos>9</BackupPos>", "", "Invalid [InputCard] node.", "Invalid [BackupPos] node."},
        {"</Position><Type>5<", "</Position><Type>7<", "Invalid [InputCard] node.",
         "The Sub card contains an invalid Connector type [7]."},
        {"<Name><en>N21</en></Name>", "", "Invalid [OutputCard] node.", "Invalid [Name] node."},
        {"<Name><en>N41</en></Name>", "", "Invalid [AuxCards] node.", "Invalid [Name] node."},
    };
    for (const auto &row : rows) {
        const LogCapture log;
        QString errMsg;
        EXPECT_EQ(config->readConfigData(edited(good, row.from, row.to), errMsg), row.errMsg == nullptr) << row.from;
        EXPECT_THAT(errMsg.toStdString(), testing::StartsWith(row.errMsg != nullptr ? row.errMsg : "")) << row.from;
        EXPECT_EQ(LogCapture::lines(), row.log != nullptr ? QStringList{QString("W ") + row.log} : QStringList())
            << row.from;
    }
    const auto without = [&good](const QByteArray &tag) {
        return QByteArray(good).replace("<" + tag, "<Other").replace("</" + tag, "</Other");
    };
    for (const char *tag : {"Connectors", "InputCards", "OutputCards"})
        EXPECT_EQ(failure(without(tag)), QStringLiteral("Invalid [%1] node.").arg(tag).toStdString());
    EXPECT_EQ(failure(without("CardSort")), "Invalid [Connector] node.");
    read(without("HDR"));
    EXPECT_EQ(failure("<quorix/>"), "This file is not a valid configuration file.");

    QString errMsg;
    EXPECT_FALSE(config->readConfig(QString(), errMsg));
    EXPECT_EQ(errMsg, "Invalid file path!");
    EXPECT_FALSE(config->readConfig("/nowhere/at%1all", errMsg));
    EXPECT_EQ(errMsg, "Fail to open file [/nowhere/at%1all]!");
}

TEST_F(InterfaceConfigTest, WhatFailsQuietly) {
    // A bad expansion card ends its section alone; cards before it stay, those behind aren't read.
    const LogCapture log;
    read(file({}, {},
              "<ExpCards>" + card(31, {}) + "<Card/>" + card(33, {}) + "</ExpCards><AuxCards>" + card(41, {}) +
                  "</AuxCards>"));
    EXPECT_EQ(config->getExpCards().size(), 1);
    EXPECT_EQ(config->getAuxCards().size(), 1);
    EXPECT_EQ(LogCapture::lines(), QStringList{"W Invalid [Name] node."});

    // A bad timing ends the timings of its type; the read goes on and says why.
    const struct {
        const char *from, *to, *errMsg;
        int timings;
    } rows[] = {
        {"<R Width=\"3\"", "<R", "Invalid [Width] attribute.", 2},
        {"<R Width=\"1\" Height=\"1\"", "<R Width='1' Height='1.5'", "Invalid [Height] attribute.", 0},
        {"800\" Height=\"600\" RefreshRate=\"59.94\"", "800\" Height=\"600\" RefreshRate=\"inf\"",
         "Invalid [RefreshRate] attribute.", 0},
    };
    for (const auto &row : rows) {
        Config::destroyInstance();
        config = Config::instance();
        QString errMsg;
        EXPECT_TRUE(config->readConfigData(edited(file(card(11, {})), row.from, row.to), errMsg));
        EXPECT_EQ(errMsg, row.errMsg);
        EXPECT_EQ(config->connectorInfos()[0].m_listPredefinedResolutionRatio.size(), row.timings);
        EXPECT_EQ(config->connectorInfos()[0].m_nMaxBandwidth, 297000000U);
        EXPECT_EQ(config->connectorInfos()[1].m_listPredefinedResolutionRatio.size(), 5);
        EXPECT_EQ(config->getInputCards().size(), 1);
    }
}

TEST_F(InterfaceConfigTest, CardsKeepTheirAddresses) {
    read(file(card(11, {})));
    const Config::SubCard *first = config->findSubCardByModelId(11);
    const auto copy = config->getInputCards();
    for (int i = 0; i < 100; ++i)
        read(file(card(1000 + i, {})));
    EXPECT_EQ(&config->getInputCards().first(), first);
    EXPECT_EQ(config->getSubCards().first(), first);
    EXPECT_NE(&copy.first(), first);
    read(file(card(65536 + 12, {})));
    EXPECT_EQ(config->findSubCardByModelId(12), nullptr); // ids beyond 16 bits are never found
}

/// Card 11: two groups, the first with two capacities of which one is off; card 12: one of everything and copy mode;
/// 13: one capacity, two connector groups; 14: two capacities. 12 has one board's sections, 13 those of two.
QByteArray layouts() {
    const QByteArray on = "<NameOnMaxCapacity>4K</NameOnMaxCapacity><OriginType>6</OriginType>";
    const QByteArray one =
        level("C", 0, true, level("K", 1, true, port(0, 5, 0) + port(1, 5, 2)) + level("K", 2, false, port(2, 6, 0)));
    const QByteArray two = level("C", 2, false, level("K", 0, true, port(0, 6, 2, on) + port(1, 6, 2, on)));
    const QByteArray sections = "<Sections><S Value='3'><X Name='A' Code='40'/></S></Sections>";
    const QByteArray more =
        "<Sections><S Value='9'><X Name='C' Code='42'/></S><S Value='7'><X Name='B' Code='41'/></S></Sections>";
    const QByteArray single = level("C", 4, true, level("K", 5, true, port(0, 5, 0)));
    return file(card(11, group(1, 0, one + two) +
                             group(1, 5,
                                   level("C", 2, true, level("K", 3, true, port(0, 5, 1) + port(8, 5, 1))) +
                                       level("C", 3, true, level("K", 3, true, port(1, 6, 1))))) +
                card(12, group(0, 0, single), sections, 1) +
                card(13, group(0, 0, level("C", 4, true, level("K", 5, true, {}) + level("K", 6, true, {}))), more) +
                card(14, group(0, 0, single + level("C", 7, true, {}))) + card(15, group(0, 0, single)));
}

TEST_F(InterfaceConfigTest, Positions) {
    read(layouts());
    const struct {
        quint16 card;
        int capacity, position, backup, origin, type; // type -1: no connector there
        const char *name;
    } rows[] = {
        {11, 0, 0, 9, -1, 5, ""},     {11, 0, 1, -1, -1, 5, ""}, // its own capacity is another one
        {11, 0, 2, 9, -1, 6, ""},                                // what is switched off counts
        {11, 2, 0, 9, 6, 6, "4K"},                               // the first group stands before the second
        {11, 2, 8, -1, -1, 5, ""},    {11, 1, 0, -1, -1, -1, ""},
        {11, 0, 256, -1, -1, -1, ""}, {11, -1, -1, -1, -1, -1, ""},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(config->connectorBackupPos(row.card, row.capacity, row.position), row.backup) << &row - rows;
        EXPECT_EQ(config->connectorOriginType(row.card, row.capacity, row.position), row.origin) << &row - rows;
        EXPECT_EQ(config->connectorNameOnMaxCapacity(row.card, row.capacity, row.position), row.name) << &row - rows;
        Link connector;
        connector.type = -1;
        EXPECT_EQ(config->connectors(row.card, row.capacity, row.position, connector), row.type >= 0) << &row - rows;
        EXPECT_EQ(connector.type, row.type) << &row - rows;
    }
    const LogCapture log;
    Link connector;
    EXPECT_EQ(config->connectorBackupPos(99, 0, 0), -1);
    EXPECT_EQ(config->connectorOriginType(99, 0, 0), -1);
    EXPECT_EQ(config->connectorNameOnMaxCapacity(99, 0, 0), "");
    EXPECT_FALSE(config->connectors(99, 0, 0, connector));
    const QString warning = QStringLiteral("W The subCard is null");
    EXPECT_EQ(LogCapture::lines(),
              (QStringList{warning, warning, warning, "W The subcard is null. subCardModelId is  99"}));
}

TEST_F(InterfaceConfigTest, Layouts) {
    read(layouts());
    EXPECT_EQ(config->getCapacityGroup(11).size(), 2);
    EXPECT_TRUE(config->getCapacityGroup(99).isEmpty());
    // Two groups of one value: their union, the first standing.
    EXPECT_EQ(config->getSubCardCapacitys(11, 1).keys(), (QList<unsigned char>{0, 2, 3}));
    EXPECT_EQ(config->getSubCardConnectorGroup(11, 1, 2).keys(), (QList<unsigned char>{0}));
    EXPECT_EQ(config->getSubCardCardConnectors(11, 1, 0, 1).keys(), (QList<unsigned char>{0, 1}));
    EXPECT_TRUE(config->getSubCardCapacitys(11, 2).isEmpty());
    EXPECT_TRUE(config->getSubCardConnectorGroup(11, 1, 258).isEmpty());
    EXPECT_TRUE(config->getSubCardCardConnectors(11, 1, 0, -1).isEmpty());

    const struct {
        int capacity;
        quint8 position, capacityValue, groupValue;
    } rows[] = {{0, 0, 0, 1}, {0, 2, 0, 2}, {2, 1, 0, 1}, {2, 0, 2, 0}, {1, 1, 3, 3}, {1, 0, 255, 0}, {0, 8, 255, 0}};
    for (const auto &row : rows) {
        EXPECT_EQ(config->getSubCardCapacity(11, 1, row.capacity, row.position), row.capacityValue) << &row - rows;
        EXPECT_EQ(config->getSubCardConnectorGroup(11, 1, row.capacity, row.position), row.groupValue) << &row - rows;
    }
    EXPECT_EQ(config->getCapacityStr(11, 3), "C3");
    EXPECT_EQ(config->getCapacityStr(11, 1), "");
    EXPECT_EQ(config->getConnectorGroupStr(11, 2), "K2");
    EXPECT_EQ(config->getConnectorGroupStr(99, 2), "");

    Config::CardConnector found;
    Link wanted;
    wanted.type = 6, wanted.capacityMode = 2, wanted.id = 1;
    EXPECT_TRUE(config->CardConnectorInfo(11, wanted, found));
    EXPECT_EQ(found.OriginType, 6);
    wanted.capacityMode = 7;
    found.OriginType = 77;
    EXPECT_FALSE(config->CardConnectorInfo(11, wanted, found));
    EXPECT_EQ(found.OriginType, 77);

    // Enabled ones alone, later over earlier: 0 and 8 from group 2's capacity 2, 1 from its capacity 3.
    const auto connectors = config->findSubCardByModelId(11)->getCardConnector();
    EXPECT_EQ(connectors.keys(), (QList<unsigned char>{0, 1, 8}));
    EXPECT_EQ(connectors[0].Connector.capacityMode, 1);
    const auto infos = config->findSubCardByModelId(11)->getPostionForConnectorInfo();
    EXPECT_EQ(toInt(infos[1].m_eType), 6);
    EXPECT_EQ(infos[8].m_index, 8U);
}

TEST_F(InterfaceConfigTest, WhatAUserMayChoose) {
    read(layouts());
    const struct {
        quint16 card;
        bool capacity, group, change;
    } rows[] = {{11, false, false, true}, {12, false, false, true},  {13, false, true, true},
                {14, true, false, true},  {15, false, false, false}, {99, false, false, false}};
    for (const auto &row : rows) {
        EXPECT_EQ(config->isShowConnectorCapacity(row.card), row.capacity) << row.card;
        EXPECT_EQ(config->isShowConnectorGroup(row.card), row.group) << row.card;
        EXPECT_EQ(config->isSubCardSwitch(row.card), row.change) << row.card;
    }
}

TEST_F(InterfaceConfigTest, FirmwareSections) {
    read(layouts());
    const struct {
        int card, board, code;
        const char *name;
    } rows[] = {
        {12, 3, 40, "A"}, {12, 7, 40, "A"}, // one board's list answers for every board
        {13, 7, 41, "B"}, {13, 9, 42, "C"}, {13, 8, 41, "B"},        {13, 256 + 9, 41, "B"},
        {11, 0, -1, ""},  {99, 0, -1, ""},  {65536 + 12, 3, -1, ""},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(config->findCodeBySectionName(row.card, row.name, row.board), row.code) << &row - rows;
        EXPECT_EQ(config->findSectionNameByCode(row.card, row.code, row.board), row.name) << &row - rows;
        EXPECT_EQ(config->findUpgradeCfgByBoardId(row.card, row.board).size(), row.code < 0 ? 0 : 1) << &row - rows;
    }
}

TEST_F(InterfaceConfigTest, ConnectorTypeQuestions) {
    using Mode = Config::CapacityMode;
    using Type = Config::ConnectorType;
    using Direction = Config::InterfaceType;
    read(file({}));
    const struct {
        Mode mode;
        Direction direction;
        QList<int> widths; // of the timings offered
    } rows[] = {
        {Mode::_SL, Direction::Input, {1, 2}},       {Mode::_DL, Direction::Input, {1, 2, 4}},
        {Mode::_4K, Direction::Input, {1, 2, 4, 5}}, {Mode::_4K, Direction::Output, {1, 3, 4, 5}},
        {Mode::_SL, Direction::MVROutput, {1, 3}},   {Mode::_SL, Direction::Invalid, {1, 3}},
        {Mode::invaild, Direction::Input, {1}},
    };
    for (const auto &row : rows) {
        Config::ConnectorInfo info;
        QList<int> widths;
        EXPECT_TRUE(config->findConnectorInfo(row.mode, row.direction, Type::HDMI_1_4, info));
        for (const auto &timing : qAsConst(info.m_listPredefinedResolutionRatio))
            widths.append(timing.PixelFormat.width());
        EXPECT_EQ(widths, row.widths) << &row - rows;
    }
    Config::ConnectorCapacity limits;
    EXPECT_TRUE(config->findConnectorCapacity(Mode::_4K, Direction::Input, Type::HDMI_1_4, limits));
    EXPECT_EQ(limits.step, 8);
    EXPECT_FALSE(config->findConnectorCapacity(Mode::_DL, Direction::Input, Type::HDMI_1_4, limits));
    EXPECT_TRUE(config->isSupportHDR(Direction::Input, Type::HDMI_1_4, Mode::_4K));
    EXPECT_FALSE(config->isSupportHDR(Direction::Input, Type::HDMI_1_4, Mode::_SL));
    EXPECT_FALSE(config->isSupportHDR(Direction::Output, Type::HDMI_1_4, Mode::_4K));

    const LogCapture log;
    Config::ConnectorInfo info;
    EXPECT_FALSE(config->findConnectorInfo(Mode::_SL, Direction::Input, Type::VGA, info));
    EXPECT_FALSE(config->isSupportHDR(Direction::Input, Type::VGA, Mode::_SL));
    EXPECT_FALSE(config->findConnectorCapacity(Mode::_SL, Direction::Output, Type::HDMI_2_0, limits));
    const QString unknown = QStringLiteral("C  no found connectorInfo ,ConnectorType: 10 m_listConnectorInfo.size: 2");
    EXPECT_EQ(
        LogCapture::lines(),
        (QStringList{
            unknown, unknown,
            "C  no found connectorInfo ,ConnectorType, CapacityMode: 6 connectorInfo_out.m_listCapacityMode: 1"}));
}

} // namespace
