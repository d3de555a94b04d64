#include <quorixbizmodel/common/helper.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/numbers.h>

#include <QColor>
#include <QDebug>
#include <QRegExp>
#include <QSize>
#include <QStringList>

#include <array>
#include <cmath>
#include <optional>
#include <span>

namespace Quorix::BizModel {

namespace {

using Enum::Interface::CapacityMode;
using Enum::Interface::ColorDepth;
using Enum::Interface::ColorRange;
using Enum::Interface::ColorSpace;
using Enum::Interface::HDCPType;

template <class Key, class Value>
struct Row {
    Key key;
    Value value;
};

template <class Key, class Value, std::size_t N>
constexpr const Value *find(const Row<Key, Value> (&table)[N], Key key) {
    for (const Row<Key, Value> &row : table)
        if (row.key == key)
            return &row.value;
    return nullptr;
}

constexpr char kNotAvailable[] = "N/A";

template <class Key, std::size_t N>
QString textOf(const Row<Key, const char *> (&table)[N], Key key) {
    const char *const *const text = find(table, key);
    return QLatin1String(text != nullptr ? *text : kNotAvailable);
}

constexpr Row<CapacityMode, const char *> kCapacities[] = {
    {CapacityMode::_SL, "SL"},
    {CapacityMode::_DL, "DL"},
    {CapacityMode::_4K, "4K"},
};

constexpr Row<ColorSpace, const char *> kColorSpaces[] = {
    {ColorSpace::RGB_4_4_4, "RGB 4:4:4"},
    {ColorSpace::YCbCr_4_2_2, "YCbCr 4:2:2"},
    {ColorSpace::YCbCr_4_4_4, "YCbCr 4:4:4"},
    {ColorSpace::YCbCr_4_2_0, "YCbCr 4:2:0"},
};

constexpr Row<ColorSpace, float> kColorSpaceValues[] = {
    {ColorSpace::RGB_4_4_4, 3.0F},
    {ColorSpace::YCbCr_4_4_4, 3.0F},
    {ColorSpace::YCbCr_4_2_2, 2.0F},
    {ColorSpace::YCbCr_4_2_0, 1.5F},
};

constexpr Row<HDCPType, const char *> kHDCPTypes[] = {
    {HDCPType::Off, QT_TRANSLATE_NOOP("Quorix::BizModel::Helper", "Off")},
    {HDCPType::HDCP_1_4, "HDCP 1.4"},
    {HDCPType::HDCP_1_3, "HDCP 1.3"},
    {HDCPType::HDCP_2_2, "HDCP 2.2"},
};

struct Rgb {
    int red;
    int green;
    int blue;
};

constexpr Rgb kRow0[] = {{204, 68, 18},   {185, 60, 145}, {226, 154, 190}, {172, 2, 2},
                         {218, 25, 98},   {207, 71, 21},  {160, 57, 57},   {204, 88, 88},
                         {204, 112, 112}, {209, 83, 110}, {210, 92, 145},  {230, 69, 114},
                         {188, 59, 115},  {220, 11, 159}, {207, 88, 187},  {214, 105, 159}};
constexpr Rgb kRow1[] = {{35, 183, 215},  {0, 136, 209},   {83, 109, 254},  {224, 114, 124},
                         {160, 149, 238}, {214, 153, 133}, {10, 204, 204},  {50, 168, 197},
                         {5, 103, 189},   {2, 158, 237},   {80, 136, 251},  {212, 138, 144},
                         {164, 107, 165}, {136, 70, 137},  {190, 157, 217}, {169, 119, 202}};
constexpr Rgb kRow2[] = {{211, 125, 14}, {217, 175, 131}, {249, 167, 37}, {180, 77, 5},
                         {181, 119, 19}, {237, 123, 0},   {214, 104, 8},  {232, 103, 5},
                         {191, 144, 1},  {234, 170, 117}, {171, 99, 75},  {173, 121, 98},
                         {156, 81, 6},   {145, 93, 41},   {213, 168, 77}, {220, 140, 43}};
constexpr Rgb kRow3[] = {{2, 66, 250},   {130, 83, 242}, {169, 4, 255},  {117, 105, 197}, {94, 73, 230}, {5, 35, 232},
                         {3, 81, 250},   {2, 96, 212},   {33, 77, 203},  {37, 60, 195},   {9, 91, 214},  {40, 80, 224},
                         {137, 82, 200}, {97, 75, 204},  {106, 65, 202}, {97, 1, 255}};
constexpr Rgb kRow4[] = {{176, 182, 24},  {212, 163, 17}, {204, 194, 0},  {216, 182, 47},
                         {181, 175, 13},  {222, 179, 49}, {201, 209, 46}, {176, 182, 24},
                         {215, 182, 103}, {146, 120, 37}, {177, 136, 54}, {195, 160, 52},
                         {177, 136, 54},  {150, 148, 10}, {209, 188, 2},  {209, 174, 128}};
constexpr Rgb kRow5[] = {{65, 183, 65},  {0, 163, 155},  {71, 192, 162}, {1, 157, 1},   {117, 163, 212}, {154, 186, 69},
                         {2, 204, 106},  {137, 163, 42}, {67, 186, 121}, {46, 160, 97}, {133, 166, 43},  {67, 156, 109},
                         {25, 224, 174}, {34, 92, 147},  {52, 125, 129}, {24, 129, 39}};
constexpr Rgb kRow6[] = {{195, 14, 211}, {171, 111, 231}, {163, 41, 194}, {188, 71, 199}};

constexpr std::span<const Rgb> kPalette[] = {kRow0, kRow1, kRow2, kRow3, kRow4, kRow5, kRow6};

/// The four octets of a dotted text, what is no number as 0; nothing with another number of parts.
std::optional<std::array<int, 4>> octets(const QString &text) {
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != 4)
        return std::nullopt;
    return std::array{parts[0].toInt(), parts[1].toInt(), parts[2].toInt(), parts[3].toInt()};
}

} // namespace

QString Helper::interfaceCapacityString(CapacityMode type) { return textOf(kCapacities, type); }

QString Helper::interfaceColorSpaceString(ColorSpace type) { return textOf(kColorSpaces, type); }

QString Helper::interfaceColorRangeString(ColorRange type) {
    switch (type) {
    case ColorRange::Limited:
        return tr("Limited Range");
    case ColorRange::Full:
        return tr("Full Range");
    }
    return QLatin1String(kNotAvailable);
}

QString Helper::interfaceBitDepthString(ColorDepth type) {
    switch (type) {
    case ColorDepth::_8_:
    case ColorDepth::_10_:
    case ColorDepth::_12_:
    case ColorDepth::_16_:
        return QString::number(toInt(type)) + tr("bit");
    case ColorDepth::_255_:
        return QStringLiteral("AUTO");
    case ColorDepth::_0_:
        break;
    }
    return QLatin1String(kNotAvailable);
}

QString Helper::HDCPTypeQString(HDCPType hdcpType, bool bShowDetailType) {
    const char *const *const text = find(kHDCPTypes, hdcpType);
    if (text == nullptr) {
        qWarning() << "HDCPProtoMap do not have hdcpType";
        return QLatin1String(kNotAvailable);
    }
    if (hdcpType == HDCPType::Off)
        return tr(*text);
    return bShowDetailType ? QString(QLatin1String(*text)) : tr("On");
}

QString Helper::formatFramerate(const QSize &frameRate, const float &refreshRate, bool isInterlacing) {
    const bool isWhole = refreshRate == std::trunc(refreshRate);
    return QStringLiteral("%1x%2%3@%4Hz")
        .arg(QString::number(frameRate.width()), QString::number(frameRate.height()),
             isInterlacing ? QStringLiteral("i") : QString(),
             QString::number(static_cast<double>(refreshRate), 'f', isWhole ? 0 : 2));
}

float Helper::colorSpaceValue(ColorSpace colorSpaceType) {
    const float *const value = find(kColorSpaceValues, colorSpaceType);
    return value != nullptr ? *value : 0.0F;
}

void Helper::connectorCapacityNames(int capacityType, QList<QString> &capacitys) {
    if (find(kCapacities, static_cast<CapacityMode>(capacityType)) == nullptr)
        return;
    for (const auto &[capacity, text] : kCapacities) {
        const QString name = QLatin1String(text);
        if (toInt(capacity) <= capacityType && !capacitys.contains(name))
            capacitys.append(name);
    }
}

bool Helper::checkNameValid(const QString &strname) {
    // Matching changes a QRegExp, so each call has its own; Qt keeps the compiled pattern.
    return QRegExp(QStringLiteral("[\\-\\s0-9A-Za-z_\\x4e00-\\x9fa5]{1,32}"), Qt::CaseSensitive).exactMatch(strname);
}

QColor Helper::randomColor(int index) {
    const auto number = static_cast<std::uint32_t>(index);
    const std::span<const Rgb> row = kPalette[number % std::size(kPalette)];
    const Rgb &color = row[(number / std::size(kPalette)) % row.size()];
    return {color.red, color.green, color.blue};
}

QString Helper::subMask(const QString &ipString) {
    const int first = ipString.section(QLatin1Char('.'), 0, 0).toInt();
    if (first > 191)
        return QStringLiteral("255.255.255.0");
    if (first > 127)
        return QStringLiteral("255.255.0.0");
    return first > 0 ? QStringLiteral("255.0.0.0") : QString();
}

QString Helper::gateWay(const QString &ipString, const QString &subMask) {
    const auto ip = octets(ipString);
    const auto mask = octets(subMask);
    if (!ip || !mask)
        return {};
    const auto net = [&](std::size_t i) { return (*ip)[i] & (*mask)[i]; };
    return QStringLiteral("%1.%2.%3.%4").arg(net(0)).arg(net(1)).arg(net(2)).arg(wrappingSum(net(3), 1));
}

unsigned int Helper::IPAddressToInt(const QString &ipAdress) {
    const auto parts = octets(ipAdress);
    if (!parts)
        return 0xFFFFFFFFU;
    unsigned int address = 0;
    for (const int octet : *parts)
        address = address << 8U | (static_cast<unsigned int>(octet) & 255U);
    return address;
}

} // namespace Quorix::BizModel
