/// Pictures that live on a device.
#ifndef QUORIXBIZMODEL_IMAGE_H
#define QUORIXBIZMODEL_IMAGE_H

#include <quorixbizmodel/files/file.h>

#include <QImage>
#include <QPixmap>

#include <cstdint>

namespace Quorix::BizModel {

/// What is stored of an image, under the keys of the document.
struct ImageState : FileState {
    std::string m_thumbnailHashKey;
    std::string m_originalImageHashKey;
};

/// A picture with a thumbnail. It holds the keys under which ImageStorager has the pixels, and both pictures in memory;
/// neither its record nor its document has pixels in it. A key is empty for no picture, "Invalid picture" for one that
/// couldn't be stored.
///
/// Where there is no QGuiApplication there are no pixmaps either: setImage() then changes nothing, and the keys of a
/// loaded image stay without pixmaps.
class QUORIX_EXPORT Image : public File {
    Q_OBJECT

public:
    /// A picture of the type `BKG`.
    Image();
    ~Image() override;
    Q_DISABLE_COPY_MOVE(Image)

    /// Also loads the pixmaps, on threads of their own, while events of the calling thread go on: a slot may change or
    /// remove the image meanwhile.
    void unserailize(std::weak_ptr<Device> device) override;
    /// The pixels of image() as QImage::Format_ARGB32, without a header.
    std::string fileBinaryData() override;
    /// Takes a record and its pixels over in silence. False, with a warning, for pixels that don't fit the size; the
    /// record is then taken over all the same, pictures and @p errMsg stay as they were.
    bool initModelData(const Detail &fileDetail, QString &errMsg) override;

    /// Reads the head of the block in which a device delivers an image of the type `BKG` or `LOGO`; any other type has
    /// none. False, with a warning, for a block that ends too early. Pure but for the warning.
    /// @param imgSize pixels; the last size in the block, unchanged without one   @param binaryDataIndex of the pixels
    /// @param fileId,fileType for the warning
    static bool parseImageBinaryData(const std::string &binaryData, QSize &imgSize, int &binaryDataIndex, int fileId,
                                     int fileType);

    /// Puts a picture into the store and takes its size. A null one, and one that the store refuses, leave "Invalid
    /// picture". Of two calls that overlap the later one wins.
    /// @param isAsync store on another thread, while events of the calling thread go on, as in unserailize()
    void setImage(const QImage &image, bool isAsync);
    /// Stores the image as the thumbnail. One that can't be stored leaves all as it was; a null one drops the pixmap.
    void setThumbnailHashKey(const QImage &image);
    [[nodiscard]] QString thumbnailHashKey() const;
    [[nodiscard]] QString originalImageHashKey() const;
    /// These read the store; null if it hasn't the picture.
    [[nodiscard]] QImage thumbnailImage() const;
    [[nodiscard]] QImage image() const;
    /// The pixmaps in memory.
    [[nodiscard]] std::weak_ptr<QPixmap> thumbnailPixmap() const;
    [[nodiscard]] std::weak_ptr<QPixmap> pixmap() const;
    /// A copy of what is stored.
    [[nodiscard]] ImageState state() const;

protected:
    explicit Image(FileType type);

private:
    friend class ModelArchive;
    /// Pictures with alpha keep it, backgrounds have none.
    [[nodiscard]] QImage::Format storedFormat() const;

    std::string m_thumbnailHashKey;
    std::string m_originalImageHashKey;
    std::shared_ptr<QPixmap> m_pThumbnailPixmap;
    std::shared_ptr<QPixmap> m_pOriginalPixmap;
    std::uint64_t m_imageVersion = 0; ///< counts what has been put into the two fields of the original picture
};

/// A picture that fills a layer or a screen.
class QUORIX_EXPORT BKG : public Image {
    Q_OBJECT

public:
    BKG();
    ~BKG() override;
    Q_DISABLE_COPY_MOVE(BKG)
};

/// A picture with alpha.
class QUORIX_EXPORT Logo : public Image {
    Q_OBJECT

public:
    Logo();
    ~Logo() override;
    Q_DISABLE_COPY_MOVE(Logo)
};

} // namespace Quorix::BizModel

#endif
