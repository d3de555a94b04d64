#include <quorixbizmodel/files/image.h>

#include <QDebug>

#include <cstddef>
#include <limits>

namespace Quorix::BizModel {

namespace {

using FileType = Enum::File::FileType;

constexpr std::uint32_t imageInfoTag = 1;
constexpr std::uint32_t imageBinaryTag = 0xFFFFFFFF;
constexpr std::uint64_t headerSize = 8;
constexpr std::uint64_t imageInfoSize = 12;

std::uint32_t littleEndianAt(const std::string &bytes, std::size_t index) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
        value = value << 8U | static_cast<unsigned char>(bytes[index + i]);
    return value;
}

} // namespace

bool Image::parseImageBinaryData(const std::string &binaryData, QSize &imgSize, int &binaryDataIndex, int fileId,
                                 int fileType) {
    binaryDataIndex = 0;
    if (static_cast<FileType>(fileType) != FileType::BKG && static_cast<FileType>(fileType) != FileType::LOGO)
        return true;
    const auto fail = [&](const char *reason) {
        qWarning().noquote() << QStringLiteral("Image size is %1, image type is %2, id is %3.")
                                    .arg(QLatin1String(reason))
                                    .arg(fileType)
                                    .arg(fileId);
        return false;
    };
    const std::uint64_t end = binaryData.size();
    if (end < 2)
        return fail("0");
    if (end > std::numeric_limits<int>::max())
        return fail("incomplete, parse file length failed");
    // All sums in 64 bits: a length is any number.
    for (std::uint64_t index = 0;;) {
        if (end - index < headerSize)
            return fail("incomplete, parse file info failed");
        const std::uint32_t tag = littleEndianAt(binaryData, index);
        const std::uint64_t length = littleEndianAt(binaryData, index + 4);
        index += headerSize;
        binaryDataIndex = static_cast<int>(index);
        if (index + length > end)
            return fail("incomplete, parse file length failed");
        if (tag == imageBinaryTag)
            return true;
        if (tag == imageInfoTag) {
            if (length < imageInfoSize)
                return fail("incomplete, parse file info tag failed");
            // The zoom ratio comes first. A side beyond `int` turns negative, which is the size of no picture.
            imgSize = QSize(static_cast<int>(littleEndianAt(binaryData, index + 4)),
                            static_cast<int>(littleEndianAt(binaryData, index + 8)));
            // The next record follows here, whatever the length says.
            index += imageInfoSize;
            binaryDataIndex = static_cast<int>(index);
        }
        if (index >= end)
            return fail("incomplete, can not find image binary data");
    }
}

} // namespace Quorix::BizModel
