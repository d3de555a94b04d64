/// Presets on the command line: what they hold, what a load would do to a device that has changed, and the load.
#include "commandrun.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace {

/// The report of an Alder without its background and its regular screens from @p screenId on.
QString changedReport(const QTemporaryDir &folder, int screenId) {
    QFile source(report("alder.json"));
    source.open(QIODevice::ReadOnly);
    QJsonObject document = QJsonDocument::fromJson(source.readAll()).object();
    QJsonArray screens;
    for (const auto screen : document["screens"].toArray())
        if (screen.toObject()["screenType"] != 2 || screen.toObject()["screenId"].toInt() < screenId)
            screens.append(screen);
    document["screens"] = screens;
    document["files"] = QJsonArray{document["files"].toArray().last()};
    QJsonObject content = document["contents"].toArray().last().toObject();
    content["path"] = QDir(folder.path()).relativeFilePath(report("alder/preset-1.json"));
    document["contents"] = QJsonArray{content};
    QFile changed(folder.filePath("changed.json"));
    changed.open(QIODevice::WriteOnly);
    changed.write(QJsonDocument(document).toJson());
    return changed.fileName();
}

TEST(PresetCommand, PlansWhatALoadWouldTouch) {
    const QTemporaryDir folder;
    const QString path = changedReport(folder, 1);
    const QString plan = run({"preset", "plan", path, "1", "--scene", "pgm"}).out.simplified();
    for (const char *part :
         {"sources layers that lose theirs: 1 layers pgm of regular:0 message Failed to load preset of some screens: "
          "Screen 2 is not found. ",
          "regular:0 Screen 1 2 4 regular:1 Screen 2 not found ", "regular:0/pvw/bkg:0 BKG 1 bkg:0 left out ",
          "regular:0/pvw/cut:2 Layer 3 input:0-2 as stored ", "regular:1/pvw/0 Layer 1 input:2-0 no such screen "})
        EXPECT_TRUE(plan.contains(part)) << part << "\n" << plan;
    const Outcome refused = run({"preset", "plan", changedReport(folder, 0), "1"});
    EXPECT_EQ(refused.code, quorixctl::Failed);
    EXPECT_EQ(refused.err, "quorixctl: The quantity of the matched screens is zero.\n");
}

TEST(PresetCommand, LoadsInStepsAndTellsTheEvents) {
    const Outcome load = run({"preset", "load", report("alder-max.json"), "2"});
    EXPECT_EQ(load.code, quorixctl::Done);
    int last = 0;
    for (const char *part : {"> screens", "> room\nits layers fit", "> sources\nthe device has all", "> layers\n{",
                             "ActivedPresetChanged", "ActivedPresetKeyNoChanged",
                             R"(ScreenLayersChanged","owners":["regular:1 regular:2 regular:3"],"arguments":["1"])",
                             "pvw of regular:1, regular:2, regular:3\n> message\nnothing is left out\n"}) {
        EXPECT_GT(load.out.indexOf(part), last) << part << "\n" << load.out;
        last = load.out.indexOf(part);
    }
    const QString show = run({"preset", "show", report("alder.json"), "1"}).out.simplified();
    EXPECT_TRUE(show.contains("regular:1 Screen 2 1x2 3840x2160 at 0,0 2 ") &&
                show.contains("regular:0/pvw/cut:2 cut Layer 3 input:0-2 4 1280x720 at 160,1320 "))
        << show;
}

} // namespace
