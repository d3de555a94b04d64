/// The thread on which the model's objects live.
#ifndef QUORIXBIZMODEL_MODELTHREAD_H
#define QUORIXBIZMODEL_MODELTHREAD_H

#include <quorix_export.h>

class QObject;

namespace Quorix::BizModel {

/// Moves @p object to the thread of the QCoreApplication, so that its queued signals and its slots run there.
/// Requires: the calling thread is the object's own, or the object lives on the application's thread already. Without
/// an application object nothing happens.
QUORIX_EXPORT void moveToModelThread(QObject &object);

} // namespace Quorix::BizModel

#endif
