/// The thread on which the model's objects live.
#ifndef QUORIXBIZMODEL_MODELTHREAD_H
#define QUORIXBIZMODEL_MODELTHREAD_H

#include <quorix_export.h>

#include <memory>
#include <vector>

class QObject;

namespace Quorix::BizModel {

/// Moves @p object to the thread of the QCoreApplication, so that its queued signals and its slots run there.
/// Requires: the calling thread is the object's own, or the object lives on the application's thread already. Without
/// an application object nothing happens.
QUORIX_EXPORT void moveToModelThread(QObject &object);

/// Ends an object on its own thread: at once there, else when its events are next handled. At once, too, if that thread
/// has ended. The deleter of shared references whose last one may go on any thread.
QUORIX_EXPORT void endOnOwnThread(QObject *object);

/// Lets references go on the application's thread, where their objects live, when its events are next handled; at once
/// there, and if that thread has ended. For a thread whose references may have become the last ones.
QUORIX_EXPORT void endOnModelThread(std::vector<std::shared_ptr<const void>> references);

/// An object with that deleter.
template <class T>
std::shared_ptr<T> makeModelObject() {
    return std::shared_ptr<T>(new T, &endOnOwnThread);
}

} // namespace Quorix::BizModel

#endif
