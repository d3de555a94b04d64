#include <support/eventlog.h>

#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/hub/devicelist.h>

#include <functional>

namespace Quorix::Tests {

namespace {

using Names = std::map<const void *, QString>;
using Formatter = std::function<QString(const void *value, const Names &names)>;

QString nameOf(const void *object, const Names &names) {
    if (object == nullptr)
        return QStringLiteral("null");
    const auto known = names.find(object);
    return known == names.end() ? QStringLiteral("?") : known->second;
}

template <class T>
const T &as(const void *value) {
    return *static_cast<const T *>(value);
}

template <class T>
void addReferences(std::map<int, Formatter> &formatters) {
    formatters[qMetaTypeId<std::weak_ptr<T>>()] = [](const void *value, const Names &names) {
        return nameOf(as<std::weak_ptr<T>>(value).lock().get(), names);
    };
    formatters[qMetaTypeId<std::shared_ptr<T>>()] = [](const void *value, const Names &names) {
        return nameOf(as<std::shared_ptr<T>>(value).get(), names);
    };
    formatters[qMetaTypeId<QList<std::weak_ptr<T>>>()] = [](const void *value, const Names &names) {
        QStringList entries;
        for (const auto &entry : as<QList<std::weak_ptr<T>>>(value))
            entries += nameOf(entry.lock().get(), names);
        return '[' + entries.join(QStringLiteral(", ")) + ']';
    };
}

template <class... T>
std::map<int, Formatter> makeFormatters() {
    std::map<int, Formatter> formatters;
    (addReferences<T>(formatters), ...);
    formatters[QMetaType::Bool] = [](const void *value, const Names &) {
        return as<bool>(value) ? QStringLiteral("true") : QStringLiteral("false");
    };
    formatters[QMetaType::Int] = [](const void *value, const Names &) { return QString::number(as<int>(value)); };
    formatters[QMetaType::UChar] = [](const void *value, const Names &) { return QString::number(as<quint8>(value)); };
    formatters[QMetaType::UShort] = [](const void *value, const Names &) {
        return QString::number(as<quint16>(value));
    };
    formatters[QMetaType::QString] = [](const void *value, const Names &) { return '"' + as<QString>(value) + '"'; };
    formatters[QMetaType::QRect] = [](const void *value, const Names &) {
        const auto rect = BizModel::Helper::qRect2SRect(as<QRect>(value)); // takes any corners, QRect::width() doesn't
        return QStringLiteral("%1x%2+%3+%4").arg(rect.width).arg(rect.height).arg(rect.x).arg(rect.y);
    };
    return formatters;
}

const std::map<int, Formatter> &formatters() {
    using namespace BizModel;
    static const auto all = makeFormatters<Device, Subcard, Connector, Interface, Input, Output, Screen, MVRScreen,
                                           Layer, MVRLayer, File, Image, Preset>();
    return all;
}

} // namespace

EventLog::EventLog(QObject *source) {
    const QMetaObject *meta = source->metaObject();
    for (int i = staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        QMetaObject::connect(source, i, this, staticMetaObject.methodCount() + m_heard.size(), Qt::DirectConnection);
        m_heard.append(method);
    }
}

QStringList EventLog::take() {
    const std::scoped_lock guard(m_eventsMutex);
    return std::exchange(m_events, {});
}

int EventLog::qt_metacall(QMetaObject::Call call, int id, void **arguments) {
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    const QString event = text(m_heard.at(id), arguments);
    const std::scoped_lock guard(m_eventsMutex);
    m_events.append(event);
    return -1;
}

QString EventLog::text(const QMetaMethod &method, void **arguments) const {
    QStringList texts;
    for (int i = 0; i < method.parameterCount(); ++i) {
        const auto formatter = formatters().find(method.parameterType(i));
        texts += formatter == formatters().end() ? QString::fromUtf8(method.parameterTypes().at(i))
                                                 : formatter->second(arguments[i + 1], m_names);
    }
    return QString::fromUtf8(method.name()) + '(' + texts.join(QStringLiteral(", ")) + ')';
}

} // namespace Quorix::Tests
