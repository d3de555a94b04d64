#include "session.h"
#include "table.h"

#include <ajson/ajson.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/persistence/serailizer.h>
#include <quorixbizmodel/screens/screen.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLoggingCategory>
#include <QMap>
#include <QTemporaryDir>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;

/// Gathers what the library says of devices that it can't store or load: it says most of it to the log alone.
class Problems {
public:
    Problems() {
        s_lines.clear();
        s_before = qInstallMessageHandler(keep);
        QLoggingCategory::setFilterRules(QStringLiteral("default.info=false"));
    }
    Problems(const Problems &) = delete;
    Problems &operator=(const Problems &) = delete;
    ~Problems() { qInstallMessageHandler(s_before); }

    void add(const QString &line) {
        if (!line.isEmpty())
            s_lines << line;
    }
    /// Tells them all, and throws Failure if there are any.
    void report(QTextStream &out) {
        for (const QString &line : s_lines)
            out << "problem: " << line.simplified() << '\n';
        if (!s_lines.isEmpty())
            throw Failure(QStringLiteral("problems: %1").arg(s_lines.size()));
    }

private:
    static void keep(QtMsgType type, const QMessageLogContext &context, const QString &text) {
        if (type == QtWarningMsg || text.contains(QLatin1String("serailize error")))
            s_lines << text;
        else if (type != QtDebugMsg)
            s_before(type, context, text);
    }

    static inline QStringList s_lines;
    static inline QtMessageHandler s_before = nullptr;
};

QString rootOf(const Invocation &call) {
    QString root = call.options.value(QStringLiteral("root"));
    if (root.isEmpty())
        throw UsageError(QStringLiteral("which folder? --root DIR"));
    return root;
}

/// Files under a folder by their path from there.
QMap<QString, QByteArray> filesUnder(const QString &root) {
    QMap<QString, QByteArray> files;
    QDirIterator entry(root, QDir::Files, QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        QFile file(entry.next());
        if (file.open(QIODevice::ReadOnly))
            files[QDir(root).relativeFilePath(file.fileName())] = file.readAll();
    }
    return files;
}

int layersOf(Device &device) {
    int count = 0;
    for (const auto &reference : device.screens(30))
        if (const auto screen = reference.lock())
            count += screen->layers(6, 126).size();
    return count;
}

/// What the hub holds, device by device, and where it is stored.
void printDevices(QTextStream &out, Serailizer &serailizer) {
    Table table({QStringLiteral("device"), QStringLiteral("cards"), QStringLiteral("screens"), QStringLiteral("layers"),
                 QStringLiteral("presets"), QStringLiteral("files"), QStringLiteral("bytes"),
                 QStringLiteral("folder")});
    for (const auto &device : DeviceList::instance()->deviceList()) {
        const QString path = serailizer.deviceConfigPath(device);
        qsizetype bytes = 0;
        const auto files = filesUnder(path);
        for (const auto &text : files)
            bytes += text.size();
        table.addRow({device->name(), QString::number(device->subcards().size()),
                      QString::number(device->screens(30).size()), QString::number(layersOf(*device)),
                      QString::number(device->presets().size()), QString::number(files.size()), QString::number(bytes),
                      path});
    }
    table.print(out);
}

/// Whether two documents are equal, but for names of window ratios where the first one has none: a load finds them.
bool isSame(const QByteArray &stored, const QByteArray &again) {
    static const QByteArray key = QByteArrayLiteral("\"m_eAspectRatioType\":");
    static const QByteArray none = key + QByteArray::number(static_cast<int>(Enum::Layer::AspectRatioType::_Invalid));
    int left = 0;
    int right = 0;
    for (int found = 0; (found = stored.indexOf(none, left)) >= 0;) {
        const int size = found + key.size() - left;
        if (stored.mid(left, size) != again.mid(right, size))
            return false;
        left = stored.indexOf(',', left + size);
        right = again.indexOf(',', right + size);
    }
    return stored.mid(left) == again.mid(right);
}

/// Stores what was loaded in another place, and compares.
void verify(const QString &root, QTextStream &out, Problems &problems) {
    const QTemporaryDir copy;
    Serailizer(copy.path()).serailize();
    const auto stored = filesUnder(root);
    const auto again = filesUnder(copy.path());
    QStringList names = stored.keys() + again.keys();
    names.removeDuplicates();
    bool isIdentical = !names.isEmpty();
    if (names.isEmpty())
        problems.add(QStringLiteral("%1: nothing is stored there").arg(root));
    for (const QString &name : names) {
        if (stored.contains(name) == again.contains(name) && isSame(stored.value(name), again.value(name)))
            continue;
        isIdentical = false;
        problems.add(QStringLiteral("%1: stored again it is another document").arg(name));
    }
    out << "stored, loaded back, " << (isIdentical ? "identical\n" : "not identical\n");
}

} // namespace

void addStoreOptions(QCommandLineParser &parser) {
    parser.addOption({QStringLiteral("root"), QStringLiteral("Folder of the stored devices."), QStringLiteral("DIR")});
    parser.addOption({QStringLiteral("pictures"),
                      QStringLiteral("Folder of the picture store (default: the user's data folder)."),
                      QStringLiteral("DIR")});
}

void addLoadOptions(QCommandLineParser &parser) {
    addStoreOptions(parser);
    parser.addOption(
        {QStringLiteral("verify"), QStringLiteral("Store what was loaded again, elsewhere, and compare.")});
}

void store(const Invocation &call, const std::shared_ptr<Device> &device) {
    Serailizer serailizer(rootOf(call));
    Problems problems;
    serailizer.serailize(device);
    printDevices(call.out, serailizer);
    problems.report(call.out);
}

void runStore(const Invocation &call) {
    Serailizer serailizer(rootOf(call));
    const auto reports = readReports(call);
    HubSession session(call);
    session.keepPictures(call);
    Problems problems;
    // One by one: a store of the whole hub would remove every other folder under the root, whatever it holds.
    for (const ReportDocument &report : reports)
        serailizer.serailize(feed(report, call.out));
    printDevices(call.out, serailizer);
    problems.report(call.out);
}

void runLoad(const Invocation &call) {
    const QString root = rootOf(call);
    if (!QDir(root).exists())
        throw Failure(QStringLiteral("%1: no such folder").arg(root));
    HubSession session(call);
    session.keepPictures(call);
    Problems problems;
    // Nothing wakes a saver here. Where one runs, it is woken only when all of this is over.
    Serailizer serailizer(root);
    for (const QString &folder : serailizer.deviceFolders()) {
        QString reason;
        try {
            serailizer.unserailizeDevice(folder, reason);
        } catch (const ajson::exception &fault) {
            problems.add(QStringLiteral("%1: %2").arg(folder, QString::fromUtf8(fault.what())));
        }
        problems.add(reason);
    }
    deliverQueuedSignals();
    printDevices(call.out, serailizer);
    if (call.options.isSet(QStringLiteral("verify")))
        verify(root, call.out, problems);
    problems.report(call.out);
}

} // namespace quorixctl
