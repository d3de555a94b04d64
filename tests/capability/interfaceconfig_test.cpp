#include "config_files.h"

#include <quorixbizmodel/capability/interfaceconfig.h>

using Config = InterfaceConfig;
using Link = Quorix::ProtoModel::Device::s_Connectors;

namespace {

/// Two connector types and a card in each section; card 11 has ports, sections and two groups.
const QByteArray kCards = sampleFile("cards");
/// What can be asked about layouts.
const QByteArray kLayouts = sampleFile("layouts");

/// The card of the expansion section with another id.
QByteArray card(int modelId) {
    const int at = kCards.indexOf("<Card ModelID='31'>"), end = kCards.indexOf("</ExpCards>", at);
    return edited(kCards.mid(at, end - at), "'31'", "'" + QByteArray::number(modelId) + "'");
}

struct InterfaceConfigTest : testing::Test {
    ~InterfaceConfigTest() override { Config::destroyInstance(); }

    std::string fault(const QByteArray &xml) {
        QString errMsg;
        const bool isRead = config->readConfigData(xml, errMsg);
        EXPECT_EQ(isRead, errMsg.isEmpty());
        return errMsg.toStdString();
    }
    void read(const QByteArray &xml) { EXPECT_EQ(fault(xml), ""); }

    Config *config = Config::instance();
};

TEST_F(InterfaceConfigTest, ConnectorTypeFields) {
    read(kCards);
    ASSERT_EQ(config->connectorInfos().size(), 2);
    const Config::ConnectorInfo info = config->connectorInfos()[0];
    const Config::CardAttribute hdcp = info.m_listCardSort[0];
    EXPECT_THAT((std::vector<int>{toInt(info.m_eType), toInt(info.m_eSignalType), info.m_colorSpace, info.m_colorDepth,
                                  hdcp.cardType, hdcp.HDCPSwitch, hdcp.currentHDCP, hdcp.currentHDCPOnMaxCapacity,
                                  hdcp.m_listPredefinedHDCPType[0].hdcpType}),
                ElementsAre(5, 1, 2, 10, 1, true, 2, 3, 1));
    ASSERT_EQ(info.m_listHDR.size(), 3);
    EXPECT_TRUE(!info.m_listHDR[0].isSupportHDR && info.m_listHDR[1].isSupportHDR && !info.m_listHDR[2].isSupportHDR);
    const Config::ConnectorCapacity low = info.m_listCapacityMode[0].m_listConnectorCapacity[0];
    const Config::ConnectorCapacity high = info.m_listCapacityMode[0].m_listConnectorCapacity[1];
    EXPECT_TRUE(low.maxBandwidth == 4294967295U && low.defaultRefreshRate == 59.94F);
    EXPECT_EQ(low.sizeDefaultResolution, QSize(1920, 1080));
    EXPECT_TRUE(high.sizeDefaultResolution == QSize(0, 0) && high.sizeMaxResolution == QSize(3840, 2160));
    EXPECT_EQ(info.m_sizeDefaultResolution, QSize(800, 600));
    EXPECT_EQ(info.m_sizeMinResolution, QSize(0, 480));
    EXPECT_EQ(info.m_sizeMaxOutResolution, QSize(4096, 2160)); // absent: as for inputs
    EXPECT_EQ(info.m_sizeMinOutResolution, QSize(0, 0));       // the height is there, but no number
    EXPECT_TRUE(info.m_fMaxRefreshRate == 120.0F && info.m_fMaxOutRefreshRate == 30.0F);
    const auto &timing = info.m_listPredefinedResolutionRatio[4];
    EXPECT_TRUE(timing.iInterlaced == 1 && timing.iFormatMapping == 2 && info.m_nMaxBandwidth == 297000000U);
    EXPECT_EQ(info.m_strName + info.m_strShortName + info.m_strIconName, "LongSplug");
}

TEST_F(InterfaceConfigTest, CardFields) {
    read(kCards);
    QList<quint32> order;
    for (const Config::SubCard *c : config->getSubCards())
        order.append(c->m_ModelID);
    EXPECT_EQ(order, (QList<quint32>{11, 12, 21, 31, 41}));
    const Config::SubCard *first = config->findSubCardByModelId(11);
    ASSERT_EQ(first, &config->getInputCards().first());
    EXPECT_EQ(first->CapacityGroups[0].SeparatorMargin, 10); // sorted, whatever the file's order
    EXPECT_TRUE(first->CardName("fr") == "N11" && first->CardName("zh_CN").isEmpty()); // absent in the file: empty
    EXPECT_TRUE(first->m_bEnable && first->m_bSupportCapacityDownward && first->m_bSupportFormatMapping);
    const auto sectionList = first->m_upgradeCfgs[3];
    ASSERT_EQ(sectionList.size(), 1); // a later list of a board replaces the earlier
    EXPECT_TRUE(sectionList[0].visible && sectionList[0].type == 2 && sectionList[0].compatibilityCode == 5);

    const auto connectors = config->getSubCardCardConnectors(11, 1, 0, 0);
    ASSERT_EQ(connectors.keys(), (QList<unsigned char>{3, 4}));
    EXPECT_TRUE(connectors[3].PrintKeyNo == 3 && connectors[3].ValueGroup == 1);
    EXPECT_TRUE(connectors[3].Visible && connectors[3].OriginType == -1 && connectors[3].Step == -1);
    EXPECT_EQ(connectors[3].Connector.copyId, 0x0FFFFFFFU);
    // A later connector of a position replaces the earlier.
    EXPECT_TRUE(connectors[4].Connector.type == 5 && connectors[4].Connector.workMode == 1);
    EXPECT_TRUE(connectors[4].PrintKeyNo == 7 && connectors[4].Margin == 4U);
    EXPECT_TRUE(!connectors[4].Visible && connectors[4].OriginType == 6 && connectors[4].Step == 2);

    const auto flags = [this](quint16 id) {
        return std::vector<int>{config->isSupportOverLoad(id),         config->isSupportCustomEdid(id),
                                config->IsSupportColorSpace(id),       config->IsSupportColorDepth(id),
                                config->IsSupportCapacityDownward(id), config->IsSupportFormatMapping(id),
                                config->IsSupportCopyMode(id),         toInt(config->capacitySwitchMode(id))};
    };
    EXPECT_THAT(flags(11), ElementsAre(true, false, true, false, true, true, false, 1));
    EXPECT_EQ(toInt(config->capacitySwitchMode(12)), 0);
    const MessageLog log;
    EXPECT_THAT(flags(99), ElementsAre(false, false, false, false, false, false, false, 1));
    EXPECT_EQ(MessageLog::take(), QStringList(QVector<QString>(7, "debug: The pSubCard is null").toList()));
}

TEST_F(InterfaceConfigTest, BadFiles) {
    const std::tuple<QByteArray, QByteArray, std::string, QString> rows[] = {
        {"</Quorix>", "", "Parse error at line ", {}},
        {"version=\"1.0\"", "version=\"1\"", "This file is not a valid configuration file of version 1.0 .", {}},
        {"<ColorDepth>", "<D/><ColorDepth>", "", {}},
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
    for (const auto &[from, to, errMsg, line] : rows) {
        const MessageLog log;
        EXPECT_EQ(fault(edited(kCards, from, to)).substr(0, errMsg.empty() ? 9 : errMsg.size()), errMsg) << from.data();
        EXPECT_EQ(MessageLog::take().join('|'), line.isEmpty() ? line : "warning: " + line) << from.data();
    }
    const auto without = [](const QByteArray &tag) {
        return QByteArray(kCards).replace("<" + tag, "<Other").replace("</" + tag, "</Other");
    };
    for (const char *tag : {"Connectors", "InputCards", "OutputCards"})
        EXPECT_EQ(fault(without(tag)), std::string("Invalid [") + tag + "] node.");
    EXPECT_EQ(fault(without("CardSort")), "Invalid [Connector] node.");
    read(without("HDR"));
    EXPECT_EQ(fault("<quorix/>"), "This file is not a valid configuration file.");

    QString errMsg;
    EXPECT_FALSE(config->readConfig(QString(), errMsg) || errMsg != "Invalid file path!");
    EXPECT_FALSE(config->readConfig("/nowhere/at%1all", errMsg) || errMsg != "Fail to open file [/nowhere/at%1all]!");
}

TEST_F(InterfaceConfigTest, WhatFailsQuietly) {
    // A bad expansion card ends its section alone; cards before it stay, those behind aren't read.
    const MessageLog log;
    read(edited(kLayouts, "</Quorix>",
                "<ExpCards>" + card(31) + "<Card/>" + card(33) + "</ExpCards><AuxCards>" + card(41) +
                    "</AuxCards></Quorix>"));
    EXPECT_TRUE(config->getExpCards().size() == 1 && config->getAuxCards().size() == 1);
    EXPECT_EQ(MessageLog::take(), QStringList{"warning: Invalid [Name] node."});

    // A bad timing ends the timings of its type; the read goes on and says why.
    const std::tuple<QByteArray, QByteArray, const char *, int> rows[] = {
        {"<R Width=\"3\"", "<R", "Invalid [Width] attribute.", 2},
        {"<R Width=\"1\" Height=\"1\"", "<R Width='1' Height='1.5'", "Invalid [Height] attribute.", 0},
        {"800\" Height=\"600\" RefreshRate=\"59.94\"", "800\" Height=\"600\" RefreshRate=\"inf\"",
         "Invalid [RefreshRate] attribute.", 0},
    };
    for (const auto &[from, to, errMsg, timings] : rows) {
        Config::destroyInstance();
        config = Config::instance();
        QString why;
        EXPECT_TRUE(config->readConfigData(edited(kCards, from, to), why));
        EXPECT_EQ(why, errMsg);
        const auto &infos = config->connectorInfos();
        EXPECT_EQ(infos[0].m_listPredefinedResolutionRatio.size(), timings);
        EXPECT_TRUE(infos[0].m_nMaxBandwidth == 297000000U && infos[1].m_listPredefinedResolutionRatio.size() == 5);
        EXPECT_EQ(config->getInputCards().size(), 2);
    }
}

TEST_F(InterfaceConfigTest, CardsKeepTheirAddresses) {
    read(kCards);
    const Config::SubCard *first = config->findSubCardByModelId(11);
    const auto copy = config->getInputCards();
    for (int i = 0; i < 100; ++i)
        read(edited(kCards, "'11'", "'" + QByteArray::number(1000 + i) + "'"));
    EXPECT_TRUE(&config->getInputCards().first() == first && config->getSubCards().first() == first);
    EXPECT_NE(&copy.first(), first);
    read(edited(kCards, "'11'", "'65613'")); // 65536 + 77: ids beyond 16 bits are never found
    EXPECT_EQ(config->findSubCardByModelId(77), nullptr);
}

TEST_F(InterfaceConfigTest, Positions) {
    read(kLayouts);
    // Card, capacity, position; backup position, origin, type (-1: no connector there), name.
    const std::tuple<quint16, int, int, int, int, int, const char *> rows[] = {
        {11, 0, 0, 9, -1, 5, ""},     {11, 0, 1, -1, -1, 5, ""}, // its own capacity is another one
        {11, 0, 2, 9, -1, 6, ""},                                // what is switched off counts
        {11, 2, 0, 9, 6, 6, "4K"},                               // the first group stands before the second
        {11, 2, 8, -1, -1, 5, ""},    {11, 1, 0, -1, -1, -1, ""},
        {11, 0, 256, -1, -1, -1, ""}, {11, -1, -1, -1, -1, -1, ""},
    };
    Link connector;
    for (const auto &[model, capacity, position, backup, origin, type, name] : rows) {
        SCOPED_TRACE(testing::Message() << model << ' ' << capacity << ' ' << position);
        EXPECT_EQ(config->connectorBackupPos(model, capacity, position), backup);
        EXPECT_EQ(config->connectorOriginType(model, capacity, position), origin);
        EXPECT_EQ(config->connectorNameOnMaxCapacity(model, capacity, position), name);
        connector.type = -1;
        EXPECT_EQ(config->connectors(model, capacity, position, connector), type >= 0);
        EXPECT_EQ(connector.type, type);
    }
    const MessageLog log;
    EXPECT_TRUE(config->connectorBackupPos(99, 0, 0) == -1 && config->connectorOriginType(99, 0, 0) == -1);
    EXPECT_EQ(config->connectorNameOnMaxCapacity(99, 0, 0), "");
    EXPECT_FALSE(config->connectors(99, 0, 0, connector));
    const QString warning = "warning: The subCard is null";
    EXPECT_THAT(log.take(),
                ElementsAre(warning, warning, warning, "warning: The subcard is null. subCardModelId is  99"));
}

TEST_F(InterfaceConfigTest, Layouts) {
    read(kLayouts);
    EXPECT_TRUE(config->getCapacityGroup(11).size() == 2 && config->getCapacityGroup(99).isEmpty());
    // Two groups of one value: their union, the first standing.
    EXPECT_EQ(config->getSubCardCapacitys(11, 1).keys(), (QList<unsigned char>{0, 2, 3}));
    EXPECT_EQ(config->getSubCardConnectorGroup(11, 1, 2).keys(), (QList<unsigned char>{0}));
    EXPECT_EQ(config->getSubCardCardConnectors(11, 1, 0, 1).keys(), (QList<unsigned char>{0, 1}));
    EXPECT_TRUE(config->getSubCardCapacitys(11, 2).isEmpty() &&
                config->getSubCardConnectorGroup(11, 1, 258).isEmpty() &&
                config->getSubCardCardConnectors(11, 1, 0, -1).isEmpty());

    const std::tuple<int, quint8, int, int> rows[] = {{0, 0, 0, 1}, {0, 2, 0, 2},   {2, 1, 0, 1},  {2, 0, 2, 0},
                                                      {1, 1, 3, 3}, {1, 0, 255, 0}, {0, 8, 255, 0}};
    for (const auto &[capacity, position, capacityValue, groupValue] : rows) {
        EXPECT_EQ(config->getSubCardCapacity(11, 1, capacity, position), capacityValue) << int(position);
        EXPECT_EQ(config->getSubCardConnectorGroup(11, 1, capacity, position), groupValue) << int(position);
    }
    EXPECT_EQ(config->getCapacityStr(11, 3) + config->getConnectorGroupStr(11, 2), "C3K2");
    EXPECT_EQ(config->getCapacityStr(11, 1) + config->getConnectorGroupStr(99, 2), "");

    Config::CardConnector found;
    Link wanted;
    wanted.type = 6, wanted.capacityMode = 2, wanted.id = 1;
    EXPECT_TRUE(config->CardConnectorInfo(11, wanted, found) && found.OriginType == 6);
    wanted.capacityMode = 7;
    found.OriginType = 77;
    EXPECT_FALSE(config->CardConnectorInfo(11, wanted, found) || found.OriginType != 77);

    // Enabled ones alone, later over earlier: 0 and 8 from group 2's capacity 2, 1 from its capacity 3.
    const auto connectors = config->findSubCardByModelId(11)->getCardConnector();
    EXPECT_EQ(connectors.keys(), (QList<unsigned char>{0, 1, 8}));
    EXPECT_EQ(connectors[0].Connector.capacityMode, 1);
    const auto infos = config->findSubCardByModelId(11)->getPostionForConnectorInfo();
    EXPECT_TRUE(toInt(infos[1].m_eType) == 6 && infos[8].m_index == 8U);
}

TEST_F(InterfaceConfigTest, WhatAUserMayChoose) {
    read(kLayouts);
    const std::tuple<quint16, bool, bool, bool> rows[] = {{11, false, false, true},  {12, false, false, true},
                                                          {13, false, true, true},   {14, true, false, true},
                                                          {15, false, false, false}, {99, false, false, false}};
    for (const auto &[model, capacity, connectors, change] : rows) {
        EXPECT_EQ(config->isShowConnectorCapacity(model), capacity) << model;
        EXPECT_EQ(config->isShowConnectorGroup(model), connectors) << model;
        EXPECT_EQ(config->isSubCardSwitch(model), change) << model;
    }
}

TEST_F(InterfaceConfigTest, FirmwareSections) {
    read(kLayouts);
    const std::tuple<int, int, int, const char *> rows[] = {
        {12, 3, 40, "A"}, {12, 7, 40, "A"}, // one board's list answers for every board
        {13, 7, 41, "B"}, {13, 9, 42, "C"}, {13, 8, 41, "B"},        {13, 256 + 9, 41, "B"},
        {11, 0, -1, ""},  {99, 0, -1, ""},  {65536 + 12, 3, -1, ""},
    };
    for (const auto &[model, board, code, name] : rows) {
        EXPECT_EQ(config->findCodeBySectionName(model, name, board), code) << model << '-' << board;
        EXPECT_EQ(config->findSectionNameByCode(model, code, board), name) << model << '-' << board;
        EXPECT_EQ(config->findUpgradeCfgByBoardId(model, board).size(), code < 0 ? 0 : 1) << model << '-' << board;
    }
}

TEST_F(InterfaceConfigTest, ConnectorTypeQuestions) {
    using Mode = Config::CapacityMode;
    using Type = Config::ConnectorType;
    using Direction = Config::InterfaceType;
    read(kCards);
    const std::tuple<Mode, Direction, QList<int>> rows[] = {
        // the widths of the timings offered
        {Mode::_SL, Direction::Input, {1, 2}},       {Mode::_DL, Direction::Input, {1, 2, 4}},
        {Mode::_4K, Direction::Input, {1, 2, 4, 5}}, {Mode::_4K, Direction::Output, {1, 3, 4, 5}},
        {Mode::_SL, Direction::MVROutput, {1, 3}},   {Mode::_SL, Direction::Invalid, {1, 3}},
        {Mode::invaild, Direction::Input, {1}},
    };
    for (const auto &[mode, direction, offered] : rows) {
        Config::ConnectorInfo info;
        QList<int> widths;
        EXPECT_TRUE(config->findConnectorInfo(mode, direction, Type::HDMI_1_4, info));
        for (const auto &timing : qAsConst(info.m_listPredefinedResolutionRatio))
            widths.append(timing.PixelFormat.width());
        EXPECT_EQ(widths, offered) << toInt(mode) << ' ' << toInt(direction);
    }
    Config::ConnectorCapacity limits;
    EXPECT_TRUE(config->findConnectorCapacity(Mode::_4K, Direction::Input, Type::HDMI_1_4, limits) && limits.step == 8);
    EXPECT_FALSE(config->findConnectorCapacity(Mode::_DL, Direction::Input, Type::HDMI_1_4, limits));
    EXPECT_TRUE(config->isSupportHDR(Direction::Input, Type::HDMI_1_4, Mode::_4K));
    EXPECT_FALSE(config->isSupportHDR(Direction::Input, Type::HDMI_1_4, Mode::_SL));
    EXPECT_FALSE(config->isSupportHDR(Direction::Output, Type::HDMI_1_4, Mode::_4K));

    const MessageLog log;
    Config::ConnectorInfo info;
    EXPECT_FALSE(config->findConnectorInfo(Mode::_SL, Direction::Input, Type::VGA, info));
    EXPECT_FALSE(config->isSupportHDR(Direction::Input, Type::VGA, Mode::_SL));
    EXPECT_FALSE(config->findConnectorCapacity(Mode::_SL, Direction::Output, Type::HDMI_2_0, limits));
    const QString unknown = "critical:  no found connectorInfo ,ConnectorType";
    EXPECT_EQ(MessageLog::take().join('|'), unknown + ": 10 m_listConnectorInfo.size: 2|" + unknown +
                                                ": 10 m_listConnectorInfo.size: 2|" + unknown +
                                                ", CapacityMode: 6 connectorInfo_out.m_listCapacityMode: 1");
}

} // namespace
