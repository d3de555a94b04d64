#include "command.h"
#include "report.h"
#include "table.h"

#include <imagestorage/imagestorage.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/image.h>

#include <QImageReader>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Enum::File::FileType;

/// The device of a report, with its files alone.
std::shared_ptr<Device> deviceWithFiles(const QString &path, QTextStream &notes) {
    const ReportDocument report = readReport(path);
    auto device = std::make_shared<Device>(report.modelId);
    QString reason;
    if (report.files && !device->initModelData(*report.files, reason))
        notes << "not every file could take its content. " << reason << '\n';
    return device;
}

/// Throws Failure if the picture doesn't fit beside what is there.
void requireRoom(Device &device, FileType type, const QSize &size) {
    const auto bytes = (static_cast<quint64>(size.width()) + 15) / 16 * 16 * static_cast<quint64>(size.height()) * 4;
    const bool isRoom = type == FileType::BKG ? device.isBKGCapacityEnough(bytes) : device.isLogoCapacityEnough(size);
    if (device.isImageCapacityEnough(type) || !isRoom)
        throw Failure(QStringLiteral("no room for a picture of %1x%2").arg(size.width()).arg(size.height()));
}

QImage readPicture(const QString &path) {
    QImageReader reader(path);
    QImage picture = reader.read();
    if (picture.isNull())
        throw Failure(QStringLiteral("%1: %2").arg(path, reader.errorString()));
    return picture;
}

/// Brings a picture in as an application does: room and id first, then the pixels, then the device's list.
std::shared_ptr<Image> addPicture(const std::shared_ptr<Device> &device, FileType type, const QImage &picture) {
    requireRoom(*device, type, picture.size());
    const uint8_t id = device->nextFileId(type);
    if (!device->findFile(type, id).expired())
        throw Failure(QStringLiteral("all ids are taken"));
    auto image = device->createImage(type);
    image->setFileId(id);
    image->setName(device->nextImageName(type));
    image->createConnects(device);
    image->setImage(picture, true);
    if (image->image().isNull())
        throw Failure(QStringLiteral("the picture can't be stored in %1").arg(ImageStorager::instance()->folder()));
    image->setThumbnailHashKey(picture.scaled(Constants::File::thumbWidthMin, Constants::File::thumbHeightMin,
                                              Qt::KeepAspectRatio, Qt::SmoothTransformation));
    device->addImage(image);
    return image;
}

void printImages(QTextStream &out, Device &device) {
    Table table({QStringLiteral("type"), QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("size")});
    for (const auto &entry :
         device.files(static_cast<int>(FileType::BKG)) + device.files(static_cast<int>(FileType::LOGO)))
        if (const auto file = entry.lock())
            table.addRow({file->fileTypeString(), QString::number(file->fileId()), file->name(),
                          QStringLiteral("%1x%2").arg(file->size().width()).arg(file->size().height())});
    table.print(out);
    out << "backgrounds: " << device.bkgUsedCapacity() << " of " << Constants::File::BKGCapacity
        << " bytes\nlogos: " << device.currentLogoCount() << " of " << Constants::File::maxLOGOCount << " slots\n";
}

} // namespace

void addImageOptions(QCommandLineParser &parser) {
    parser.addOption({QStringLiteral("logo"), QStringLiteral("Add a logo, not a background.")});
    parser.addOption({QStringLiteral("pictures"),
                      QStringLiteral("Folder of the picture store (default: the user's data folder)."),
                      QStringLiteral("DIR")});
}

void runImage(const Invocation &call) {
    if (call.arguments[0] != QLatin1String("add"))
        throw UsageError(QStringLiteral("image takes add, not %1").arg(call.arguments[0]));
    if (call.options.isSet(QStringLiteral("pictures")))
        ImageStorager::instance()->setFolder(call.options.value(QStringLiteral("pictures")));
    const QImage picture = readPicture(call.arguments[2]);
    const auto device = deviceWithFiles(call.arguments[1], call.out);
    const auto type = call.options.isSet(QStringLiteral("logo")) ? FileType::LOGO : FileType::BKG;
    const auto image = addPicture(device, type, picture);
    call.out << image->name() << " has id " << image->fileId() << "\n  picture   " << image->originalImageHashKey()
             << "\n  thumbnail " << image->thumbnailHashKey() << '\n';
    printImages(call.out, *device);
}

} // namespace quorixctl
