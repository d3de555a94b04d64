#include <quorixbizmodel/common/modelthread.h>

#include <QCoreApplication>
#include <QThread>

namespace Quorix::BizModel {

void moveToModelThread(QObject &object) {
    const auto *application = QCoreApplication::instance();
    if (application != nullptr && object.thread() != application->thread())
        object.moveToThread(application->thread());
}

} // namespace Quorix::BizModel
