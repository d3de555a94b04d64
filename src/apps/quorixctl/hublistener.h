/// Hears every signal of the hub and puts it in words.
#ifndef QUORIXCTL_HUBLISTENER_H
#define QUORIXCTL_HUBLISTENER_H

#include <ajson/ajson.h>

#include <QMetaMethod>
#include <QObject>

#include <functional>
#include <string>
#include <vector>

namespace quorixctl {

/// One event of the hub: who it is about (device first), and what else the signal carried.
struct HubEvent {
    std::string signal;
    std::vector<std::string> owners;
    std::vector<std::string> arguments;
};
QUORIX_AJSON(HubEvent, signal, owners, arguments)
/// An event as a line of JSON, without its end.
QString jsonLine(const HubEvent &event);

/// Joined to each signal of DeviceList for its lifetime; the callback runs on the emitting thread, inside the emission.
/// Deliberately without Q_OBJECT: its signals' slots are numbered behind QObject's own methods and answered by
/// qt_metacall, so that one body serves them all.
class HubListener : public QObject {
public:
    explicit HubListener(std::function<void(const HubEvent &)> heard);
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    std::function<void(const HubEvent &)> m_heard;
    std::vector<QMetaMethod> m_signals;
};

} // namespace quorixctl

#endif
