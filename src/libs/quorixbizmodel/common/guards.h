/// Scope guards over Qt's locks. Qt's libraries are not instrumented, so the thread sanitizer can't see their locks:
/// these guards tell it what is acquired and released, and then it checks every access of the model.
#ifndef QUORIXBIZMODEL_GUARDS_H
#define QUORIXBIZMODEL_GUARDS_H

#include <QMutex>
#include <QReadWriteLock>

// Qt defines __has_feature, as always false, for compilers without it: it can't tell them apart.
#if defined(__SANITIZE_THREAD__) || __has_feature(thread_sanitizer)
#    define QUORIX_TELL_TSAN
#endif
#ifdef QUORIX_TELL_TSAN
#    include <sanitizer/tsan_interface.h>
#endif

namespace Quorix::BizModel {

namespace Detail {

/// Two addresses stand for one lock: what writers and what readers have released. A reader follows writers only, so
/// that two readers stay unordered and a write under a read lock is found.
enum class Released : std::size_t { ByWriters = 0, ByReaders = 1 };

inline void tellAcquired([[maybe_unused]] void *lock, [[maybe_unused]] Released by) {
#ifdef QUORIX_TELL_TSAN
    __tsan_acquire(static_cast<char *>(lock) + static_cast<std::size_t>(by));
#endif
}

inline void tellReleased([[maybe_unused]] void *lock, [[maybe_unused]] Released by) {
#ifdef QUORIX_TELL_TSAN
    __tsan_release(static_cast<char *>(lock) + static_cast<std::size_t>(by));
#endif
}

} // namespace Detail

/// Holds a lock for reading. Not recursive: a second read lock hangs as soon as a writer waits in between.
class [[nodiscard]] ReadGuard {
public:
    explicit ReadGuard(QReadWriteLock &lock) : m_lock(lock) {
        m_lock.lockForRead();
        Detail::tellAcquired(&m_lock, Detail::Released::ByWriters);
    }
    ~ReadGuard() {
        Detail::tellReleased(&m_lock, Detail::Released::ByReaders);
        m_lock.unlock();
    }
    Q_DISABLE_COPY_MOVE(ReadGuard)

private:
    QReadWriteLock &m_lock;
};

/// Holds a lock for writing. Not recursive.
class [[nodiscard]] WriteGuard {
public:
    explicit WriteGuard(QReadWriteLock &lock) : m_lock(lock) {
        m_lock.lockForWrite();
        Detail::tellAcquired(&m_lock, Detail::Released::ByWriters);
        Detail::tellAcquired(&m_lock, Detail::Released::ByReaders);
    }
    ~WriteGuard() {
        Detail::tellReleased(&m_lock, Detail::Released::ByWriters);
        m_lock.unlock();
    }
    Q_DISABLE_COPY_MOVE(WriteGuard)

private:
    QReadWriteLock &m_lock;
};

/// Holds a QMutex. Not recursive.
class [[nodiscard]] MutexGuard {
public:
    explicit MutexGuard(QMutex &mutex) : m_mutex(mutex) {
        m_mutex.lock();
        Detail::tellAcquired(&m_mutex, Detail::Released::ByWriters);
    }
    ~MutexGuard() {
        Detail::tellReleased(&m_mutex, Detail::Released::ByWriters);
        m_mutex.unlock();
    }
    Q_DISABLE_COPY_MOVE(MutexGuard)

private:
    QMutex &m_mutex;
};

} // namespace Quorix::BizModel

#endif
