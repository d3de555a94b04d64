/// What commands answer, or why not.
#include "commandrun.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

struct Row {
    const char *line; ///< words apart by blanks; @ stands for the folder of reports
    int code;
    const char *out; ///< parts in their order, apart by |; runs of blanks count as one
    const char *err; ///< stands somewhere in the reason
};

const Row kRows[] = {
    {"timing 1920x1080@60", 0, "1080 4 5 36 1125", ""},
    {"timing 1280x720@60", 0, "from the table of standard modes", ""},
    // VESA CVT 1.2, reduced blanking: 2720 x 1481 at 241.699 MHz.
    {"timing 2560x1440@60", 0, "241.699 MHz", ""},
    {"timing 0x0@0", 0, "CVT", ""},
    {"timing 1920x1080", 2, "", "not a mode"},
    {"timing 99999x1080@60", 2, "", "not a mode"},
    {"timing", 2, "", "timing takes: WxH@R"},
    {"card 1", 1, "", "no card 1"},
    {"card 30474", 0, "capacity group", ""},
    {"limits 30474", 0, "Maximum supported bandwidth:3.6Gbps,Current bandwidth:3.9Gbps.", ""},
    {"models", 0, "29959", ""},
    {"dance", 2, "", "no such command: dance"},
    {"layouts", 0, "Blend 2 3456x1200", ""},
    {"show missing.json", 1, "", "missing.json: "},
    {"show --help", 0, "REPORT...", ""},
    {"show @birch-mini.json @birch-mini.json", 0,
     "[online]|Input 2-2 1920x1080@60Hz 1920x1200@60Hz RGB 4:4:4, 8bit|2 devices", ""},
    {"edid show missing.bin", 1, "", "missing.bin: "},
    {"store @birch-mini.json", 2, "", "--root DIR"},
    {"store @birch-mini.json --root /dev/null/x", 1, "Not a directory", "problems: 1"},
    {"load --root /nowhere", 1, "", "/nowhere: no such folder"},
    {"preset load @alder.json 9", 1, "", "the device has no preset 9"},

    {"draw @alder.json", 2, "", "draw wants -o FILE.svg or -o FILE.png, not ''"},
    {"draw @alder.json --screen 0 -o wall.svg", 2, "", "'0' is no screen: wanted KIND:ID"},
    {"draw @alder.json --scene live -o wall.svg", 2, "", "'live' is no scene"},
    {"draw @alder.json --screen aux:9 -o wall.svg", 1, "", "the report has no screen aux:9"},
    {"draw @alder.json -o /missing/wall.svg", 1, "", "/missing/wall.svg: "},

    // A 4K input costs 8 on each card that it meets; the middle row of the wall carries 12 beside it.
    {"check @alder-max.json --screen 0 --layer 0 --rect 1000,500,3760,2115", 1,
     "Out2 in slot 13: 20 of 16 units: too many", "doesn't fit: Output 2-1, Output 2-2, Output 2-3, Output 3-1"},
    {"check @alder-max.json --screen regular:0 --layer 0 --rect 40,40,3000,1000", 0, "Out2 in slot 13: 12 of 16 units ",
     ""},
    {"check @alder-max.json --screen 4 --layer new --rect 0,0,3000,1000 --scene pgm --source input:6-0", 1,
     "proposed new Input 7-1 3000x1000 at 0,0 754x1000 at 0,0", "doesn't fit: Output 8-1\n"},
    {"check @alder-max.json --screen aux:1 --layer new --rect 0,0,3000,1000", 0,
     "AuxScreen 2, pgm: layer new, 3000x1000 at 0,0, fits", ""},
    {"check @alder-max.json --screen mvr:0 --layer 0 --rect 0,0,10,10", 1, "", "regular and AUX screens alone"},
    {"check @alder-max.json --screen 0 --layer 77 --rect 0,0,10,10", 1, "", "no layer regular:0/pvw/77"},
    {"check @alder-max.json --screen 0 --layer 0 --rect 0,0,10", 2, "", "'0,0,10' is no rectangle"},
    {"check @alder-max.json --screen 0 --layer 0 --rect 0,0,9,9 --source none", 2, "", "--source is for a new layer"},
    {"check @alder-max.json --screen 0 --layer 0", 2, "", "check wants --rect"},

    {"mvr open @larch.json", 0,
     "signalScreenAdded|signalMVRStatusChanged|Rehearsal: the multiviewer is open|3-0 master Output 4-1 multiviewer "
     "mvr:0 MVR 1, 1920x1080, grid 6x6, layers: 0 3-1 master AUX 1 AUX 3-2",
     ""},
    {"mvr open @hazel.json @larch.json", 1, "Room: the multiviewer is open|Rehearsal: the multiviewer is open",
     "Control Room: the multiviewer is open already\n"},
    {"mvr open @birch-mini.json", 1, "Foyer: the multiviewer is closed", "The device not support mvr."},
    {"mvr close @hazel.json", 1, "the multiviewer is open|MVR 1, 1920x1080, grid 6x6, layers: 9|15-3 no output",
     "Unable to close MVR.The card is used."},
    {"mvr close @hazel.json --empty", 0, "signalScreenRemoved|mvr:1|multiviewer is closed|15-0 master Output 8-1 main",
     ""},
    {"mvr close @larch.json", 1, "", "the multiviewer isn't open"},

    {"uses @alder-max.json input 4-0", 0,
     "layer regular:0/pgm/8 Layer 9 on Main Wall|mvr:0/pgm/4|preset 2 Preset 2 genlock Used by Main Wall,Side Wall,MVR "
     "1,genlock. ",
     ""},
    {"uses @alder-max.json output 21-1", 0, "AUX 1 of |output aux:0 AuxScreen 1 Used by AUX. ", ""},
    {"uses @alder-max.json bkg 1", 0,
     "bkg:0 BKG 1 on Main Wall preset 1 Preset 1 Current BKG is used by Main Wall,and the corresponding", ""},
    {"uses @alder-max.json logo 0", 0, "regular:0/pvw/logo:0|Current LOGO is used by", ""},
    {"uses @alder-max.json screen regular:0", 0, "mvr:0/pgm/0|mvr:0/pgm/1|empty the relevant Layer,MVR,Do you", ""},
    {"uses @alder-max.json screen mvr:0", 0, "MVR 1 of |: not used ", ""},
    {"uses @larch.json input 4-1", 0, "Input 1-2 of Rehearsal: not used ", ""},
    {"uses @larch.json bkg 0", 1, "", "the report has no bkg 0"},
    {"uses @larch.json input 4", 2, "", "'4' is no interface: wanted SLOT-CONNECTOR"},

    {"backup @larch.json", 0, "hot backup is on, pairs: 3|4-0 Input 1-1 2 4-1 Input 1-2 0 4-0 Input 1-1 4-2", ""},
    {"backup @larch.json switch 4-0 4-1", 0,
     "signalLayerSourceChanged|pgm/0|signalLayerSourceChanged|pvw/0|signalInterfaceRelationPairsChanged|4-0 Input 1-1 "
     "0 "
     "4-1 Input 1-2 2 4-1 Input 1-2 4-2",
     ""},
    {"backup @larch.json switch 4-0 7-0", 1, "", "4-0 and 7-0 are no pair"},
    {"backup @birch-mini.json", 0, "hot backup is off, pairs: 0", ""},

    // By the number of the address in a group, by its text in none.
    {"group @birch-mini.json @hazel.json @larch.json @alder-max.json @alder.json", 0,
     "Control Room 192.168.0.101 1 Studios yes others|group 1: Studio A, 主会场 in no group: Foyer, Rehearsal ", ""},
    {"group @hazel.json @alder.json --controlled", 0, "group 1: Studio A, Control Room in no group: none", ""},
    {"group @alder.json @larch.json --join 2=Tour --device Rehearsal", 0,
     "no group: Rehearsal|signalDeviceGroupInfoChanged|group 1: Studio A group 2: Rehearsal in no group: none", ""},
    {"group @alder.json --leave", 0, "signalDeviceGroupInfoChanged|Studio A 192.168.0.12 0 no|no group: Studio A", ""},
    {"group @larch.json @larch.json @larch.json @larch.json @larch.json @larch.json @larch.json @larch.json --join 3",
     0, "3 yes|3 yes|3 no|group 3:", ""},
    {"group @alder.json --leave --device Foyer", 1, "", "there is no device Foyer"},
    {"group @alder.json --join 2 --leave", 2, "", "--join or --leave, not both"},
};

TEST(CommandLine, AnswersOrSaysWhyNot) {
    for (const Row &row : kRows) {
        QString line = row.line;
        const Outcome outcome = run(line.replace(" @", " " + report("")).split(' '));
        EXPECT_EQ(outcome.code, row.code) << row.line << '\n' << outcome.err;
        const QString out = outcome.out.simplified() + ' ';
        int end = 0;
        for (const QString &part : QString(row.out).split('|')) {
            const int at = out.indexOf(part, end);
            EXPECT_GE(at, 0) << row.line << ": " << part << '\n' << outcome.out;
            end = at + part.size();
        }
        EXPECT_TRUE(outcome.err.contains(row.err)) << row.line << '\n' << outcome.err;
    }
    EXPECT_FALSE(QFile::exists("wall.svg"));
}

TEST(CommandLine, NamesTheFileAndTheReasonOfABadDocument) {
    const QTemporaryDir folder;
    const struct {
        const char *name, *text, *reason;
    } rows[] = {
        {"comma.json", "{\"modelId\":29958,}", "object key must be string"},
        {"empty.json", "", "read object must start with {!"},
        {"half.json", "{\"detail\":{\"general\":{\"name\":\"x", "not a valid quote string!"},
    };
    for (const auto &row : rows) {
        QFile file(folder.filePath(QLatin1String(row.name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(row.text);
        file.close();
        const Outcome outcome = run({QStringLiteral("events"), file.fileName()});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_TRUE(outcome.err.contains(file.fileName()) && outcome.err.contains(QLatin1String(row.reason)))
            << outcome.err.toStdString();
        EXPECT_TRUE(outcome.out.isEmpty());
    }
}

TEST(CommandLine, MadeEdidReadsBack) {
    const QTemporaryDir folder;
    const QString made = folder.filePath(QStringLiteral("made.bin"));
    const QString model = QStringLiteral(QUORIX_DATA_DIR "/edid/wall_input.bin");
    EXPECT_EQ(run({QStringLiteral("edid"), QStringLiteral("make"), model, QStringLiteral("3840x1080@60"),
                   QStringLiteral("-o"), made})
                  .code,
              0);
    const Outcome shown = run({QStringLiteral("edid"), QStringLiteral("show"), made});
    EXPECT_TRUE(shown.out.contains(QStringLiteral("3840x1080@60 Hz, picture 32:9"))) << shown.out.toStdString();
    const Outcome wide = run({QStringLiteral("edid"), QStringLiteral("make"), model, QStringLiteral("5760x1080@60"),
                              QStringLiteral("-o"), folder.filePath(QStringLiteral("wide.bin"))});
    EXPECT_EQ(wide.code, 1);
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("wide.bin"))));
}

TEST(CommandLine, EventsAreLinesWithTheDeviceInFront) {
    const Outcome outcome = run({QStringLiteral("events"), report("birch-mini.json")});
    ASSERT_EQ(outcome.code, 0) << outcome.err.toStdString();
    const QStringList lines = outcome.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_GE(lines.size(), 3);
    EXPECT_TRUE(lines.first().startsWith(QStringLiteral("{\"signal\":\"signalDeviceAppended\",\"owners\":[\"")));
    EXPECT_EQ(lines.filter(QStringLiteral("signalDeviceOnlineStatusChanged")).size(), 1);
    EXPECT_EQ(lines.filter(QStringLiteral("signalInputAdded")).size(), 6); // four DVI, HDMI and DP
}

} // namespace
