#include "hublistener.h"

#include "address.h"

#include <ajson/ajson.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;

struct HubEvent {
    std::string signal;
    std::vector<std::string> owners;
    std::vector<std::string> arguments;
};
QUORIX_AJSON(HubEvent, signal, owners, arguments)

std::string deviceText(const std::shared_ptr<Device> &device) {
    return device ? device->ipMacSn().toStdString() : std::string("gone");
}

template <class T>
const T &as(const void *argument) {
    return *static_cast<const T *>(argument);
}

std::string nameText(const std::shared_ptr<Interface> &interface) {
    return interface ? interface->name().toStdString() : std::string("gone");
}

std::string slotText(const std::shared_ptr<Subcard> &card) {
    return card ? "slot " + std::to_string(card->slotId()) : std::string("gone");
}

std::string portText(const std::shared_ptr<Connector> &connector) {
    return connector ? "port " + std::to_string(connector->id()) : std::string("gone");
}

std::string placeText(const std::shared_ptr<Screen> &screen) {
    return screen ? screenText(screen->screenIdentity()).toStdString() : std::string("gone");
}

std::string placeText(const std::shared_ptr<Layer> &layer) {
    return layer ? layerText(layer->screenLayerId()).toStdString() : std::string("gone");
}

std::string listText(const QList<std::weak_ptr<Screen>> &screens) {
    QStringList places;
    for (const auto &screen : screens)
        places << QString::fromStdString(placeText(screen.lock()));
    return places.join(QLatin1Char(' ')).toStdString();
}

std::string fileText(const std::shared_ptr<File> &file) {
    return file ? file->name().toStdString() : std::string("gone");
}

std::string rectText(const QRect &rect) {
    return QStringLiteral("%1x%2 at %3,%4")
        .arg(rect.width())
        .arg(rect.height())
        .arg(rect.x())
        .arg(rect.y())
        .toStdString();
}

/// How an argument of a type reads; owners stand in front of an event's other arguments.
struct ArgumentForm {
    const char *type; ///< as the hub's declaration spells it
    bool isOwner;
    std::string (*text)(const void *);
};

const ArgumentForm kForms[] = {
    {"std::weak_ptr<Device>", true, [](const void *a) { return deviceText(as<std::weak_ptr<Device>>(a).lock()); }},
    {"std::shared_ptr<Device>", true, [](const void *a) { return deviceText(as<std::shared_ptr<Device>>(a)); }},
    {"std::weak_ptr<Subcard>", true, [](const void *a) { return slotText(as<std::weak_ptr<Subcard>>(a).lock()); }},
    {"std::shared_ptr<Subcard>", true, [](const void *a) { return slotText(as<std::shared_ptr<Subcard>>(a)); }},
    {"std::weak_ptr<Connector>", true, [](const void *a) { return portText(as<std::weak_ptr<Connector>>(a).lock()); }},
    {"std::weak_ptr<Interface>", true, [](const void *a) { return nameText(as<std::weak_ptr<Interface>>(a).lock()); }},
    {"std::weak_ptr<Input>", true, [](const void *a) { return nameText(as<std::weak_ptr<Input>>(a).lock()); }},
    {"std::shared_ptr<Input>", true, [](const void *a) { return nameText(as<std::shared_ptr<Input>>(a)); }},
    {"std::shared_ptr<Output>", true, [](const void *a) { return nameText(as<std::shared_ptr<Output>>(a)); }},
    {"std::weak_ptr<Output>", true, [](const void *a) { return nameText(as<std::weak_ptr<Output>>(a).lock()); }},
    {"std::weak_ptr<Screen>", true, [](const void *a) { return placeText(as<std::weak_ptr<Screen>>(a).lock()); }},
    {"std::shared_ptr<Screen>", true, [](const void *a) { return placeText(as<std::shared_ptr<Screen>>(a)); }},
    {"std::weak_ptr<MVRScreen>", true, [](const void *a) { return placeText(as<std::weak_ptr<MVRScreen>>(a).lock()); }},
    {"std::weak_ptr<Layer>", true, [](const void *a) { return placeText(as<std::weak_ptr<Layer>>(a).lock()); }},
    {"std::shared_ptr<Layer>", true, [](const void *a) { return placeText(as<std::shared_ptr<Layer>>(a)); }},
    {"std::weak_ptr<File>", true, [](const void *a) { return fileText(as<std::weak_ptr<File>>(a).lock()); }},
    {"std::weak_ptr<Image>", true, [](const void *a) { return fileText(as<std::weak_ptr<Image>>(a).lock()); }},
    {"std::shared_ptr<Image>", true, [](const void *a) { return fileText(as<std::shared_ptr<Image>>(a)); }},
    {"std::weak_ptr<Preset>", true, [](const void *a) { return fileText(as<std::weak_ptr<Preset>>(a).lock()); }},
    {"std::shared_ptr<Preset>", true, [](const void *a) { return fileText(as<std::shared_ptr<Preset>>(a)); }},
    {"QList<std::weak_ptr<Screen> >", true,
     [](const void *a) { return listText(as<QList<std::weak_ptr<Screen>>>(a)); }},
    {"QRect", false, [](const void *a) { return rectText(as<QRect>(a)); }},
    {"QString", false, [](const void *a) { return as<QString>(a).toStdString(); }},
    {"int", false, [](const void *a) { return std::to_string(as<int>(a)); }},
    {"bool", false, [](const void *a) { return std::string(as<bool>(a) ? "true" : "false"); }},
};

HubEvent describe(const QMetaMethod &signal, void **arguments) {
    HubEvent event{signal.name().toStdString(), {}, {}};
    const QList<QByteArray> types = signal.parameterTypes();
    for (int i = 0; i < types.size(); ++i) {
        const auto form = std::find_if(std::begin(kForms), std::end(kForms),
                                       [&](const ArgumentForm &row) { return types[i] == row.type; });
        if (form == std::end(kForms))
            event.arguments.push_back(types[i].toStdString());
        else
            (form->isOwner ? event.owners : event.arguments).push_back(form->text(arguments[i + 1]));
    }
    return event;
}

QString jsonLine(const HubEvent &event) {
    ajson::ajson_string_stream<> stream;
    ajson::lite_write<ajson::ajson_string_stream<>> writer(stream);
    ajson::json_impl<HubEvent>::write(writer, event);
    return QString::fromUtf8(stream.data(), static_cast<int>(stream.write_length()));
}

} // namespace

HubListener::HubListener(QTextStream &out) : m_out(out) {
    const QObject *hub = DeviceList::instance();
    for (int i = QObject::staticMetaObject.methodCount(); i < hub->metaObject()->methodCount(); ++i) {
        const QMetaMethod method = hub->metaObject()->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        const int slot = QObject::staticMetaObject.methodCount() + static_cast<int>(m_signals.size());
        m_signals.push_back(method);
        QMetaObject::connect(hub, i, this, slot, Qt::DirectConnection);
    }
}

int HubListener::qt_metacall(QMetaObject::Call call, int id, void **arguments) {
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    if (static_cast<std::size_t>(id) < m_signals.size())
        m_out << jsonLine(describe(m_signals[static_cast<std::size_t>(id)], arguments)) << '\n';
    return -1;
}

} // namespace quorixctl
