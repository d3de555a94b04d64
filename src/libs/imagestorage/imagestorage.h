/// The store of pictures, by a key that follows from what they show.
#ifndef IMAGESTORAGE_H
#define IMAGESTORAGE_H

#include <quorix_export.h>

#include <QCache>
#include <QImage>
#include <QPixmap>
#include <QString>

#include <mutex>

/// Keeps pictures as PNG files in a folder and hands them out by key. A key is the SHA-256 of size, format and pixels
/// in lower-case hexadecimal digits: equal pictures have equal keys and one file. What has been given a key is on the
/// disk, whole, also after a power cut. Nothing is ever taken out of the folder.
///
/// Threads. All operations may be called from any thread at any time, those with a QPixmap where Qt allows pixmaps; the
/// one store lives to the end of the process. Threads and processes may share a folder.
class QUORIX_EXPORT ImageStorager {
public:
    static ImageStorager *instance();

    /// The folder is made at the first store. The default is "pictures" in the application's local data location.
    void setFolder(const QString &folder);
    [[nodiscard]] QString folder();

    /// The key of a picture; empty for a null one, and for one that can't be written, with a warning. Pixels with alpha
    /// keep their values, not multiplied; opaque ones have three channels. Other properties of a picture aren't kept.
    QString store(const QImage &picture);
    QString store(const QPixmap &picture);

    /// The picture of a key in the wanted format; null for a key that the store hasn't given out, or whose file has
    /// gone or is damaged.
    QImage loadImage(const QString &key, QImage::Format format);
    QPixmap load(const QString &key, QImage::Format format);

private:
    ImageStorager();
    ~ImageStorager() = default;
    Q_DISABLE_COPY_MOVE(ImageStorager)

    QString path(const QString &key);
    QImage read(const QString &path);
    bool write(const QString &path, const QImage &pixels);
    void remember(const QString &path, const QImage &picture);

    std::mutex m_mutex; ///< guards the fields below; not held while a file is read or written
    QString m_folder;
    QString m_preparedFolder;         ///< the folder, once it is there
    QCache<QString, QImage> m_recent; ///< by path
};

#endif
