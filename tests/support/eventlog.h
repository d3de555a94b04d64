/// Listens to every signal of an object and writes down what it hears.
#ifndef QUORIX_TESTS_EVENTLOG_H
#define QUORIX_TESTS_EVENTLOG_H

#include <QMetaMethod>
#include <QObject>
#include <QStringList>
#include <QVector>

#include <map>
#include <mutex>
#include <ostream>

/// Failures of tests print texts as such.
inline void PrintTo(const QString &text, std::ostream *stream) { *stream << '"' << qPrintable(text) << '"'; }

namespace Quorix::Tests {

/// All signals of @p source in the order of emission, one text each: "name(argument, argument)". A reference is written
/// as the name that a test has given to its object, "?" for another one, "null" for an empty or dead one; lists stand
/// in brackets; an int result of the signal is left alone. Takes part on the emitting thread, whichever that is.
class EventLog : public QObject {
public:
    explicit EventLog(QObject *source);

    /// Names an object for the texts.
    void name(const void *object, const QString &text) { m_names[object] = text; }
    /// Everything heard since the last call.
    QStringList take();

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    [[nodiscard]] QString text(const QMetaMethod &method, void **arguments) const;

    QVector<QMetaMethod> m_heard;
    std::map<const void *, QString> m_names;
    std::mutex m_eventsMutex; ///< guards m_events
    QStringList m_events;
};

} // namespace Quorix::Tests

#endif
