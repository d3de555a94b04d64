/// Tools of the whole model: masks, units, texts, timings, split rules, and texts of widgets.
#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/common/textdata.h>
#include <support/builders.h>

#include <QCheckBox>
#include <QColor>
#include <QLabel>
#include <QPushButton>
#include <QTranslator>

#include <limits>

namespace {

using namespace Quorix;
using namespace BizModel;
using namespace Enum::Interface;
using Enum::Layer::LayerType;

TEST(EnumTools, CombinedKindsMatchEachOfTheirMembers) {
    const int mask = maskOf(LayerType::Regular, LayerType::Logo);
    EXPECT_EQ(mask, 34);
    EXPECT_TRUE(hasAnyBit(InterfaceType::Output, InterfaceType::MVROutput) && hasAnyBit(mask, LayerType::NotImageType));
    EXPECT_TRUE(hasAnyBit(LayerType::Logo, mask) && hasAnyBit(-1, LayerType::Cut));
    EXPECT_FALSE(hasAnyBit(LayerType::BKG, LayerType::NotImageType) || hasAnyBit(0, LayerType::AllLayerType) ||
                 hasAnyBit(InterfaceType::Invalid, InterfaceType::Output));
}

TEST(RecordDefaults, AgreeWithTheModelsConstants) {
    using namespace ProtoModel::Device;
    EXPECT_EQ(s_DeviceDetail{}.interfaceMapping.testPattern.type, std::int32_t{Constants::testLoctionKey});
    EXPECT_EQ(s_NetworkBody{}.ip, Constants::Device::defaultDeviceIP);
    EXPECT_EQ(s_DeviceGroupInfoBody{}.groupId, Constants::Device::defaultDeviceGroupId.toStdString());
}

TEST(HelperSlots, EachRangeCountsFromOne) {
    DeviceConfig &config = *DeviceConfigManager::instance()->initDeviceConfig(29953);
    config.InputSlotStartIndex = 1, config.InputSlotCount = 4;
    config.OutputSlotStartIndex = 5, config.OutputSlotCount = 3;
    config.ExpSlotStartIndex = 10, config.ExpSlotCount = 2;
    config.MVRScreensCfg.StartSlotIndex = 7, config.MVRScreensCfg.SlotCount = 2; // slot 8 is no output slot
    using Enum::Device::Type;
    constexpr std::tuple<Type, int, bool, const char *> kRows[] = {
        {Type::Alder, 0, true, "N/A"},    {Type::Alder, 1, true, "In1"},    {Type::Alder, 4, false, "In4"},
        {Type::Alder, 5, true, "Out1"},   {Type::Alder, 7, false, "Out3"},  {Type::Alder, 7, true, "MVR"},
        {Type::Alder, 8, true, "N/A"},    {Type::Alder, 11, false, "Exp"},  {Type::Alder, 12, true, "N/A"},
        {Type::Alder, -1, false, "N/A"},  {Type::Alder, 255, false, "N/A"}, {Type::Birch, 1, true, "N/A"},
        {Type::Invalid, 1, false, "N/A"},
    };
    for (const auto &[type, position, isMvr, label] : kRows) {
        EXPECT_EQ(Helper::getSlotDescription(type, position, isMvr), label) << position;
        const QString none = QString("Invalid slot pos [%1]").arg(position);
        if (type == Type::Alder) {
            EXPECT_EQ(Device(29953).subCardDescription(position, isMvr).replace(none, "N/A"), label) << position;
        }
    }
    DeviceConfigManager::destroyInstance();
}

/// Columns from @p first to @p last, both included, of lines 10 to 19.
QRect columns(int first, int last) { return {QPoint(first, 10), QPoint(last, 19)}; }

TEST(HelperSplit, ChannelsOfACapacity) {
    const auto channels = [](auto... capacity) { return std::vector{Helper::splitCount(capacity)...}; };
    using Mode = CapacityMode;
    EXPECT_EQ(channels(Mode::_SL, Mode::_DL, Mode::_4K, Mode::invaild), (std::vector{1, 2, 4, 1}));
}

TEST(HelperSplit, StripsOfTheInput) {
    const std::tuple<QRect, int, QList<QRect>> kRows[] = {
        {columns(0, 1920), 2, {columns(0, 959), columns(960, 1920)}},
        {columns(0, 1920), 4, {columns(0, 479), columns(480, 959), columns(960, 1439), columns(1440, 1920)}},
        {columns(100, 199), 1, {columns(0, 99)}},
        {columns(0, 1), 4, {columns(0, -1), columns(0, -1), columns(0, -1), columns(0, 1)}},
        {columns(0, 99), 0, {}},
        {columns(0, 99), -1, {}},
    };
    for (const auto &[rect, count, strips] : kRows)
        EXPECT_EQ(Helper::splitInputRect(rect, count), strips);
}

TEST(HelperSplit, PartsOfTheCrop) {
    const std::pair<QRect, QList<QRect>> kRows[] = {
        {columns(0, 3839), {columns(0, 1919), columns(1920, 3839)}},
        {columns(2000, 2999), {columns(2000, 2999)}},
        {columns(1919, 1920), {columns(1919, 1919), columns(1920, 1920)}},
        {columns(3840, 4000), {}},
        {QRect(), {}},
    };
    for (const auto &[crop, pieces] : kRows)
        EXPECT_EQ(Helper::splitCropRectByInputRect(columns(0, 3839), 2, crop), pieces);
}

TEST(HelperSplit, WindowsOfTheLayer) {
    const QRect input = columns(0, 3839);
    // The channels, the crop and the layer; its windows.
    const std::tuple<int, QRect, QRect, QList<QRect>> kRows[] = {
        {2, input, columns(0, 999), {columns(0, 503), columns(496, 999)}},
        {4, input, columns(0, 999), {columns(0, 253), columns(246, 503), columns(496, 753), columns(746, 999)}},
        // 1001 / 2 = 500.5 is cut down to 500, although it rounds to 501: half a pixel goes to the right.
        {2, input, columns(0, 1000), {columns(0, 503), columns(496, 1000)}},
        // Strips of 1 and 2 of 3 columns: 1000 / 3 = 333.33 and 1000, at the layer's own place.
        {2, columns(1919, 1921), columns(50, 1049), {columns(50, 386), columns(379, 1049)}},
        // 3 * (1 / 3.0) and its like may fall short of the whole number by rounding alone: 49 * (1 / 49.0) < 1.
        {2, columns(1919, 1967), columns(0, 48), {columns(0, 4), columns(-3, 48)}},
        {2, columns(2000, 2999), columns(0, 99), {columns(0, 103)}}, // one part still has the half overlap
        {2, columns(5000, 5999), columns(0, 99), {}},                // misses the input
        {2, QRect(0, 10, 0, 10), columns(0, 99), {columns(0, 99)}},  // no crop
        {1, input, columns(0, 99), {columns(0, 99)}},
        {0, input, columns(0, 99), {columns(0, 99)}},
    };
    for (const auto &row : kRows) {
        const auto &[count, crop, layer, windows] = row;
        EXPECT_EQ(Helper::splitLayerRects(input, count, crop, layer), windows) << &row - kRows;
    }
}

TEST(HelperSplit, WindowsCoverTheLayerAndOverlapByEight) {
    for (const int count : {2, 4})
        for (int width = 64; width < 4000; width += 37) {
            const auto windows =
                Helper::splitLayerRects(columns(0, 4095), count, columns(7, 4090), columns(11, 10 + width));
            ASSERT_EQ(windows.size(), count);
            EXPECT_EQ(windows.first().left(), 11);
            EXPECT_EQ(windows.last().right(), 10 + width);
            for (int i = 1; i < count; ++i)
                EXPECT_EQ(windows[i - 1].right() - windows[i].left() + 1, 8) << width;
        }
}

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
    using H = Helper;
    const auto joined = [](const auto &...text) { return QStringList{text...}.join('|'); };
    EXPECT_EQ(joined(H::interfaceCapacityString(CapacityMode::_4K), H::interfaceCapacityString(CapacityMode::invaild),
                     H::interfaceColorSpaceString(ColorSpace::YCbCr_4_2_2),
                     H::interfaceColorSpaceString(ColorSpace::YCbCr_4_4_4),
                     H::interfaceColorSpaceString(ColorSpace::AUTO), H::interfaceColorRangeString(ColorRange(255)),
                     H::interfaceBitDepthString(ColorDepth::_12_), H::interfaceBitDepthString(ColorDepth::_255_),
                     H::interfaceBitDepthString(ColorDepth(9))),
              "4K|N/A|YCbCr 4:2:2|YCbCr 4:4:4|N/A|N/A|12bit|AUTO|N/A");
    EXPECT_EQ(joined(H::HDCPTypeQString(HDCPType::Off, false), H::HDCPTypeQString(HDCPType::Off, true),
                     H::HDCPTypeQString(HDCPType::HDCP_1_4, true), H::HDCPTypeQString(HDCPType::HDCP_2_2, true),
                     H::HDCPTypeQString(HDCPType::HDCP_2_2, false)),
              "Off|Off|HDCP 1.4|HDCP 2.2|On");

    const Tests::MessageLog log; // an unknown type is never on
    EXPECT_EQ(H::HDCPTypeQString(HDCPType(9), false), "N/A");
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
    const std::tuple<QSize, float, bool, const char *> kRows[] = {
        {{1920, 1080}, 60.0F, false, "1920x1080@60Hz"},      {{1920, 1080}, 59.94F, false, "1920x1080@59.94Hz"},
        {{1920, 1080}, 50.0F, true, "1920x1080i@50Hz"},      {{720, 480}, 59.94F, true, "720x480i@59.94Hz"},
        {{3840, 2160}, 23.976F, false, "3840x2160@23.98Hz"}, {{-1, -1}, 0.0F, false, "-1x-1@0Hz"},
    };
    for (const auto &[size, rate, isInterlaced, expected] : kRows)
        EXPECT_EQ(Helper::formatFramerate(size, rate, isInterlaced), expected);
}

TEST(HelperTexts, CapacityNamesAreAddedOnce) {
    const std::tuple<int, QStringList, QStringList> kRows[] = {
        {0, {}, {"SL"}}, {1, {}, {"SL", "DL"}}, {2, {"DL"}, {"DL", "SL", "4K"}},
        {3, {}, {}},     {255, {"4K"}, {"4K"}}, {-1, {}, {}},
    };
    for (const auto &[capacity, before, after] : kRows) {
        QList<QString> names = before;
        Helper::connectorCapacityNames(capacity, names);
        EXPECT_EQ(names, after) << capacity;
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
    const std::pair<int, QColor> kRows[] = {
        {0, {204, 68, 18}},   {1, {35, 183, 215}},  {7, {185, 60, 145}},  {6, {195, 14, 211}},
        {34, {195, 14, 211}}, {27, {188, 71, 199}}, {110, {24, 129, 39}}, {112, {204, 68, 18}},
    };
    for (const auto &[index, color] : kRows)
        EXPECT_EQ(Helper::randomColor(index), color) << index;
    EXPECT_TRUE(Helper::randomColor(-1).isValid());
}

TEST(HelperTexts, Addresses) {
    // An address, its mask; its gateway in a net, its number.
    constexpr std::tuple<const char *, const char *, const char *, const char *, unsigned int> kRows[] = {
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
    for (const auto &[ip, mask, net, gateway, number] : kRows) {
        EXPECT_EQ(Helper::subMask(ip), mask) << ip;
        EXPECT_EQ(Helper::gateWay(ip, net), gateway) << ip;
        EXPECT_EQ(Helper::IPAddressToInt(ip), number) << ip;
    }
}

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

TEST(HelperUnits, RatesAreMultipliedAsFloats) {
    constexpr float kInf = std::numeric_limits<float>::infinity();
    const auto converted = [](auto... rate) { return std::vector{Helper::modelRate2ProtoRate(rate)...}; };
    EXPECT_EQ(converted(23.98F, 29.97F, 47.95F, 59.94F, 71.93F, 119.88F, 60.0F, 0.0F, -1.5F, 0.019F, 1e30F, -kInf,
                        kInf - kInf),
              (std::vector{2398, 2997, 4795, 5994, 7193, 11988, 6000, 0, -150, 1, kMax, kMin, 0}));
    EXPECT_EQ(Helper::protoRate2ModelRate(5994), 59.94F);
}

TEST(HelperUnits, ToRecordsIsCutAndNeverRounded) {
    constexpr std::tuple<int (*)(double), double, int> kRows[] = {
        {Helper::modelGamma2ProtoGamma, 2.2, 220},     {Helper::modelGamma2ProtoGamma, 1.15, 114},
        {Helper::modelGamma2ProtoGamma, 2.3, 229},     {Helper::modelHue2ProtoHue, 0.29, 28},
        {Helper::modelHue2ProtoHue, -0.999, -99},      {Helper::modelHue2ProtoHue, 1e300, kMax},
        {Helper::model2ProtoEffectTime, 1.29, 12},     {Helper::model2ProtoEffectTime, 0.5, 5},
        {Helper::model2ProtoEffectTime, -1e300, kMin},
    };
    for (const auto &[convert, value, proto] : kRows)
        EXPECT_EQ(convert(value), proto) << value;
}

TEST(HelperUnits, FromRecordsKeepsFractionsButThoseOfAGamma) {
    EXPECT_TRUE(Helper::protoHue2ModelHue(-150) == -1.5 && Helper::proto2ModelEffectTime(15) == 1.5);
    for (const auto &[proto, gamma] : {std::pair(250, 2.0), {99, 0.0}, {-150, -1.0}})
        EXPECT_EQ(Helper::protoGamma2ModelGamma(proto), gamma);
}

TEST(HelperValues, RectanglesGoThereAndBack) {
    const std::pair<ProtoModel::s_Rect, QPoint> kRows[] = {
        {{{10, 20}, {100, 50}}, {109, 69}},
        {{{-8, -4}, {4, 2}}, {-5, -3}},
        {{{5, 6}, {0, 0}}, {4, 5}},
        {{{kMax, kMin}, {1920, 1080}}, {kMin + 1918, kMin + 1079}},
    };
    for (const auto &[record, bottomRight] : kRows) {
        const QRect rect = Helper::sRect2QRect(record);
        EXPECT_EQ(rect.bottomRight(), bottomRight);
        EXPECT_EQ(Helper::qRect2SRect(rect), record);
    }
    EXPECT_EQ(Helper::sSize2QSize(Helper::qSize2Size({3, 4})), QSize(3, 4));
    EXPECT_EQ(Helper::qPoint2SPoint(Helper::sPoint2QPoint({7, -9})), (ProtoModel::s_Pos{7, -9}));
}

TEST(HelperValues, OpacityIsRoundedToPercent) {
    constexpr std::pair<int, int> kRows[] = {{255, 100}, {102, 40}, {100, 39}, {128, 50}, {2, 1}, {1, 0}, {0, 0}};
    for (const auto &[alpha, opacity] : kRows)
        EXPECT_EQ(Helper::qColor2RGBO({1, 2, 3, alpha}).opacity, opacity) << alpha;
    for (int percent = 0; percent <= 100; ++percent) {
        const ProtoModel::s_RGBO record{{12, 34, 56}, percent};
        EXPECT_EQ(Helper::qColor2RGBO(Helper::sRGBO2QColor(record)), record);
    }
    EXPECT_EQ(Helper::sRGB2QColor(ProtoModel::s_RGB{}), QColor(50, 50, 50, 255));
    EXPECT_EQ(Helper::qColor2RGB({9, 8, 7, 6}), (ProtoModel::s_RGB{9, 8, 7}));
}

TEST(HelperValues, PackedIdsAreTakenApart) {
    EXPECT_EQ(Helper::interfaceFullId(197121), (ProtoModel::s_InterfaceID{3, 2, 1}));
    EXPECT_EQ(Helper::interfaceFullId(268435455), (ProtoModel::s_InterfaceID{255, 255, 255}));
    EXPECT_EQ(Helper::str2qstr("\xe8\xbe\x93\xe5\x85\xa5"), QString::fromUtf16(u"\u8f93\u5165"));
}

TEST(HelperValues, ExpiredReferencesKeepTheirPlace) {
    const auto alive = Tests::standIn<File>();
    const std::weak_ptr<File> expired = Tests::standIn<File>();
    EXPECT_EQ(Helper::sharedPtrs(QList<std::weak_ptr<File>>{alive, expired, {}, alive}),
              (QList<std::shared_ptr<File>>{alive, nullptr, nullptr, alive}));
    EXPECT_TRUE(Helper::sharedPtrs(QList<std::weak_ptr<Output>>()).isEmpty());
}

TEST(HelperValues, EmptyDeviceFields) {
    for (const char *mac : {"", "000000000000", "N/A"})
        EXPECT_TRUE(Helper::isEmptyMac(mac)) << mac;
    for (const char *mac : {"00000000000", "0000000000000000", "n/a", "54b56c000001"})
        EXPECT_FALSE(Helper::isEmptyMac(mac)) << mac;
    EXPECT_TRUE(Helper::isEmptySn("") && Helper::isEmptySn("0000000000000000"));
    EXPECT_FALSE(Helper::isEmptySn("N/A") || Helper::isEmptySn("000000000000"));
}

TEST(HelperTiming, ComesFromTheTablesOrTheFormula) {
    constexpr std::tuple<int, int, float, ProtoModel::s_Timing, ProtoModel::s_Timing> kRows[] = {
        {1920, 1080, 60.0F, {1920, 88, 44, 3, 2200}, {1080, 4, 5, 3, 1125}},      // DMT and CTA-861, VIC 16
        {1920, 1080, 59.94F, {1920, 88, 44, 3, 2200}, {1080, 4, 5, 3, 1125}},     // within four tenths of it
        {65536 + 1920, 1080, 60, {1920, 88, 44, 3, 2200}, {1080, 4, 5, 3, 1125}}, // low 16 bits
        {1920, 1080, 50.0F, {1920, 528, 44, 3, 2640}, {1080, 4, 5, 3, 1125}},     // CTA-861, VIC 31
        {1280, 720, 60.0F, {1280, 110, 40, 3, 1650}, {720, 5, 5, 3, 750}},        // CTA-861, VIC 4
        {2560, 1440, 60.0F, {2560, 48, 32, 3, 2720}, {1440, 3, 5, 3, 1481}},      // CVT, reduced blanking
        {1000, 1000, 60.0F, {1000, 48, 32, 3, 1160}, {1000, 3, 10, 3, 1029}},     // CVT, no listed aspect ratio
    };
    for (const auto &[width, height, rate, horizontal, vertical] : kRows) {
        ProtoModel::s_TimingDetailBody timing{1, 77, {0, 0, 0, 3, 0}, {0, 0, 0, 3, 0}};
        EXPECT_TRUE(Helper::calcTimingbyModel(&timing, width, height, rate));
        EXPECT_EQ(timing, (ProtoModel::s_TimingDetailBody{1, 77, horizontal, vertical})) << width;
    }
    EXPECT_FALSE(Helper::calcTimingbyModel(nullptr, 1920, 1080, 60.0F));
}

const QString kLong = "A name that is much longer than forty pixels";

template <class Widget>
void expectElision() {
    Widget widget;
    widget.setText(kLong);
    widget.resize(40, 20);
    Helper::caclThumbnailText(&widget);
    EXPECT_LT(widget.text().size(), kLong.size());
    EXPECT_TRUE(widget.toolTip() == kLong && Helper::realText(&widget) == kLong);

    widget.resize(4000, 20);
    Helper::caclThumbnailText(&widget);
    EXPECT_EQ(widget.text() + widget.toolTip(), kLong);

    for (const char *front : {"[1] ", "name"}) { // the second one stands in the text
        Helper::appendThumbnailText(&widget, front);
        EXPECT_EQ(widget.text(), "[1] " + kLong);
    }
    EXPECT_EQ(Helper::realData(&widget, 0)->m_text, "[1] " + kLong);
}

TEST(HelperWidgets, TheFullTextIsKeptBesideTheShortenedOne) {
    expectElision<QLabel>();
    expectElision<QPushButton>();
}

TEST(HelperWidgets, WithoutATextThereIsNothingToChange) {
    QLabel empty;
    empty.setToolTip("tip");
    Helper::caclThumbnailText(&empty);
    EXPECT_EQ(empty.toolTip(), "tip");

    QLabel label("text");
    Helper::appendThumbnailText(&label, "more ");
    EXPECT_EQ(label.text(), "text");
    EXPECT_EQ(Helper::realData(&label, 0), nullptr);
}

TEST(HelperWidgets, AllLabelsAndPushButtonsBelowAreReached) {
    QWidget top;
    auto *const group = new QWidget(&top);
    auto *const label = new QLabel(kLong, group);
    auto *const button = new QPushButton(kLong, &top);
    auto *const box = new QCheckBox(kLong, group);
    for (auto *widget : top.findChildren<QWidget *>())
        widget->resize(40, 20);
    Helper::allCaclThumbnailText(&top);
    Helper::appendCaclThumbnailText(&top, "[2] ");
    for (const QString &text : {Helper::realText(label), Helper::realText(button), button->toolTip()})
        EXPECT_EQ(text, "[2] " + kLong);
    EXPECT_EQ(box->text(), kLong);
}

TEST(HelperWidgets, RealTextOfWidgetsWithoutARecord) {
    QWidget plain;
    QLabel label("label");
    QCheckBox box("box");
    EXPECT_EQ(Helper::realText(&label), "label");
    EXPECT_EQ(Helper::realText(&box), "box");
    EXPECT_EQ(Helper::realText(&plain) + Helper::realText(nullptr), "");
    for (QWidget *widget : {static_cast<QWidget *>(nullptr), static_cast<QWidget *>(&label)})
        for (const int index : {-1, 0, 5})
            EXPECT_EQ(Helper::realData(widget, index), nullptr);
    Helper::allCaclThumbnailText(nullptr);
}

} // namespace
