#include <support/messagelog.h>

#include <QtGlobal>

#include <mutex>
#include <utility>

namespace Quorix::Tests {

namespace {

std::mutex linesMutex; // guards lines
QStringList lines;

void keep(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text) {
    static const char *const levels[] = {"debug: ", "warning: ", "critical: ", "fatal: ", "info: "};
    const std::scoped_lock guard(linesMutex);
    lines.append(QString::fromLatin1(levels[type]) + text);
}

} // namespace

MessageLog::MessageLog() { qInstallMessageHandler(keep); }

MessageLog::~MessageLog() {
    qInstallMessageHandler(nullptr);
    take();
}

QStringList MessageLog::take() {
    const std::scoped_lock guard(linesMutex);
    return std::exchange(lines, {});
}

} // namespace Quorix::Tests
