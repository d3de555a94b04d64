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

    ASSERT_TRUE(QDir(folder.path()).mkdir("none"));
    EXPECT_EQ(run({"load", "--verify", "--root", folder.filePath("none")}).code, 1) << "nothing to be identical with";

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

} // namespace
