#include <quorixbizmodel/common/modelthread.h>

#include <quorixbizmodel/common/guards.h>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>

#include <iterator>
#include <mutex>
#include <utility>

namespace Quorix::BizModel {

namespace {

using References = std::vector<std::shared_ptr<const void>>;

/// Holds references up to an event on the application's thread. They don't travel with the event, since the thread
/// sanitizer can't see how Qt hands one over.
class ReferenceBin : public QObject {
public:
    static ReferenceBin &instance() {
        static ReferenceBin bin;
        return bin;
    }

    void add(References references) {
        {
            const std::scoped_lock guard(m_mutex);
            m_references.insert(m_references.end(), std::make_move_iterator(references.begin()),
                                std::make_move_iterator(references.end()));
        }
        auto *event = new QEvent(QEvent::User);
        Detail::tellReleased(this, Detail::Released::ByWriters);
        QCoreApplication::postEvent(this, event);
    }

    bool event(QEvent *event) override {
        Detail::tellAcquired(this, Detail::Released::ByWriters);
        if (event->type() != QEvent::User)
            return QObject::event(event);
        // They end when the mutex is free again: whoever hears of an end may call back.
        const auto dropped = [this] {
            const std::scoped_lock guard(m_mutex);
            return std::exchange(m_references, {});
        }();
        return true;
    }

private:
    ReferenceBin() { moveToModelThread(*this); }

    std::mutex m_mutex; ///< guards m_references
    References m_references;
};

} // namespace

void moveToModelThread(QObject &object) {
    const auto *application = QCoreApplication::instance();
    if (application != nullptr && object.thread() != application->thread())
        object.moveToThread(application->thread());
}

void endOnOwnThread(QObject *object) {
    const QThread *const thread = object == nullptr ? nullptr : object->thread();
    // Without an application the events of its thread aren't handled either.
    if (thread != nullptr && thread != QThread::currentThread() && thread->isRunning() &&
        QCoreApplication::instance() != nullptr)
        object->deleteLater();
    else
        delete object;
}

void endOnModelThread(References references) {
    const auto *application = QCoreApplication::instance();
    const QThread *const thread = application == nullptr ? nullptr : application->thread();
    if (!references.empty() && thread != nullptr && thread != QThread::currentThread() && thread->isRunning())
        ReferenceBin::instance().add(std::move(references));
}

} // namespace Quorix::BizModel
