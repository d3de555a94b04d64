#include <quorixbizmodel/common/helper.h>
#include <support/messagelog.h>

#include <gtest/gtest.h>

#include <QColor>
#include <QCoreApplication>
#include <QSize>
#include <QTranslator>

#include <utility>

namespace {

using Quorix::BizModel::Helper;
using namespace Quorix::BizModel::Enum::Interface;

/// Answers with the context in front of the text.
class ContextShower : public QTranslator {
public:
    ContextShower() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override {
        return QString::fromLatin1(context) + '|' + QString::fromLatin1(text);
    }
};

TEST(HelperTexts, Enumerators) {
    const struct {
        QString text;
        const char *expected;
    } kRows[] = {
        {Helper::interfaceCapacityString(CapacityMode::_4K), "4K"},
        {Helper::interfaceCapacityString(CapacityMode::invaild), "N/A"},
        {Helper::interfaceColorSpaceString(ColorSpace::YCbCr_4_2_2), "YCbCr 4:2:2"},
        {Helper::interfaceColorSpaceString(ColorSpace::YCbCr_4_4_4), "YCbCr 4:4:4"},
        {Helper::interfaceColorSpaceString(ColorSpace::AUTO), "N/A"},
        {Helper::interfaceColorRangeString(ColorRange(255)), "N/A"},
        {Helper::interfaceBitDepthString(ColorDepth::_12_), "12bit"},
        {Helper::interfaceBitDepthString(ColorDepth::_255_), "AUTO"},
        {Helper::interfaceBitDepthString(ColorDepth(9)), "N/A"},
        {Helper::HDCPTypeQString(HDCPType::Off, false), "Off"},
        {Helper::HDCPTypeQString(HDCPType::Off, true), "Off"},
        {Helper::HDCPTypeQString(HDCPType::HDCP_1_4, true), "HDCP 1.4"},
        {Helper::HDCPTypeQString(HDCPType::HDCP_2_2, true), "HDCP 2.2"},
        {Helper::HDCPTypeQString(HDCPType::HDCP_2_2, false), "On"},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(row.text, row.expected);
}

TEST(HelperTexts, SamplesPerPixel) {
    constexpr std::pair<ColorSpace, float> kRows[] = {{ColorSpace::RGB_4_4_4, 3.0F},
                                                      {ColorSpace::YCbCr_4_4_4, 3.0F},
                                                      {ColorSpace::YCbCr_4_2_2, 2.0F},
                                                      {ColorSpace::YCbCr_4_2_0, 1.5F},
                                                      {ColorSpace::AUTO, 0.0F}};
    for (const auto &[space, samples] : kRows)
        EXPECT_EQ(Helper::colorSpaceValue(space), samples);
}

TEST(HelperTexts, AnUnknownHDCPTypeIsLoggedAndNeverOn) {
    const Quorix::Tests::MessageLog log;
    EXPECT_EQ(Helper::HDCPTypeQString(HDCPType(9), false), "N/A");
    EXPECT_EQ(log.take(), QStringList("warning: HDCPProtoMap do not have hdcpType"));
}

TEST(HelperTexts, GoThroughTheTranslationOfTheirContext) {
    const ContextShower translator;
    const QString context = "Quorix::BizModel::Helper|";
    EXPECT_EQ(Helper::HDCPTypeQString(HDCPType::Off, true), context + "Off");
    EXPECT_EQ(Helper::HDCPTypeQString(HDCPType::HDCP_1_4, false), context + "On");
    EXPECT_EQ(Helper::HDCPTypeQString(HDCPType::HDCP_1_4, true), "HDCP 1.4");
    EXPECT_EQ(Helper::interfaceBitDepthString(ColorDepth::_8_), "8" + context + "bit");
    EXPECT_EQ(Helper::interfaceColorRangeString(ColorRange::Full), context + "Full Range");
}

TEST(HelperTexts, Framerates) {
    constexpr struct {
        QSize size;
        float rate;
        bool interlaced;
        const char *expected;
    } kRows[] = {
        {{1920, 1080}, 60.0F, false, "1920x1080@60Hz"},      {{1920, 1080}, 59.94F, false, "1920x1080@59.94Hz"},
        {{1920, 1080}, 50.0F, true, "1920x1080i@50Hz"},      {{720, 480}, 59.94F, true, "720x480i@59.94Hz"},
        {{3840, 2160}, 23.976F, false, "3840x2160@23.98Hz"}, {{-1, -1}, 0.0F, false, "-1x-1@0Hz"},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(Helper::formatFramerate(row.size, row.rate, row.interlaced), row.expected);
}

TEST(HelperTexts, CapacityNamesAreAddedOnce) {
    const struct {
        int capacity;
        QStringList before, after;
    } kRows[] = {
        {0, {}, {"SL"}}, {1, {}, {"SL", "DL"}}, {2, {"DL"}, {"DL", "SL", "4K"}},
        {3, {}, {}},     {255, {"4K"}, {"4K"}}, {-1, {}, {}},
    };
    for (const auto &row : kRows) {
        QList<QString> names = row.before;
        Helper::connectorCapacityNames(row.capacity, names);
        EXPECT_EQ(names, row.after) << row.capacity;
    }
}

TEST(HelperTexts, Names) {
    for (const QString &name :
         {QString("Screen_1 - a"), QString("	"), QString(32, 'x'), QString(QChar(0x4e00)), QString(QChar(0x9fa5))})
        EXPECT_TRUE(Helper::checkNameValid(name)) << qPrintable(name);
    for (const QString &name : {QString(), QString("a.b"), QString("a\b"), QString(33, 'x'), QString(QChar(0x4dff)),
                                QString(QChar(0x9fa6)), QString(QChar(0xe9))})
        EXPECT_FALSE(Helper::checkNameValid(name)) << qPrintable(name);
}

TEST(HelperTexts, PaletteGoesAlongTheRowsFirst) {
    constexpr struct {
        int index, red, green, blue;
    } kRows[] = {
        {0, 204, 68, 18},   {1, 35, 183, 215},  {7, 185, 60, 145},  {6, 195, 14, 211},
        {34, 195, 14, 211}, {27, 188, 71, 199}, {110, 24, 129, 39}, {112, 204, 68, 18},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(Helper::randomColor(row.index), QColor(row.red, row.green, row.blue)) << row.index;
    EXPECT_TRUE(Helper::randomColor(-1).isValid());
}

TEST(HelperTexts, Addresses) {
    constexpr struct {
        const char *ip, *mask, *net, *gateway;
        unsigned int number;
    } kRows[] = {
        {"192.168.1.20", "255.255.255.0", "255.255.255.0", "192.168.1.1", 0xC0A80114U},
        {"10.20.30.40", "255.0.0.0", "255.255.0.0", "10.20.0.1", 0x0A141E28U},
        {"127.0.0.1", "255.0.0.0", "255.255.255.255", "127.0.0.2", 0x7F000001U},
        {"128.0.0.0", "255.255.0.0", "255.0.0.0", "128.0.0.1", 0x80000000U},
        {"191.255.0.7", "255.255.0.0", "255.255.0.0", "191.255.0.1", 0xBFFF0007U},
        {"0.1.2.3", "", "255.255.255.0", "0.1.2.1", 0x00010203U},
        {"300.1", "255.255.255.0", "255.255.255.0", "", 0xFFFFFFFFU},
        {"1.2.3.4.5", "255.0.0.0", "255.0.0.0", "", 0xFFFFFFFFU},
        {"1.2.3.4", "255.0.0.0", "255.0.0", "", 0x01020304U},
        {"a.b.c.d", "", "255.0.0.0", "0.0.0.1", 0U},
        {"", "", "", "", 0xFFFFFFFFU},
    };
    for (const auto &row : kRows) {
        EXPECT_EQ(Helper::subMask(row.ip), row.mask) << row.ip;
        EXPECT_EQ(Helper::gateWay(row.ip, row.net), row.gateway) << row.ip;
        EXPECT_EQ(Helper::IPAddressToInt(row.ip), row.number) << row.ip;
    }
}

} // namespace
