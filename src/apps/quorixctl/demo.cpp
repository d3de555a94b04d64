#include "command.h"

#include <QDir>
#include <QTemporaryDir>

namespace quorixctl {
namespace {

/// Prints what a user would type, then does it. A step that fails ends the tour.
class Tour {
public:
    explicit Tour(const Invocation &call) : m_call(call) {}
    void step(const QString &title, const QStringList &line) {
        m_call.out << "\n### " << title << "\n$ quorixctl " << line.join(QLatin1Char(' ')) << "\n\n";
        QString reason;
        QTextStream err(&reason);
        const int code =
            runCommandLine(line + QStringList{QStringLiteral("--data"), m_call.dataDirectory}, m_call.out, err);
        m_call.out.flush();
        if (code != Done)
            throw Failure(QStringLiteral("the step ended with %1: %2").arg(code).arg(reason.trimmed()));
    }

private:
    const Invocation &m_call;
};

} // namespace

void runDemo(const Invocation &call) {
    const QTemporaryDir scratch;
    if (!scratch.isValid())
        throw Failure(QStringLiteral("no room for temporary files: %1").arg(scratch.errorString()));
    const QString edid = scratch.filePath(QStringLiteral("made.bin"));
    const QDir data(call.dataDirectory);
    const QDir reportsFolder(data.filePath(QStringLiteral("reports")));
    QStringList reports;
    for (const QString &name : reportsFolder.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name))
        reports << reportsFolder.filePath(name);

    Tour tour(call);
    tour.step(QStringLiteral("What the deployment knows: chassis and their cards"), {QStringLiteral("models")});
    tour.step(QStringLiteral("What one input card can be: its layouts by capacity"),
              {QStringLiteral("card"), QStringLiteral("30474")});
    tour.step(QStringLiteral("A timing from the tables"), {QStringLiteral("timing"), QStringLiteral("1920x1080@60")});
    tour.step(QStringLiteral("A timing that no table holds"),
              {QStringLiteral("timing"), QStringLiteral("2560x1440@59.94")});
    tour.step(QStringLiteral("An EDID that asks for a wall of two full-HD columns"),
              {QStringLiteral("edid"), QStringLiteral("make"), data.filePath(QStringLiteral("edid/wall_input.bin")),
               QStringLiteral("3840x1080@60"), QStringLiteral("-o"), edid});
    tour.step(QStringLiteral("What a display would read in it"),
              {QStringLiteral("edid"), QStringLiteral("show"), edid});
    tour.step(QStringLiteral("Processors from their reports"), QStringList(QStringLiteral("show")) + reports);
    tour.step(QStringLiteral("What a listener hears while a report goes in"),
              {QStringLiteral("events"), reports.value(0)});
    call.out << "\nThe tour is over: " << reports.size() << " processors, all of it from " << call.dataDirectory
             << ".\n";
}

} // namespace quorixctl
