/// What every command of the host has at hand: its arguments, the two streams, the deployment.
#ifndef QUORIXCTL_COMMAND_H
#define QUORIXCTL_COMMAND_H

#include <quorixbizmodel/common/quorixbizenum.h>

#include <QCommandLineParser>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <stdexcept>

namespace quorixctl {

/// Exit codes of the host.
enum ExitCode { Done = 0, Failed = 1, Usage = 2 };

/// Thrown by a command that is refused or fails; the text is the reason that the user reads.
struct Failure : std::runtime_error {
    explicit Failure(const QString &reason) : std::runtime_error(reason.toStdString()) {}
};

/// Thrown by a command whose arguments make no sense; the text says which.
struct UsageError : std::runtime_error {
    explicit UsageError(const QString &reason) : std::runtime_error(reason.toStdString()) {}
};

/// One run of a command.
struct Invocation {
    const QCommandLineParser &options;
    QStringList arguments; ///< positional ones, behind the command's name
    QString dataDirectory; ///< the deployment: capability files and sample reports
    QTextStream &out;
};

/// A row of the host's table of commands.
struct Command {
    const char *name;
    const char *arguments; ///< as the synopsis shows them
    const char *summary;
    qsizetype minimum; ///< number of positional arguments
    qsizetype maximum; ///< -1: any number
    void (*addOptions)(QCommandLineParser &);
    void (*run)(const Invocation &);
};

/// Reads the capability files of the deployment, once in a process. Throws Failure with the file and the reason.
void readCapabilities(const QString &dataDirectory);

/// The row of a table whose `name` an argument of @p command is. Throws UsageError, with the names, for any other.
template <class Rows>
const auto &rowNamed(const Rows &rows, const QString &name, const char *command) {
    QStringList names;
    for (const auto &row : rows) {
        if (name == QLatin1String(row.name))
            return row;
        names << QLatin1String(row.name);
    }
    throw UsageError(
        QStringLiteral("%1 takes %2, not %3").arg(QLatin1String(command), names.join(QStringLiteral(", ")), name));
}

/// What a connector does, by Enum::Interface::WorkMode; "-" for a number that is none.
QString workModeName(int mode);

/// Short name of a connector type of the deployment, its number if the deployment doesn't know it.
QString connectorTypeName(Quorix::BizModel::Enum::Interface::ConnectorType type);

void runModels(const Invocation &);
void runCard(const Invocation &);
void addLimitsOptions(QCommandLineParser &);
void runLimits(const Invocation &);
void runLayouts(const Invocation &);
void runTiming(const Invocation &);
void addEdidOptions(QCommandLineParser &);
void runEdid(const Invocation &);
void runShow(const Invocation &);
void runEvents(const Invocation &);
void addImageOptions(QCommandLineParser &);
void runImage(const Invocation &);
void addCheckOptions(QCommandLineParser &);
void runCheck(const Invocation &);
void addDrawOptions(QCommandLineParser &);
void runDraw(const Invocation &);
void addEditOptions(QCommandLineParser &);
void runEdit(const Invocation &);
void addPresetOptions(QCommandLineParser &);
void runPreset(const Invocation &);
void addMvrOptions(QCommandLineParser &);
void runMvr(const Invocation &);
void runUses(const Invocation &);
void runBackup(const Invocation &);
void addGroupOptions(QCommandLineParser &);
void runGroup(const Invocation &);
void addStoreOptions(QCommandLineParser &);
void runStore(const Invocation &);
void addLoadOptions(QCommandLineParser &);
void runLoad(const Invocation &);
void addDemoOptions(QCommandLineParser &);
void runDemo(const Invocation &);

/// Runs one command line (without the program's name). Reasons of failures go to @p err.
/// @return an ExitCode
int runCommandLine(const QStringList &line, QTextStream &out, QTextStream &err);

} // namespace quorixctl

#endif
