/// Devices on the disk by the command line, and past what can't be loaded.
#include "commandrun.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

TEST(StoreCommand, StoresAndLoadsBack) {
    const QTemporaryDir folder;
    const QStringList where{"--root", folder.filePath("devices"), "--pictures", folder.filePath("pictures")};
    const Outcome stored = run(QStringList{"store", report("birch-mini.json"), report("alder-max.json")} + where);
    ASSERT_EQ(stored.code, 0) << stored.err;
    EXPECT_TRUE(stored.out.contains("Foyer"));
    const Outcome loaded = run(QStringList{"load", "--verify"} + where);
    EXPECT_EQ(loaded.code, 0) << loaded.err << loaded.out;
    EXPECT_EQ(loaded.out.toStdString(), stored.out.toStdString() + "stored, loaded back, identical\n");

    // An edited one takes the place of the one before.
    const Outcome edited = run(QStringList{"edit", report("birch-mini.json"), "z-order regular:0/pvw/0 77"} + where);
    EXPECT_EQ(edited.code, 0) << edited.err;
    EXPECT_TRUE(edited.out.contains("Foyer"));
    EXPECT_TRUE(run(QStringList{"load", "--verify"} + where).out.endsWith("stored, loaded back, identical\n"));

    // A store of one device leaves the other alone; a bad document doesn't end a load.
    const QDir devices(folder.filePath("devices"));
    const QStringList names = devices.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_EQ(names.size(), 2);
    QFile bad(devices.filePath(names.first() + '/' + names.first() + ".json"));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly) && bad.write("{1:2}") == 5);
    bad.close();
    devices.mkdir("empty");
    const Outcome partly = run(QStringList{"load"} + where);
    EXPECT_EQ(partly.code, 1);
    EXPECT_TRUE(partly.out.contains("msg:object key must be string") && partly.out.contains("json file is empty"));
    EXPECT_TRUE(partly.out.contains(devices.filePath(names.last()))) << partly.out;
    EXPECT_TRUE(partly.err.contains("problems: 2")) << partly.err;
}

TEST(StoreCommand, SaysWhyNot) {
    const QTemporaryDir nothing;
    const struct {
        QStringList line;
        int code;
        const char *out, *err;
    } rows[] = {
        {{"store", report("birch-mini.json")}, 2, "", "--root DIR"},
        {{"load", "--root", ""}, 2, "", "--root DIR"},
        {{"load", "--root", "/nowhere"}, 1, "", "/nowhere: no such folder"},
        {{"load", "--verify", "--root", nothing.path()}, 1, "nothing is stored", "problems: 1"},
        {{"store", report("birch-mini.json"), "--root", "/dev/null/x"}, 1, "Not a directory", "problems: 1"},
    };
    for (const auto &row : rows) {
        const Outcome outcome = run(row.line);
        EXPECT_EQ(outcome.code, row.code) << outcome.err;
        EXPECT_TRUE(outcome.out.contains(row.out) && outcome.err.contains(row.err)) << outcome.out << outcome.err;
    }
}

} // namespace
