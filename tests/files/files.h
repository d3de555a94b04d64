/// A device for tests of its files.
#ifndef QUORIX_TESTS_FILES_H
#define QUORIX_TESTS_FILES_H

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/files/image.h>
#include <support/builders.h>
#include <support/eventlog.h>
#include <support/messagelog.h>

#include <gmock/gmock.h>

namespace Quorix::Tests {

using namespace BizModel;
using Enum::File::FileType;
using testing::ElementsAre;
using testing::IsEmpty;

/// The record of a file with the id 5 and the name "reported".
inline File::Detail recordOf(FileType type, std::string content, QSize size = {2, 1}) {
    return {{5, toInt(type)}, {"reported"}, {}, {0, 0, size.width(), size.height()}, std::move(content)};
}

struct Files : testing::Test {
    HubScope scope;
    std::shared_ptr<Device> device = appendedDevice();
    EventLog log{DeviceList::instance()};
    MessageLog messages;
    QString errMsg = "as it was";

    Files() { log.name(device.get(), QStringLiteral("device")); }

    /// A file that isn't on the device, "file5" in the log if 5 is its id.
    std::shared_ptr<File> made(FileType type, int id, const QString &name = {}) {
        auto file = Device::createFile(type);
        file->setFileId(static_cast<uint8_t>(id));
        file->setName(name);
        log.name(file.get(), QStringLiteral("file%1").arg(id));
        return file;
    }
    std::shared_ptr<File> added(FileType type, int id, const QString &name = {}) {
        auto file = made(type, id, name);
        device->addFile({file});
        return file;
    }

    /// What the hub was heard to say, in one line: "BKGAdded(file5) ...".
    QString heard() {
        QCoreApplication::sendPostedEvents();
        return log.take().join(' ').remove(QStringLiteral("signal")).remove(QStringLiteral("device, "));
    }
};

} // namespace Quorix::Tests

#endif
