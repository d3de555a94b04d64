/// Any bytes as an image that a device delivers: type and size of its record, then its block.
#include <quorixbizmodel/files/image.h>

#include <QtGlobal>

#include <cstdlib>
#include <cstring>
#include <memory>

using namespace Quorix::BizModel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    Image::Detail detail;
    constexpr std::size_t head = 1 + 2 * sizeof(std::int32_t);
    if (size < head)
        return 0;
    detail.fileType = data[0];
    std::memcpy(&detail.size.width, data + 1, sizeof(std::int32_t));
    std::memcpy(&detail.size.height, data + 5, sizeof(std::int32_t));
    detail.binaryData.assign(reinterpret_cast<const char *>(data) + head, size - head);

    QSize parsed;
    int index = -1;
    if (Image::parseImageBinaryData(detail.binaryData, parsed, index, 0, detail.fileType) &&
        (index < 0 || static_cast<std::size_t>(index) > detail.binaryData.size()))
        std::abort();
    QString errMsg;
    std::make_shared<Image>()->initModelData(detail, errMsg);
    return 0;
}
