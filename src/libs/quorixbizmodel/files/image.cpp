#include <quorixbizmodel/files/image.h>

#include <imagestorage/imagestorage.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/common/numbers.h>

#include <QCoreApplication>
#include <QDebug>
#include <QGuiApplication>

#include <chrono>
#include <cstring>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

namespace Quorix::BizModel {

namespace {

using FileType = Enum::File::FileType;

constexpr char invalidPicture[] = "Invalid picture";

/// What the store has made of a picture; without a key it has failed.
struct Stored {
    QString key;
    QImage picture;
};

Stored stored(const QImage &image, QImage::Format format) noexcept {
    try {
        auto *storager = ImageStorager::instance();
        const QString key = storager->store(image);
        return {key, storager->loadImage(key, format)};
    } catch (...) {
        return {};
    }
}

QImage loaded(const std::string &key, QImage::Format format) noexcept {
    try {
        return ImageStorager::instance()->loadImage(QString::fromStdString(key), format);
    } catch (...) {
        return {};
    }
}

/// Runs @p step on a thread of its own and lets events of this thread go on until it has finished. A step works on
/// copies and throws nothing: whatever it would refer to may go meanwhile.
template <class Step>
auto runBeside(Step step) {
    const auto task = std::make_shared<std::packaged_task<std::invoke_result_t<Step>()>>(std::move(step));
    auto result = task->get_future();
    std::jthread worker;
    try {
        worker = std::jthread([task] { (*task)(); });
    } catch (const std::system_error &) {
        (*task)();
    }
    do
        QCoreApplication::processEvents();
    while (result.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready);
    return result.get();
}

/// Whether this thread may have pixmaps. Qt ends the process at a pixmap without a QGuiApplication.
bool hasPixmaps() {
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr && !QPixmap(1, 1).isNull();
}

/// Null for an image that gives none.
std::shared_ptr<QPixmap> sharedPixmap(const QImage &image) {
    if (image.isNull() || !hasPixmaps())
        return nullptr;
    const auto pixmap = std::make_shared<QPixmap>(QPixmap::fromImage(image));
    return pixmap->isNull() ? nullptr : pixmap;
}

/// The bytes of a picture as `Format_ARGB32`. Requires: @p data holds size.width() × size.height() × 4 bytes. A copy,
/// since the bytes go with the record that they came in, and needn't lie on an address that is good for pixels.
QImage copiedPixels(const char *data, QSize size) {
    QImage image(size, QImage::Format_ARGB32);
    if (!image.isNull())
        std::memcpy(image.bits(), data, static_cast<std::size_t>(image.sizeInBytes()));
    return image;
}

/// The bytes that a picture of this size takes, modulo 2^64. True if the size is that of a picture.
bool pictureBytes(std::int64_t width, std::int64_t height, std::uint64_t &bytes) {
    bytes = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) * 4;
    return width >= 1 && height >= 1;
}

} // namespace

Image::Image() : Image(FileType::BKG) {}

Image::Image(FileType type) : File(type) {}

Image::~Image() = default;

BKG::BKG() : Image(FileType::BKG) {}

BKG::~BKG() = default;

Logo::Logo() : Image(FileType::LOGO) {}

Logo::~Logo() = default;

QImage::Format Image::storedFormat() const {
    const FileType type = fileType();
    return type == FileType::LOGO || type == FileType::LOGOThumb ? QImage::Format_ARGB32 : QImage::Format_RGB32;
}

void Image::unserailize(std::weak_ptr<Device> device) {
    // A slot that runs meanwhile may take the image out of its device.
    const auto self = weak_from_this().lock();
    File::unserailize(std::move(device));
    if (!hasPixmaps())
        return;
    const auto load = [this](const std::string &key, std::shared_ptr<QPixmap> &pixmap) {
        const std::string wanted = copyOf(m_detailRWLock, key);
        if (wanted.empty())
            return;
        auto made = sharedPixmap(runBeside([wanted, format = storedFormat()] { return loaded(wanted, format); }));
        const WriteGuard guard(m_detailRWLock);
        if (key == wanted)
            pixmap.swap(made);
    };
    load(m_originalImageHashKey, m_pOriginalPixmap);
    load(m_thumbnailHashKey, m_pThumbnailPixmap);
}

std::string Image::fileBinaryData() {
    const QImage pixels = image().convertToFormat(QImage::Format_ARGB32);
    return pixels.isNull() ? std::string()
                           : std::string(reinterpret_cast<const char *>(pixels.constBits()),
                                         static_cast<std::size_t>(pixels.sizeInBytes()));
}

bool Image::initModelData(const Detail &fileDetail, QString &errMsg) {
    File::initModelData(fileDetail, errMsg);
    const ObjectSignalLocker silence(this);
    const auto &block = fileDetail.binaryData;
    const auto type = static_cast<FileType>(fileDetail.fileType);
    std::uint64_t bytes = 0;
    QImage picture;
    if (type == FileType::BKG || type == FileType::LOGO) {
        QSize size;
        int index = 0;
        if (!parseImageBinaryData(block, size, index, fileDetail.fileId, fileDetail.fileType) ||
            !pictureBytes(size.width(), size.height(), bytes) ||
            bytes > block.size() - static_cast<std::size_t>(index)) {
            qWarning() << "image size error";
            return false;
        }
        picture = copiedPixels(block.data() + index, size);
    } else {
        const QSize size(fileDetail.size.width, fileDetail.size.height);
        if (!pictureBytes(size.width(), size.height(), bytes) || bytes != block.size()) {
            qWarning().noquote() << QStringLiteral("image size should be %1, but it is real size is %2")
                                        .arg(static_cast<std::int64_t>(bytes))
                                        .arg(block.size());
            return false;
        }
        picture = copiedPixels(block.data(), size);
    }
    setImage(picture, false);
    setSize({fileDetail.size.width, fileDetail.size.height});
    return true;
}

void Image::setImage(const QImage &image, bool isAsync) {
    if (image.isNull()) {
        qDebug() << "image is null";
        std::shared_ptr<QPixmap> none;
        const WriteGuard guard(m_detailRWLock);
        ++m_imageVersion;
        m_originalImageHashKey = invalidPicture;
        m_pOriginalPixmap.swap(none);
    }
    // A null picture gives no pixmap either, and both are said.
    if (image.isNull() || !hasPixmaps()) {
        qDebug() << "pix is null";
        return;
    }
    // A slot that runs meanwhile may take the image out of its device.
    const auto self = weak_from_this().lock();
    const std::uint64_t version = [this] {
        const WriteGuard guard(m_detailRWLock);
        return ++m_imageVersion;
    }();
    const auto step = [image, format = storedFormat()] { return stored(image, format); };
    const Stored result = isAsync ? runBeside(step) : step();
    const bool isStored = !result.key.isEmpty();
    if (!isStored)
        qDebug() << "setImage Failed";
    auto pixmap = isStored ? sharedPixmap(result.picture) : nullptr;
    {
        const WriteGuard guard(m_detailRWLock);
        if (m_imageVersion != version)
            return;
        m_originalImageHashKey = isStored ? result.key.toStdString() : invalidPicture;
        m_pOriginalPixmap.swap(pixmap);
    }
    if (!isStored)
        return;
    setSize(image.size());
    const WriteGuard guard(m_detailRWLock);
    m_detail.size.length = truncated(4.0 * image.width() * image.height());
}

void Image::setThumbnailHashKey(const QImage &image) {
    if (image.isNull() || !hasPixmaps()) {
        std::shared_ptr<QPixmap> none;
        const WriteGuard guard(m_detailRWLock);
        m_pThumbnailPixmap.swap(none);
        return;
    }
    const Stored result = stored(image, storedFormat());
    if (result.key.isEmpty()) {
        qDebug() << "setThumb Failed";
        return;
    }
    auto pixmap = sharedPixmap(result.picture);
    const WriteGuard guard(m_detailRWLock);
    m_thumbnailHashKey = result.key.toStdString();
    m_pThumbnailPixmap.swap(pixmap);
}

QString Image::thumbnailHashKey() const { return QString::fromStdString(copyOf(m_detailRWLock, m_thumbnailHashKey)); }

QString Image::originalImageHashKey() const {
    return QString::fromStdString(copyOf(m_detailRWLock, m_originalImageHashKey));
}

QImage Image::thumbnailImage() const {
    return ImageStorager::instance()->loadImage(thumbnailHashKey(), QImage::Format_RGB32);
}

QImage Image::image() const { return ImageStorager::instance()->loadImage(originalImageHashKey(), storedFormat()); }

std::weak_ptr<QPixmap> Image::thumbnailPixmap() const { return copyOf(m_detailRWLock, m_pThumbnailPixmap); }

std::weak_ptr<QPixmap> Image::pixmap() const { return copyOf(m_detailRWLock, m_pOriginalPixmap); }

ImageState Image::state() const {
    const ReadGuard guard(m_detailRWLock);
    return {stateWhileLocked(), m_thumbnailHashKey, m_originalImageHashKey};
}

} // namespace Quorix::BizModel
