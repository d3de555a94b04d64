#include "commandrun.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

struct Row {
    const char *line; ///< words apart by blanks
    int code;
    const char *out; ///< stands somewhere in the output
    const char *err; ///< stands somewhere in the reason
};

class CommandLine : public testing::TestWithParam<Row> {};

TEST_P(CommandLine, AnswersOrSaysWhyNot) {
    const Outcome outcome = run(QString::fromLatin1(GetParam().line).split(QLatin1Char(' ')));
    EXPECT_EQ(outcome.code, GetParam().code) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.contains(QLatin1String(GetParam().out))) << outcome.out.toStdString();
    EXPECT_TRUE(outcome.err.contains(QLatin1String(GetParam().err))) << outcome.err.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Commands, CommandLine,
    testing::Values(Row{"timing 1920x1080@60", 0, "1080    4      5     36    1125", ""},
                    Row{"timing 1280x720@60", 0, "from the table of standard modes", ""},
                    // VESA CVT 1.2, reduced blanking: 2720 x 1481 at 241.699 MHz.
                    Row{"timing 2560x1440@60", 0, "241.699 MHz", ""}, Row{"timing 0x0@0", 0, "CVT", ""},
                    Row{"timing 1920x1080", 2, "", "not a mode"}, Row{"timing 99999x1080@60", 2, "", "not a mode"},
                    Row{"timing", 2, "", "timing takes: WxH@R"}, Row{"card 1", 1, "", "no card 1"},
                    Row{"card 30474", 0, "capacity group", ""},
                    Row{"limits 30474", 0, "Maximum supported bandwidth:3.6Gbps,Current bandwidth:3.9Gbps.", ""},
                    Row{"limits 1", 1, "", "takes a card 1"}, Row{"card x", 2, "", "not a card model id"},
                    Row{"models", 0, "29959", ""}, Row{"dance", 2, "", "no such command: dance"},
                    Row{"layouts", 0, "Blend   2        3456x1200", ""}, Row{"models --loud", 2, "", "loud"},
                    Row{"show missing.json", 1, "", "missing.json: "},
                    Row{"edid show missing.bin", 1, "", "missing.bin: "}, Row{"edid dance x", 2, "", "not dance"},
                    Row{"show --help", 0, "REPORT...", ""}));

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

TEST(CommandLine, ShowFeedsEveryReportThroughTheHub) {
    const Outcome outcome = run({QStringLiteral("show"), report("birch-mini.json"), report("birch-mini.json")});
    ASSERT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("2 devices")));
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("[online]")));
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("Input 2-2   1920x1080@60Hz  1920x1200@60Hz  RGB 4:4:4, 8bit")));
}

} // namespace
