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
