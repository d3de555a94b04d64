/// Hears every signal of the hub and puts it in words.
#ifndef QUORIXCTL_HUBLISTENER_H
#define QUORIXCTL_HUBLISTENER_H

#include <QMetaMethod>
#include <QObject>
#include <QTextStream>

#include <vector>

namespace quorixctl {

/// Joined to each signal of DeviceList for its lifetime, it prints each as a line of JSON: who the event is about
/// (device first), and what else the signal carried. It does so on the emitting thread, inside the emission.
/// Deliberately without Q_OBJECT: its signals' slots are numbered behind QObject's own methods and answered by
/// qt_metacall, so that one body serves them all.
class HubListener : public QObject {
public:
    /// Requires: @p out outlives this.
    explicit HubListener(QTextStream &out);
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    QTextStream &m_out;
    std::vector<QMetaMethod> m_signals;
};

} // namespace quorixctl

#endif
