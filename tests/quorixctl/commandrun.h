/// Runs a command of the host in this process.
#ifndef QUORIXCTL_TESTS_COMMANDRUN_H
#define QUORIXCTL_TESTS_COMMANDRUN_H

#include <quorixctl/command.h>

#include <ostream>

struct Outcome {
    int code;
    QString out;
    QString err;
};

inline Outcome run(QStringList line) {
    Outcome outcome{};
    QTextStream out(&outcome.out);
    QTextStream err(&outcome.err);
    line << QStringLiteral("--data") << QStringLiteral(QUORIX_DATA_DIR);
    outcome.code = quorixctl::runCommandLine(line, out, err);
    return outcome;
}

inline QString report(const char *name) { return QStringLiteral(QUORIX_DATA_DIR "/reports/") + QLatin1String(name); }

/// So that a failed comparison can be read.
inline std::ostream &operator<<(std::ostream &stream, const QString &text) { return stream << text.toStdString(); }

#endif
