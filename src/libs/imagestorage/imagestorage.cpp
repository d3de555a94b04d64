#include <imagestorage/imagestorage.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int recentKilobytes = 128 * 1024;
constexpr int keyLength = 64;
constexpr int leftoverSeconds = 24 * 60 * 60;
/// Of Qt's PNG writer: the lowest level that compresses at all, many times as fast as the default one.
constexpr int pngQuality = 80;

/// The same pixels in the form in which they are kept: no two forms of one picture, and none of the caller's memory.
QImage plain(const QImage &picture) {
    constexpr auto withAlpha = QImage::Format_ARGB32;
    QImage pixels = picture.format() == withAlpha ? picture.copy() : picture.convertToFormat(withAlpha);
    pixels.setDevicePixelRatio(1);
    if (picture.hasAlphaChannel())
        for (int y = 0; y < pixels.height(); ++y) {
            const auto *const line = reinterpret_cast<const QRgb *>(pixels.constScanLine(y));
            if (!std::all_of(line, line + pixels.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }))
                return pixels;
        }
    return std::move(pixels).convertToFormat(QImage::Format_RGB32);
}

QString keyOf(const QImage &pixels) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const auto add = [&hash](const void *data, qsizetype size) {
        // The hash counts bytes in int.
        constexpr qsizetype most = 1 << 30;
        const auto *bytes = static_cast<const char *>(data);
        for (; size > 0; bytes += most, size -= most)
            hash.addData(bytes, static_cast<int>(std::min(size, most)));
    };
    const qint32 head[] = {pixels.width(), pixels.height(), pixels.format()};
    add(head, sizeof head);
    add(pixels.constBits(), pixels.sizeInBytes());
    return QString::fromLatin1(hash.result().toHex());
}

bool isKey(const QString &text) {
    return text.size() == keyLength && std::all_of(text.begin(), text.end(), [](QChar c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
           });
}

/// A file is on the disk when its name is, too.
bool isSynced(const QString &folder) {
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool isDone = ::fsync(handle) == 0;
    ::close(handle);
    return isDone;
}

/// Makes a folder with the folders above it, on the disk, and frees one that is there of what interrupted stores have
/// left in it.
bool isPrepared(const QString &folder) {
    QStringList parents;
    for (QString path = folder; !QFileInfo::exists(path); path = parents.last())
        parents.append(QFileInfo(path).absolutePath());
    if (!QDir().mkpath(folder))
        return false;
    // A folder that may not be listed can't be synced either.
    for (const QString &parent : parents)
        std::ignore = isSynced(parent);
    // Other processes may be storing: only what is old has been left behind.
    const QDateTime old = QDateTime::currentDateTimeUtc().addSecs(-leftoverSeconds);
    for (const QFileInfo &entry : QDir(folder).entryInfoList({QStringLiteral("*.png.??????")}, QDir::Files))
        if (entry.lastModified() < old)
            QFile::remove(entry.filePath());
    return true;
}

bool isWritten(const QString &path, const QImage &pixels) {
    QSaveFile file(path);
    const bool isDone = file.open(QIODevice::WriteOnly) && pixels.save(&file, "PNG", pngQuality) && file.flush() &&
                        ::fsync(file.handle()) == 0 && file.commit() && isSynced(QFileInfo(path).absolutePath());
    if (!isDone)
        qWarning().noquote() << "Store picture has failed!" << path << file.errorString();
    return isDone;
}

} // namespace

ImageStorager *ImageStorager::instance() {
    // Never destroyed: a worker may still be storing when the process ends.
    static auto *const storager = new ImageStorager;
    return storager;
}

ImageStorager::ImageStorager()
    : m_folder(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/pictures")),
      m_recent(recentKilobytes) {}

void ImageStorager::setFolder(const QString &folder) {
    const std::scoped_lock guard(m_mutex);
    m_folder = folder;
    m_preparedFolder.clear();
    m_recent.clear();
}

QString ImageStorager::folder() {
    const std::scoped_lock guard(m_mutex);
    return m_folder;
}

QString ImageStorager::path(const QString &key) { return folder() + '/' + key.toLower() + QStringLiteral(".png"); }

QImage ImageStorager::read(const QString &path) {
    {
        const std::scoped_lock guard(m_mutex);
        if (const QImage *recent = m_recent.object(path))
            return *recent;
    }
    QImage picture(path, "PNG");
    remember(path, picture);
    return picture;
}

void ImageStorager::remember(const QString &path, const QImage &picture) {
    if (picture.isNull())
        return;
    const auto kilobytes = std::min<qsizetype>(picture.sizeInBytes() / 1024 + 1, recentKilobytes + 1);
    const std::scoped_lock guard(m_mutex);
    m_recent.insert(path, new QImage(picture), static_cast<int>(kilobytes));
}

bool ImageStorager::write(const QString &path, const QImage &pixels) {
    const QString folder = QFileInfo(path).absolutePath();
    bool isNew = false;
    {
        const std::scoped_lock guard(m_mutex);
        isNew = m_preparedFolder != folder || !QFileInfo::exists(folder);
    }
    if (isNew && isPrepared(folder)) {
        const std::scoped_lock guard(m_mutex);
        m_preparedFolder = folder;
    }
    return isWritten(path, pixels);
}

QString ImageStorager::store(const QImage &picture) {
    const QImage pixels = plain(picture);
    if (pixels.isNull())
        return {};
    QString key = keyOf(pixels);
    const QString file = path(key);
    const bool isThere = QFile::exists(file) && !read(file).isNull();
    if (!isThere && !write(file, pixels))
        return {};
    remember(file, pixels);
    return key;
}

QString ImageStorager::store(const QPixmap &picture) { return store(picture.toImage()); }

QImage ImageStorager::loadImage(const QString &key, QImage::Format format) {
    return isKey(key) ? read(path(key)).convertToFormat(format) : QImage();
}

QPixmap ImageStorager::load(const QString &key, QImage::Format format) {
    return QPixmap::fromImage(loadImage(key, format));
}
