/// Which folders a store makes, keeps and removes, and what a load makes of what it finds.
#include "store.h"

#include <ajson/ajson.h>
#include <quorixbizmodel/files/file.h>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;

const QString kZeros = "_000000000000_0000000000000000"_q;
const QByteArray kDocument = R"({"m_modelId":29953,"m_detail":{"general":{"name":"Studio"},"networks":[{"ip":"1"}]}})";

struct Store : StoreTest {
    QStringList names() { return QDir(root).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot); }
    /// What a load warns of, what it gives back, and each device with its presets; %1 for the root.
    std::string loaded() {
        DeviceList::instance()->clear();
        MessageLog::take();
        QString error;
        QStringList said;
        try {
            EXPECT_TRUE(serailizer.unserailize(error));
        } catch (const ajson::exception &) {
            error += "exception";
        }
        said = MessageLog::take().filter("warning: "_q);
        if (!error.isEmpty())
            said += error;
        for (const auto &device : DeviceList::instance()->deviceList()) {
            said += "device"_q;
            for (const auto &preset : device->presets())
                said.last() += QString(" %1").arg(preset.lock()->fileId());
        }
        return said.join('\n').replace(root, "%1"_q).toStdString();
    }
};

TEST_F(Store, KeepsAFolderForEachDeviceOfTheHub) {
    EXPECT_TRUE(serailizer.serailize());
    EXPECT_TRUE(QDir(root).exists());
    const auto one = appendedDevice({"A"_q, "1"_q});
    const auto two = appendedDevice({"B"_q, "2"_q});
    appendedDevice({"C"_q, "2"_q});
    for (const char *name : {"/gone/gone.json", "/1_other/deep/file", "/.mine/file", "/file"})
        writeFile(root + name, "x");
    EXPECT_TRUE(serailizer.serailize());
    EXPECT_EQ(names(), (QStringList{".mine", "1" + kZeros, "2" + kZeros, "file"}));
    EXPECT_THAT(filesUnder(root)["2" + kZeros + "/2" + kZeros + ".json"].toStdString(),
                testing::HasSubstr(R"("name":"C")"))
        << "the later of two with one folder";

    // One device alone: the other folders stay, what it doesn't write in its own goes, or stays.
    writeFile(root + "/1" + kZeros + "/9.preset", "old");
    writeFile(root + "/1" + kZeros + "/deep/file", "old");
    one->setName("D"_q);
    EXPECT_TRUE(serailizer.serailizeDevice(one));
    EXPECT_EQ(filesUnder(root).size(), 6);
    writeFile(root + "/gone/gone.json", "{}");
    EXPECT_TRUE(serailizer.serailize(one));
    EXPECT_EQ(names(), (QStringList{".mine", "1" + kZeros, "2" + kZeros, "file", "gone"}));
    EXPECT_EQ(QDir(root + "/1" + kZeros).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList("1" + kZeros + ".json"));

    one->setIPAddress("3"_q);
    DeviceList::instance()->remove(two);
    EXPECT_TRUE(serailizer.removeDeviceData("2"_q) && serailizer.removeDeviceData("gone"_q));
    EXPECT_EQ(names(), (QStringList{".mine", "1" + kZeros, "2" + kZeros, "file"}));
    serailizer.serailize();
    EXPECT_EQ(names(), (QStringList{".mine", "2" + kZeros, "3" + kZeros, "file"}));
    EXPECT_TRUE(serailizer.removeDeviceData());
    EXPECT_EQ(names(), (QStringList{".mine", "file"}));
}

TEST_F(Store, GivesPathsAndTexts) {
    EXPECT_FALSE(serailizer.serailize({}) || serailizer.serailizeDevice({}));
    EXPECT_THAT(MessageLog::take(),
                testing::ElementsAre("warning: Serailizer device is null."_q, "debug: Device is null"_q));
    EXPECT_EQ(serailizer.deviceConfigPath({}) + serailizer.deviceConfigFullPath({}, "a"_q, "b"_q), QString());

    const auto device = appendedDevice({"A"_q, "1"_q});
    const QString deep = folder.filePath("a/b/c"_q);
    Serailizer other(deep);
    EXPECT_TRUE(QDir(folder.filePath("a/b"_q)).exists() && !QDir(deep).exists());
    EXPECT_EQ(other.deviceConfigPath(device), deep + "/1" + kZeros);
    EXPECT_EQ(other.deviceConfigFullPath(device, "7"_q, ".preset"_q), deep + "/1" + kZeros + "/7.preset");
    EXPECT_TRUE(QDir(other.deviceConfigPath(device)).exists());
    EXPECT_TRUE(Serailizer("/dev/null/x"_q).deviceConfigFullPath(device, "7"_q, ".preset"_q).isNull());

    QString error = "before "_q;
    const QString path = folder.filePath("text"_q);
    EXPECT_EQ(serailizer.readAll(path, error), QString());
    EXPECT_EQ(error, "before "_q);
    writeFile(path, QByteArray("a\r\nc\0def", 8));
    EXPECT_EQ(serailizer.readAll(path, error), "a\nc"_q);
    EXPECT_EQ(serailizer.readAll(folder.path(), error), QString());
    EXPECT_EQ(error, "before open file ["_q + folder.path() + "] failed,reason:Is a directory");
}

/// What a device reports as its address never leads out of the root, nor into the names of a store at work. An empty
/// root is none: neither the working folder nor the top of the file system stands in.
TEST_F(Store, TakesNoPathFromADevice) {
    writeFile(folder.filePath("out/file"_q), "x");
    const Files before = filesUnder(folder.path());
    const QString working = QDir::currentPath();
    QDir::setCurrent(folder.path());
    Serailizer("").removeDeviceData();
    for (const auto &address :
         {"../out/"_q, "/tmp/x"_q, ".a"_q, QString(".."_q), QString(QChar('\0')), QString(300, 'a'), "no root"_q}) {
        DeviceList::instance()->clear();
        const auto device = appendedDevice({"A"_q, address});
        Serailizer store(address == "no root" ? QString() : root);
        EXPECT_TRUE(store.serailize());
        EXPECT_FALSE(store.serailizeDevice(device));
        EXPECT_THAT(MessageLog::take().join('\n').toStdString(),
                    testing::HasSubstr("debug: Device [ \"A\" ] serailize error,reason: "));
    }
    QDir::setCurrent(working);
    QDir(root).removeRecursively();
    EXPECT_EQ(filesUnder(folder.path()), before);
}

TEST_F(Store, LoadsWhatIsThere) {
    QString error;
    EXPECT_TRUE(serailizer.unserailize(error) && Serailizer("/dev/null/x"_q).unserailize(error));
    EXPECT_TRUE(QDir(root).exists());
    const std::string noText = "warning: Unserailize device failed: json file is empty \"a\"";
    const std::string noModel = "read device information [%1/a] failed,reason:Invalid modelId";
    const std::string noPreset = "warning: Unserailize preset failed: json file is empty \"%1/a/8.preset\"\n";
    const QByteArray preset = R"({"m_contents":{"name":"seven"},"m_detail":{"fileId":7}})";
    const QByteArray malformed = R"({"m_modelId":29953,"m_inputs":[{},7x]})";
    const QPair<Files, std::string> rows[] = {
        {{{"a/a.json", kDocument}}, "device"},
        {{{"a/a.json", kDocument + QByteArray("\0{", 2)}}, "device"},
        {{{"a/a.json", ""}}, noText},
        {{{"a/a.json", QByteArray("\0", 1)}}, noText},
        {{{"a/b.json", kDocument}}, noText},
        {{{"a/a.JSON", kDocument}}, noText},
        {{{"a/a.json/x", kDocument}}, noText + "\nopen file [%1/a/a.json] failed,reason:Is a directory"},
        {{{"a/a.json", "{}"}}, noModel},
        {{{"a/a.json", R"({"m_modelId":1})"}}, noModel},
        {{{".a/.a.json", kDocument}}, ""},
        {{{"a/a.json", kDocument}, {"a/7.preset", preset}, {"a/8.preset", ""}}, noPreset + "device 7"},
        {{{"a/a.json", kDocument}, {"a/3.PRESET", preset}, {"a/4.preset.b", preset}, {"a/.preset", preset}}, "device"},
        {{{"a/a.json", kDocument}, {"a/8.preset/x", preset}},
         noPreset + "open file [%1/a/8.preset] failed,reason:Is a directory\ndevice"},
        {{{"a/a.json", kDocument}, {"a/9.preset", "{"}}, "exception"},
        {{{"a/a.json", kDocument}, {"b/b.json", malformed}, {"c/c.json", kDocument}}, "exception\ndevice"},
    };
    for (const auto &[files, expected] : rows) {
        QDir(root).removeRecursively();
        for (auto file = files.begin(); file != files.end(); ++file)
            writeFile(root + '/' + file.key(), file.value());
        EXPECT_EQ(loaded(), expected) << qPrintable(files.keys().join(' '));
    }
    // A host that goes on past the malformed one, the last of the rows.
    DeviceList::instance()->clear();
    QStringList bad;
    for (const auto &path : serailizer.deviceFolders())
        try {
            serailizer.unserailizeDevice(path, error);
        } catch (const ajson::exception &fault) {
            bad += QFileInfo(path).fileName() + ' ' + fault.what();
        }
    EXPECT_EQ(bad, QStringList("b error at line :0 col :36 msg:no valid array!"_q));
    EXPECT_EQ(DeviceList::instance()->count(), 2);
    EXPECT_EQ(error, QString());
}

} // namespace
