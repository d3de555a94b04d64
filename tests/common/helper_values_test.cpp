#include <quorixbizmodel/common/helper.h>
#include <quorixprotomodel/protomodelbase.h>

#include <gtest/gtest.h>

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <limits>
#include <utility>

namespace Quorix::BizModel {
class File;
class Output;
} // namespace Quorix::BizModel

namespace {

using namespace Quorix;
using BizModel::Helper;

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

TEST(HelperUnits, RatesAreMultipliedAsFloats) {
    constexpr std::pair<float, int> kRows[] = {{23.98F, 2398},
                                               {29.97F, 2997},
                                               {47.95F, 4795},
                                               {59.94F, 5994},
                                               {71.93F, 7193},
                                               {119.88F, 11988},
                                               {60.0F, 6000},
                                               {0.0F, 0},
                                               {-1.5F, -150},
                                               {0.019F, 1},
                                               {1e30F, kMax},
                                               {-std::numeric_limits<float>::infinity(), kMin},
                                               {std::numeric_limits<float>::quiet_NaN(), 0}};
    for (const auto &[rate, proto] : kRows)
        EXPECT_EQ(Helper::modelRate2ProtoRate(rate), proto) << rate;
    EXPECT_EQ(Helper::protoRate2ModelRate(5994), 59.94F);
}

TEST(HelperUnits, ToRecordsIsCutAndNeverRounded) {
    constexpr struct {
        int (*convert)(double);
        double value;
        int proto;
    } kRows[] = {
        {Helper::modelGamma2ProtoGamma, 2.2, 220},     {Helper::modelGamma2ProtoGamma, 1.15, 114},
        {Helper::modelGamma2ProtoGamma, 2.3, 229},     {Helper::modelHue2ProtoHue, 0.29, 28},
        {Helper::modelHue2ProtoHue, -0.999, -99},      {Helper::modelHue2ProtoHue, 1e300, kMax},
        {Helper::model2ProtoEffectTime, 1.29, 12},     {Helper::model2ProtoEffectTime, 0.5, 5},
        {Helper::model2ProtoEffectTime, -1e300, kMin},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(row.convert(row.value), row.proto) << row.value;
}

TEST(HelperUnits, FromRecordsKeepsFractionsButThoseOfAGamma) {
    EXPECT_EQ(Helper::protoHue2ModelHue(-150), -1.5);
    EXPECT_EQ(Helper::proto2ModelEffectTime(15), 1.5);
    EXPECT_EQ(Helper::protoGamma2ModelGamma(250), 2.0);
    EXPECT_EQ(Helper::protoGamma2ModelGamma(99), 0.0);
    EXPECT_EQ(Helper::protoGamma2ModelGamma(-150), -1.0);
}

TEST(HelperValues, RectanglesGoThereAndBack) {
    const struct {
        ProtoModel::s_Rect record;
        QPoint bottomRight;
    } kRows[] = {
        {{{10, 20}, {100, 50}}, {109, 69}},
        {{{-8, -4}, {4, 2}}, {-5, -3}},
        {{{5, 6}, {0, 0}}, {4, 5}},
        {{{kMax, kMin}, {1920, 1080}}, {kMin + 1918, kMin + 1079}},
    };
    for (const auto &row : kRows) {
        const QRect rect = Helper::sRect2QRect(row.record);
        EXPECT_EQ(rect.bottomRight(), row.bottomRight);
        EXPECT_EQ(Helper::qRect2SRect(rect), row.record);
    }
    EXPECT_EQ(Helper::sSize2QSize(ProtoModel::s_Size{}), QSize(1920, 1080));
    EXPECT_EQ(Helper::qSize2Size({3, 4}), (ProtoModel::s_Size{3, 4}));
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
    using BizModel::File;
    // The class is unknown here, as it is to the helper: an alias into some other object will do.
    const auto owner = std::make_shared<int>();
    const auto aliased = [](const std::shared_ptr<int> &p) {
        return std::shared_ptr<File>(p, reinterpret_cast<File *>(p.get()));
    };
    const std::shared_ptr<File> alive = aliased(owner);
    const std::weak_ptr<File> expired = aliased(std::make_shared<int>());
    EXPECT_EQ(Helper::sharedPtrs(QList<std::weak_ptr<File>>{alive, expired, {}, alive}),
              (QList<std::shared_ptr<File>>{alive, nullptr, nullptr, alive}));
    EXPECT_TRUE(Helper::sharedPtrs(QList<std::weak_ptr<BizModel::Output>>()).isEmpty());
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
    constexpr struct {
        int width, height;
        float rate;
        ProtoModel::s_Timing horizontal, vertical;
    } kRows[] = {
        {1920, 1080, 60.0F, {1920, 88, 44, 3, 2200}, {1080, 4, 5, 3, 1125}},      // DMT and CTA-861, VIC 16
        {1920, 1080, 59.94F, {1920, 88, 44, 3, 2200}, {1080, 4, 5, 3, 1125}},     // within four tenths of it
        {65536 + 1920, 1080, 60, {1920, 88, 44, 3, 2200}, {1080, 4, 5, 3, 1125}}, // low 16 bits
        {1920, 1080, 50.0F, {1920, 528, 44, 3, 2640}, {1080, 4, 5, 3, 1125}},     // CTA-861, VIC 31
        {1280, 720, 60.0F, {1280, 110, 40, 3, 1650}, {720, 5, 5, 3, 750}},        // CTA-861, VIC 4
        {2560, 1440, 60.0F, {2560, 48, 32, 3, 2720}, {1440, 3, 5, 3, 1481}},      // CVT, reduced blanking
        {1000, 1000, 60.0F, {1000, 48, 32, 3, 1160}, {1000, 3, 10, 3, 1029}},     // CVT, no listed aspect ratio
    };
    for (const auto &row : kRows) {
        ProtoModel::s_TimingDetailBody timing{1, 77, {0, 0, 0, 3, 0}, {0, 0, 0, 3, 0}};
        EXPECT_TRUE(Helper::calcTimingbyModel(&timing, row.width, row.height, row.rate));
        EXPECT_EQ(timing, (ProtoModel::s_TimingDetailBody{1, 77, row.horizontal, row.vertical})) << row.width;
    }
    EXPECT_FALSE(Helper::calcTimingbyModel(nullptr, 1920, 1080, 60.0F));
}

} // namespace
