/// Keeps what goes to Qt's message logger for the span of a scope.
#ifndef QUORIX_TESTS_MESSAGELOG_H
#define QUORIX_TESTS_MESSAGELOG_H

#include <QStringList>

namespace Quorix::Tests {

/// Each line is "debug: text", "info: text", "warning: text" or "critical: text". One at a time.
class MessageLog {
public:
    MessageLog();
    ~MessageLog();
    Q_DISABLE_COPY_MOVE(MessageLog)

    static QStringList take();
};

} // namespace Quorix::Tests

#endif
