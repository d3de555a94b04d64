#include <quorixbizmodel/common/helper.h>

#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixprotomodel/protomodelbase.h>

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <cmath>

namespace Quorix::BizModel {

class File;
class Output;

float Helper::protoRate2ModelRate(int value) { return static_cast<float>(value) / float{Constants::refreshRateRatio}; }
int Helper::modelRate2ProtoRate(float value) { return truncated(value * float{Constants::refreshRateRatio}); }
double Helper::protoHue2ModelHue(int value) { return value / double{Constants::hueParaRatio}; }
int Helper::modelHue2ProtoHue(double value) { return truncated(value * Constants::hueParaRatio); }
double Helper::protoGamma2ModelGamma(int value) {
    const int whole = value / Constants::gammaRatio;
    return whole;
}
int Helper::modelGamma2ProtoGamma(double value) { return truncated(value * Constants::gammaRatio); }
double Helper::proto2ModelEffectTime(int value) { return value / double{Constants::effectTimeRatio}; }
int Helper::model2ProtoEffectTime(double value) { return truncated(value * Constants::effectTimeRatio); }

QRect Helper::sRect2QRect(const ProtoModel::s_Rect &value) {
    return {QPoint(value.x, value.y), QPoint(wrappingSum(wrappingSum(value.x, value.width), -1),
                                             wrappingSum(wrappingSum(value.y, value.height), -1))};
}

ProtoModel::s_Rect Helper::qRect2SRect(const QRect &value) {
    ProtoModel::s_Rect rect;
    rect.x = value.left();
    rect.y = value.top();
    rect.width = wrappingSum(wrappingDifference(value.right(), value.left()), 1);
    rect.height = wrappingSum(wrappingDifference(value.bottom(), value.top()), 1);
    return rect;
}

QPoint Helper::sPoint2QPoint(const ProtoModel::s_Pos &value) { return {value.x, value.y}; }
ProtoModel::s_Pos Helper::qPoint2SPoint(const QPoint &value) { return {.x = value.x(), .y = value.y()}; }
QSize Helper::sSize2QSize(const ProtoModel::s_Size &value) { return {value.width, value.height}; }
ProtoModel::s_Size Helper::qSize2Size(const QSize &value) { return {.width = value.width(), .height = value.height()}; }

QColor Helper::sRGB2QColor(const ProtoModel::s_RGB &value) { return {value.R, value.G, value.B}; }
ProtoModel::s_RGB Helper::qColor2RGB(const QColor &value) {
    return {.R = value.red(), .G = value.green(), .B = value.blue()};
}

QColor Helper::sRGBO2QColor(const ProtoModel::s_RGBO &sValue) {
    QColor color = sRGB2QColor(sValue);
    color.setAlphaF(sValue.opacity * 0.01);
    return color;
}

ProtoModel::s_RGBO Helper::qColor2RGBO(const QColor &sValue) {
    return {qColor2RGB(sValue), qRound(sValue.alphaF() * 100.0)};
}

int Helper::bool2Int(bool value) { return value ? 1 : 0; }
bool Helper::int2Bool(int value) { return value != 0; }
ProtoModel::Boolean Helper::bool2Boolean(bool value) {
    return value ? ProtoModel::Boolean::_TRUE : ProtoModel::Boolean::_FALSE;
}
bool Helper::boolean2Bool(ProtoModel::Boolean value) { return value != ProtoModel::Boolean::_FALSE; }
QString Helper::str2qstr(const std::string &value) { return QString::fromStdString(value); }

ProtoModel::s_InterfaceID Helper::interfaceFullId(std::uint32_t interfaceId) {
    const auto byteAt = [interfaceId](unsigned shift) {
        return static_cast<std::int32_t>((interfaceId >> shift) & 255U);
    };
    return {.slotId = byteAt(16), .connectorId = byteAt(8), .splitId = byteAt(0)};
}

template <class T>
QList<std::shared_ptr<T>> Helper::sharedPtrs(const QList<std::weak_ptr<T>> &ptrs) {
    QList<std::shared_ptr<T>> locked;
    locked.reserve(ptrs.size());
    for (const std::weak_ptr<T> &ptr : ptrs)
        locked.append(ptr.lock());
    return locked;
}
template QUORIX_EXPORT QList<std::shared_ptr<Output>> Helper::sharedPtrs(const QList<std::weak_ptr<Output>> &);
template QUORIX_EXPORT QList<std::shared_ptr<File>> Helper::sharedPtrs(const QList<std::weak_ptr<File>> &);

bool Helper::isEmptyMac(const QString &sMac) {
    return sMac.isEmpty() || sMac == QLatin1String(ProtoModel::emptyMACString) || sMac == QLatin1String("N/A");
}
bool Helper::isEmptySn(const QString &sSn) { return sSn.isEmpty() || sSn == QLatin1String(ProtoModel::emptySNString); }

} // namespace Quorix::BizModel
