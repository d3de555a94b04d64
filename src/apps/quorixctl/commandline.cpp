#include "command.h"

#include <QCoreApplication>
#include <QDir>
#include <QLoggingCategory>

#include <algorithm>
#include <array>
#include <exception>
#include <iterator>

namespace quorixctl {
namespace {

void noOptions(QCommandLineParser &) {}

constexpr std::array kCommands{
    Command{"models", "", "chassis of the deployment: slots, limits, cards", 0, 0, noOptions, runModels},
    Command{"card", "ID", "layout tree of a card", 1, 1, noOptions, runCard},
    Command{"limits", "CARD", "refresh rates that each connector type and capacity of a card carries", 1, 1,
            addLimitsOptions, runLimits},
    Command{"timing", "WxH@R", "full timing of a mode, and where it comes from", 1, 1, noOptions, runTiming},
    Command{"edid", "show FILE | make MODEL.bin WxH@R -o OUT", "reads an EDID, or makes one from a model", 2, 3,
            addEdidOptions, runEdid},
    Command{"show", "REPORT...", "devices from report documents", 1, -1, noOptions, runShow},
    Command{"events", "REPORT...", "the hub's events while reports go in, as JSON lines", 1, -1, noOptions, runEvents},
    Command{"image", "add REPORT FILE", "puts a picture into the store and on a device, and tells what room it takes",
            3, 3, addImageOptions, runImage},
    Command{"layouts", "", "templates for layers, screens and the multiviewer", 0, 0, noOptions, runLayouts},
    Command{"draw", "REPORT", "a picture of a screen, as SVG or PNG", 1, 1, addDrawOptions, runDraw},
    Command{"edit", "REPORT COMMAND...", "edits screens and layers, and tells the hub's events that follow", 2, -1,
            addEditOptions, runEdit},
    Command{"check", "REPORT --screen ID --layer ID|new --rect X,Y,W,H", "whether the cards carry a layer somewhere", 1,
            1, addCheckOptions, runCheck},
    Command{"preset", "show|plan|load REPORT ID", "what a preset holds, what a load would touch, and the load itself",
            3, 3, addPresetOptions, runPreset},
    Command{"mvr", "open|close REPORT...", "turns cards into a multiviewer and back, or says why not", 2, -1,
            addMvrOptions, runMvr},
    Command{"uses", "REPORT input|output|bkg|logo|screen ID",
            "who shows it: screens, presets, genlock; ID as in 4-0, 1, regular:0", 3, 3, noOptions, runUses},
    Command{"backup", "REPORT [switch A B]", "hot backup pairs; layers follow when B takes over from A, as in 4-0 4-1",
            1, 4, noOptions, runBackup},
    Command{"group", "REPORT...", "which groups devices form; joins and leaves them", 1, -1, addGroupOptions, runGroup},
    Command{"store", "REPORT... --root DIR", "keeps devices as documents under a folder", 1, -1, addStoreOptions,
            runStore},
    Command{"load", "--root DIR", "the devices stored under a folder, and what is wrong with them", 0, 0,
            addLoadOptions, runLoad},
    Command{"demo", "", "a tour over the sample deployment", 0, 0, addDemoOptions, runDemo},
};

void addCommonOptions(QCommandLineParser &parser) {
    parser.addHelpOption();
    parser.addOption({QStringLiteral("data"), QStringLiteral("Folder of the deployment (default: data)."),
                      QStringLiteral("DIR"), QString()});
    parser.addOption({QStringLiteral("lang"), QStringLiteral("Language of card names: en or zh_CN."),
                      QStringLiteral("LANGUAGE"), QStringLiteral("en")});
    parser.addOption({QStringLiteral("verbose"), QStringLiteral("Let the library's log lines through.")});
}

QString overview() {
    QString text = QStringLiteral("Usage: quorixctl COMMAND [options]\n\nCommands:\n");
    for (const Command &command : kCommands)
        text += QStringLiteral("  %1 %2\n")
                    .arg(QStringLiteral("%1 %2")
                             .arg(QLatin1String(command.name), QLatin1String(command.arguments))
                             .leftJustified(48),
                         QLatin1String(command.summary));
    return text + QStringLiteral(
                      "\n`quorixctl COMMAND --help` tells more. Exit codes: 0 done, 1 refused or failed, 2 usage.\n");
}

/// The folder named by the user, else `data` here, else the installed one.
QString findData(const QCommandLineParser &parser) {
    if (parser.isSet(QStringLiteral("data")))
        return parser.value(QStringLiteral("data"));
    QString here = QStringLiteral("data");
    if (QDir(here + QStringLiteral("/devices")).exists())
        return here;
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/quorix"));
}

int runCommand(const Command &command, const QStringList &line, QTextStream &out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(command.summary));
    addCommonOptions(parser);
    command.addOptions(parser);
    parser.addPositionalArgument(
        QLatin1String(command.name), QLatin1String(command.summary),
        QStringLiteral("%1 %2").arg(QLatin1String(command.name), QLatin1String(command.arguments)));
    if (!parser.parse(QStringList(QStringLiteral("quorixctl")) + line))
        throw UsageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        out << parser.helpText();
        return Done;
    }
    const QStringList arguments = parser.positionalArguments().mid(1);
    if (arguments.size() < command.minimum || (command.maximum >= 0 && arguments.size() > command.maximum))
        throw UsageError(
            QStringLiteral("%1 takes: %2").arg(QLatin1String(command.name), QLatin1String(command.arguments)));
    QLoggingCategory::setFilterRules(parser.isSet(QStringLiteral("verbose"))
                                         ? QString()
                                         : QStringLiteral("default.debug=false\ndefault.info=false"));
    qApp->setProperty("quorix_locale", parser.value(QStringLiteral("lang")));
    command.run({parser, arguments, findData(parser), out});
    return Done;
}

} // namespace

int runCommandLine(const QStringList &line, QTextStream &out, QTextStream &err) {
    if (line.isEmpty()) {
        err << overview();
        return Usage;
    }
    if (line.first() == QLatin1String("--help") || line.first() == QLatin1String("-h")) {
        out << overview();
        return Done;
    }
    const auto command = std::find_if(kCommands.begin(), kCommands.end(),
                                      [&](const Command &row) { return line.first() == QLatin1String(row.name); });
    if (command == kCommands.end()) {
        err << "quorixctl: no such command: " << line.first() << "\n\n" << overview();
        return Usage;
    }
    try {
        return runCommand(*command, line, out);
    } catch (const UsageError &error) {
        err << "quorixctl: " << error.what() << "\n";
        return Usage;
    } catch (const std::exception &error) {
        err << "quorixctl: " << QString::fromUtf8(error.what()) << "\n";
        return Failed;
    }
}

} // namespace quorixctl
