/// Conversions between records and the model, texts for display, IPv4 arithmetic, split rules.
#ifndef QUORIXBIZMODEL_HELPER_H
#define QUORIXBIZMODEL_HELPER_H

#include <quorix_export.h>
#include <quorixbizmodel/common/protomodelforward.h>
#include <quorixbizmodel/common/quorixbizenum.h>

#include <QList>
#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>

class QColor;
class QLabel;
class QPoint;
class QPushButton;
class QRect;
class QSize;
class QWidget;

namespace Quorix::BizModel {

struct ST_TextData;
struct s_DeviceConfig;

/// Static functions only; a QObject for the sake of its translation context. All but the widget functions are pure or
/// read tables alone, and may be called from any thread.
class QUORIX_EXPORT Helper : public QObject {
    Q_OBJECT

public:
    Helper() = delete;

    // Units (helper.cpp). Records hold whole numbers: rates, hues and gammas times 100, effect times times 10. To a
    // record a value is cut toward zero; past 32 bits it saturates, and what is not a number gives 0.
    static float protoRate2ModelRate(int value);
    /// @p value in hertz. Multiplied as a 32-bit float: in 64 bits 23.98F, 29.97F, 59.94F and 119.88F would lose one.
    static int modelRate2ProtoRate(float value);
    static double protoHue2ModelHue(int value);
    static int modelHue2ProtoHue(double value);
    /// Whole gammas only, the fraction is lost: 250 gives 2.0.
    static double protoGamma2ModelGamma(int value);
    static int modelGamma2ProtoGamma(double value);
    static double proto2ModelEffectTime(int value);
    /// @p value in seconds.
    static int model2ProtoEffectTime(double value);

    // Value types (helper.cpp). Coordinates are in pixels and kept as they are, empty and negative sizes included.
    static QRect sRect2QRect(const ProtoModel::s_Rect &value);
    static ProtoModel::s_Rect qRect2SRect(const QRect &value);
    static QPoint sPoint2QPoint(const ProtoModel::s_Pos &value);
    static ProtoModel::s_Pos qPoint2SPoint(const QPoint &value);
    static QSize sSize2QSize(const ProtoModel::s_Size &value);
    static ProtoModel::s_Size qSize2Size(const QSize &value);
    static QColor sRGB2QColor(const ProtoModel::s_RGB &value);
    static ProtoModel::s_RGB qColor2RGB(const QColor &value);
    /// The record's opacity is a percentage, the colour's alpha a fraction.
    static QColor sRGBO2QColor(const ProtoModel::s_RGBO &sValue);
    static ProtoModel::s_RGBO qColor2RGBO(const QColor &sValue);
    static int bool2Int(bool value);
    static bool int2Bool(int value);
    static ProtoModel::Boolean bool2Boolean(bool value);
    static bool boolean2Bool(ProtoModel::Boolean value);
    static QString str2qstr(const std::string &value);
    /// Takes the packed id apart: slot in bits 16 to 23, connector in bits 8 to 15, split in bits 0 to 7.
    static ProtoModel::s_InterfaceID interfaceFullId(std::uint32_t interfaceId);
    /// One locked pointer for each entry, null for an expired one. Instantiated for Output and File.
    template <class T>
    static QList<std::shared_ptr<T>> sharedPtrs(const QList<std::weak_ptr<T>> &ptrs);

    // Empty device fields (helper.cpp)
    static bool isEmptyMac(const QString &sMac);
    static bool isEmptySn(const QString &sSn);

    // Texts for display (helper_texts.cpp). What no table knows is "N/A".
    static QString interfaceCapacityString(Enum::Interface::CapacityMode type);
    static QString interfaceColorSpaceString(Enum::Interface::ColorSpace type);
    static QString interfaceColorRangeString(Enum::Interface::ColorRange type);
    static QString interfaceBitDepthString(Enum::Interface::ColorDepth type);
    /// Without @p bShowDetailType only on and off are told apart. A type that no table knows is logged.
    static QString HDCPTypeQString(Enum::Interface::HDCPType hdcpType, bool bShowDetailType);
    /// "1920x1080@59.94Hz"; a whole rate has no decimals, an interlaced one an "i" behind the height.
    static QString formatFramerate(const QSize &frameRate, const float &refreshRate, bool isInterlacing);
    /// Samples per pixel that count for the bandwidth; 0 for an unknown colour space.
    static float colorSpaceValue(Enum::Interface::ColorSpace colorSpaceType);
    /// Adds to @p capacitys the names of all capacities up to @p capacityType that it doesn't hold yet.
    static void connectorCapacityNames(int capacityType, QList<QString> &capacitys);
    /// 1 to 32 characters: hyphen, white space, ASCII letters and digits, underscore, ideographs U+4E00 to U+9FA5.
    static bool checkNameValid(const QString &strname);
    /// A colour of a fixed palette, neighbouring indices far apart in hue.
    static QColor randomColor(int index);

    // Slots (capability/helper_slots.cpp)
    /// The label of a slot: "In1", "Out1", "MVR", "Exp"; "N/A" in no range or for a model without a capability record.
    /// Reads DeviceConfigManager: for the thread that makes devices.
    static QString getSlotDescription(Enum::Device::Type type, int position, bool mvrEnabled);
    /// The same from a record at hand; empty in no range.
    static QString slotLabel(const s_DeviceConfig &config, int position, bool mvrEnabled);

    // IPv4 arithmetic on dotted texts (helper_texts.cpp)
    /// The mask of the address's class; empty for a first octet below 1.
    static QString subMask(const QString &ipString);
    /// The first address of the net; empty unless both texts have four parts.
    static QString gateWay(const QString &ipString, const QString &subMask);
    /// The first octet in the highest byte; 0xFFFFFFFF unless the text has four parts.
    static unsigned int IPAddressToInt(const QString &ipAdress);

    // Split rules (helper_split.cpp): a layer whose input is wider than a single link is carried by several channels,
    // each a vertical strip of the input.
    /// Channels that a capacity takes.
    static int splitCount(Enum::Interface::CapacityMode capacity);
    /// Strips of equal width from x = 0, the last with the remainder; none for a @p splitCount below 1.
    static QList<QRect> splitInputRect(QRect rect, int splitCount);
    /// The parts of @p cropRect in each strip, in pixels of the input; strips outside of it are left out.
    static QList<QRect> splitCropRectByInputRect(QRect inputRect, int splitCount, QRect cropRect);
    /// Where the parts of the crop stand on the screen. Neighbours overlap by
    /// Constants::Layer::defaultLayerSplitOffset pixels, so that no seam shows.
    static QList<QRect> splitLayerRects(QRect inputRect, int splitCount, QRect cropRect, QRect layerRect);

    // Timings (helper_timing.cpp)
    /// Fills active, total, front porch and sync of both axes of @p pTiming; what else it holds stays.
    /// @param width,height pixels and lines, taken modulo 65536   @param InputFreq hertz
    /// @return false, with @p pTiming untouched, when there is no timing.
    /// Source: mode tables of VESA DMT and CTA-861, else VESA CVT 1.2 with reduced blanking.
    static bool calcTimingbyModel(ProtoModel::s_TimingDetailBody *pTiming, int width, int height, float InputFreq);

    // Elided texts (helper_widgets.cpp), for the thread of the user interface. A null widget does nothing.
    /// Shortens the text to the widget's width and keeps the full one in an ST_TextData on the widget; the tool tip
    /// shows it while it doesn't fit.
    static void caclThumbnailText(QLabel *widget);
    static void caclThumbnailText(QPushButton *widget);
    /// Puts @p text in front of the kept full text unless that holds it already; nothing without a kept text.
    static void appendThumbnailText(QLabel *widget, const QString &text);
    static void appendThumbnailText(QPushButton *widget, const QString &text);
    /// The two above, for every label and push button below @p widget.
    static void allCaclThumbnailText(QWidget *widget);
    static void appendCaclThumbnailText(QWidget *widget, const QString &text);
    /// The kept record in user-data slot @p id, or null. The widget owns it; the next append replaces it.
    static ST_TextData *realData(QWidget *pWidget, int id);
    /// The kept full text, else the text of a label or button, else empty.
    static QString realText(QWidget *pWidget);
};

} // namespace Quorix::BizModel

#endif
