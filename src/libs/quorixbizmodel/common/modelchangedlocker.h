/// Silence for one object while a reported state enters it.
#ifndef QUORIXBIZMODEL_MODELCHANGEDLOCKER_H
#define QUORIXBIZMODEL_MODELCHANGEDLOCKER_H

#include <QtGlobal>

/// Blocks the signals of one object, not those of its parts, for the span of a scope. Its end unblocks whatever the
/// state was before, also in the middle of an outer guard on the same object: nothing may rely on nesting.
/// Requires: the object outlives the guard.
template <class T>
class [[nodiscard]] ObjectSignalLocker {
public:
    explicit ObjectSignalLocker(T *pObject) : m_pObject(pObject) { m_pObject->blockSignals(true); }
    ~ObjectSignalLocker() { m_pObject->blockSignals(false); }
    Q_DISABLE_COPY_MOVE(ObjectSignalLocker)

private:
    T *m_pObject;
};

#endif
