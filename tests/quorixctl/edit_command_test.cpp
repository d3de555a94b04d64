/// Edits on the command line: what the hub tells, in its order, and what is refused.
#include "commandrun.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace {

/// The signals in the lines behind each command, the last of their owners in brackets.
QStringList eventsOf(const QString &out) {
    static const QRegularExpression form(QStringLiteral(R"re("signal":"(\w+)","owners":\[[^\]]*"([^"]*)"\])re"));
    QStringList events;
    for (const QString &line : out.split('\n'))
        if (const auto match = form.match(line); match.hasMatch())
            events << match.captured(1) + '(' + match.captured(2) + ')';
    return events;
}

struct Edit {
    const char *command;
    QStringList events; ///< without "signal" in front
};

TEST(EditCommand, TellsTheEventsInTheirOrder) {
    const QString device = QStringLiteral("192.168.0.20_021A5C00AA01_000000000000AA01");
    const auto take = [](const QString &screen) {
        QStringList events{"ScreenStateChanged(" + screen + ")"};
        for (const QString scene : {"PGM", "PVW"})
            for (const QString what : {"Removed", "Added"})
                for (const QString &common : {scene, QString()})
                    events << QStringLiteral("%1Layer%2(%3/%4/0)").arg(common, what, screen, scene.toLower());
        return events << events.first();
    };
    const Edit edits[] = {
        {"move regular:0/pvw/8 2600,1300",
         {"LayerWindowRectChanged(regular:0/pvw/8)", "WindowRectChanged(regular:0/pvw/8)"}},
        {"move regular:0/pvw/8 2600,1300", {}},
        {"move layer 2:0/4/8 0,0", {"LayerWindowRectChanged(regular:0/pvw/8)", "WindowRectChanged(regular:0/pvw/8)"}},
        {"resize regular:0/pvw/8 960x960",
         {"LayerWindowRectChanged(regular:0/pvw/8)", "WindowRectChanged(regular:0/pvw/8)",
          "LayerWindowWHTypeChanged(regular:0/pvw/8)", "LayerWindowWHRatioChanged(regular:0/pvw/8)"}},
        {"source regular:0/pvw/1 input:2-3", {"LayerSourceChanged(regular:0/pvw/1)"}},
        {"opacity regular:0/pvw/cut:9 0", {"LayerOpacityChanged(regular:0/pvw/cut:9)"}},
        {"z-order regular:0/pvw/bkg:0 200", {"LayerZorderChanged(regular:0/pvw/bkg:0)"}},
        {"select regular:0/pvw/9", {"SelectedLayersChanged(regular:0)"}},
        {"select regular:0/pvw/8", {}}, // the report has it selected
        {"select screen regular:6",
         {"SelectedRegularScreensChanged(" + device + ")", "ViewingScreensChanged(" + device + ")",
          "SelectedScreensChanged(" + device + ")"}},
        {"take regular:6", take("regular:6")},
        {"cut regular:6", take("regular:6")},
        {"tbar regular:6 40", {"ScreenStateChanged(regular:6)"}},
        {"tbar regular:6 60", {}},
        {"tbar regular:6 100", take("regular:6").mid(1)},
    };
    QStringList line{"edit", report("alder-max.json")};
    for (const Edit &edit : edits)
        line << edit.command;
    const Outcome outcome = run(line);
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    const QStringList parts = outcome.out.split(QStringLiteral("> ")).mid(1);
    ASSERT_EQ(parts.size(), static_cast<int>(std::size(edits)));
    for (int i = 0; i < parts.size(); ++i) {
        const QString expected = edits[i].events.isEmpty() ? QString() : "signal" + edits[i].events.join("\nsignal");
        EXPECT_EQ(eventsOf(parts[i]).join('\n'), expected) << edits[i].command;
    }
}

TEST(EditCommand, SaysWhatIsWrong) {
    const struct {
        const char *command;
        int code;
        const char *reason;
    } rows[] = {
        {"dance regular:0", 2, "no such edit"},
        {"", 2, "no such edit"},
        {"move regular:0/pvw/0", 2, "wanted move LAYER X,Y"},
        {"move regular:0/pvw/0 1,2 3", 2, "wanted move LAYER X,Y"},
        {"move regular:0/pvw/0 1", 2, "'1': wanted X,Y"},
        {"move regular:0/pvw/0 1,99999999", 2, "'99999999' is no number of pixels: wanted -1000000 to 1000000"},
        {"resize regular:0/pvw/0 0x5", 2, "'0' is no number of pixels: wanted 1 to"},
        {"move regular:0 1,2", 2, "'regular:0' is no layer"},
        {"move wide:0/pvw/0 1,2", 2, "'wide' is no kind of screen: regular, aux, mvr"},
        {"move regular:0/live/0 1,2", 2, "'live' is no scene: pvw, pgm"},
        {"move regular:0/pvw/cat:0 1,2", 2, "'cat' is no kind of layer"},
        {"move regular:0/pvw/255 1,2", 2, "'255' is no layer id: wanted 0 to 254"},
        {"opacity regular:0/pvw/0 101", 2, "'101' is no opacity in percent: wanted 0 to 100"},
        {"source regular:0/pvw/0 input:3", 2, "'3' is no interface: wanted SLOT-CONNECTOR"},
        {"source regular:0/pvw/0 disk:3", 2, "'disk' is no kind of source"},
        {"take aux:0", 2, "only regular screens have a preview"},
        {"take regular", 2, "'regular' is no screen"},
        {"move regular:0/pvw/77 1,2", 1, "the device has no regular:0/pvw/77"},
        {"cut regular:77", 1, "the device has no regular:77"},
        {"take regular:0", 1, "regular:0 is in the middle of another change"}, // a T-bar at 40 %
    };
    for (const auto &row : rows) {
        // A command that makes no sense is refused before the first one is carried out.
        const Outcome outcome = run({"edit", report("alder.json"), "opacity regular:0/pvw/0 50", row.command});
        EXPECT_EQ(outcome.code, row.code) << row.command;
        EXPECT_TRUE(outcome.err.contains(QLatin1String(row.reason))) << row.command << ": " << outcome.err;
        EXPECT_EQ(outcome.out.isEmpty(), row.code == 2) << row.command;
    }
    EXPECT_TRUE(run({"edit", report("alder.json")}).err.contains("edit takes: REPORT COMMAND..."));
    EXPECT_TRUE(run({"edit", "--help"}).out.contains("tbar SCREEN PERCENT"));
}

} // namespace
