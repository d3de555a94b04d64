#include "command.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace quorixctl {
namespace {

/// Prints what a user would type, then does it. A step that fails ends the tour.
class Tour {
public:
    explicit Tour(const Invocation &call) : m_call(call) {}
    void step(const QString &title, const QStringList &line) {
        m_call.out << "\n### " << title << "\n$ quorixctl";
        for (const QString &word : line)
            m_call.out
                << (word.contains(QLatin1Char(' ')) ? QStringLiteral(" \"%1\"") : QStringLiteral(" %1")).arg(word);
        m_call.out << "\n\n";
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

void addDemoOptions(QCommandLineParser &parser) {
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      QStringLiteral("Picture to write (default: quorix-wall.png in the folder for temporary files)."),
                      QStringLiteral("FILE")});
}

void runDemo(const Invocation &call) {
    const QTemporaryDir scratch;
    if (!scratch.isValid())
        throw Failure(QStringLiteral("no room for temporary files: %1").arg(scratch.errorString()));
    const QString edid = scratch.filePath(QStringLiteral("made.bin"));
    const QDir data(call.dataDirectory);
    const QDir reportsFolder(data.filePath(QStringLiteral("reports")));
    const QString full = reportsFolder.filePath(QStringLiteral("alder-max.json"));
    const QString small = reportsFolder.filePath(QStringLiteral("birch-mini.json"));
    const QStringList reports{small, reportsFolder.filePath(QStringLiteral("alder.json")), full};

    Tour tour(call);
    tour.step(QStringLiteral("What the deployment knows: chassis and their cards"), {QStringLiteral("models")});
    tour.step(QStringLiteral("What one input card can be: its layouts by capacity"),
              {QStringLiteral("card"), QStringLiteral("30474")});
    tour.step(QStringLiteral("Templates that an operator picks from"), {QStringLiteral("layouts")});
    tour.step(QStringLiteral("A timing from the tables"), {QStringLiteral("timing"), QStringLiteral("1920x1080@60")});
    tour.step(QStringLiteral("A timing that no table holds"),
              {QStringLiteral("timing"), QStringLiteral("2560x1440@59.94")});
    tour.step(QStringLiteral("An EDID that asks for a wall of two full-HD columns"),
              {QStringLiteral("edid"), QStringLiteral("make"), data.filePath(QStringLiteral("edid/wall_input.bin")),
               QStringLiteral("3840x1080@60"), QStringLiteral("-o"), edid});
    tour.step(QStringLiteral("What a display would read in it"),
              {QStringLiteral("edid"), QStringLiteral("show"), edid});
    tour.step(QStringLiteral("Processors from their reports"), QStringList(QStringLiteral("show")) + reports);
    tour.step(QStringLiteral("What a listener hears while a report goes in"), {QStringLiteral("events"), small});
    tour.step(QStringLiteral("What it hears while an operator works"),
              {QStringLiteral("edit"), full, QStringLiteral("move regular:0/pvw/8 2600,1300"),
               QStringLiteral("opacity regular:0/pvw/9 60"), QStringLiteral("source regular:0/pvw/1 input:2-3"),
               QStringLiteral("select regular:0/pvw/9"), QStringLiteral("cut regular:6")});
    tour.step(QStringLiteral("Who would miss an input"),
              {QStringLiteral("uses"), full, QStringLiteral("input"), QStringLiteral("4-0")});
    const QFileInfo picture(call.options.isSet(QStringLiteral("output"))
                                ? call.options.value(QStringLiteral("output"))
                                : QDir::temp().filePath(QStringLiteral("quorix-wall.png")));
    const auto draw = [&](const char *title, const QString &report, const QString &screen, const QString &path) {
        tour.step(QString::fromLatin1(title),
                  {QStringLiteral("draw"), report, QStringLiteral("--screen"), screen, QStringLiteral("-o"), path});
    };
    const QString wall = picture.absoluteFilePath();
    const QString multiviewer = picture.absoluteDir().filePath(
        QStringLiteral("%1-multiviewer.%2").arg(picture.completeBaseName(), picture.suffix()));
    draw("The wall that it works on", full, QStringLiteral("regular:0"), wall);
    draw("What the director of another studio sees", reportsFolder.filePath(QStringLiteral("hazel.json")),
         QStringLiteral("mvr:0"), multiviewer);
    const QStringList stored{QStringLiteral("--root"), scratch.filePath(QStringLiteral("devices")),
                             QStringLiteral("--pictures"), scratch.filePath(QStringLiteral("pictures"))};
    tour.step(QStringLiteral("Whether the cards carry a layer in another place"),
              {QStringLiteral("check"), full, QStringLiteral("--screen"), QStringLiteral("regular:2"),
               QStringLiteral("--layer"), QStringLiteral("3"), QStringLiteral("--rect"),
               QStringLiteral("1800,900,1920,1080")});
    tour.step(QStringLiteral("They do: it goes there, and the processor to the disk"),
              QStringList{QStringLiteral("edit"), full, QStringLiteral("move regular:2/pvw/3 1800,900")} + stored);
    tour.step(QStringLiteral("And back, as after a restart"),
              QStringList{QStringLiteral("load"), QStringLiteral("--verify")} + stored);
    call.out << "\nThe tour is over: " << reports.size() + 1 << " processors, all of it from " << call.dataDirectory
             << ". The multiviewer and the wall:\n"
             << multiviewer << '\n'
             << wall << '\n';
}

} // namespace quorixctl
