#include "command.h"

#include <QGuiApplication>

/// The demonstration host of the business model: see `quorixctl --help`.
int main(int argc, char **argv) {
    // The host draws nothing on a display: it runs wherever the library runs.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quorixctl"));
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setCodec("UTF-8");
    err.setCodec("UTF-8");
    return quorixctl::runCommandLine(QCoreApplication::arguments().mid(1), out, err);
}
