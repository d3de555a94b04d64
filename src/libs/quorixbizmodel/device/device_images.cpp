#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device_files_p.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/screens/screenkinds.h>

#include <algorithm>
#include <limits>

namespace Quorix::BizModel {

namespace {

using FileType = Enum::File::FileType;

/// Bytes in the store of backgrounds; the largest size stays below 2^64.
quint64 backgroundBytes(const QSize &size) {
    const auto width = static_cast<quint64>(std::max(size.width(), 0));
    const auto height = static_cast<quint64>(std::max(size.height(), 0));
    return (width + 15) / 16 * 16 * height * 4;
}

/// Appends an image to the list of its class; false for an image of another class.
template <class T>
bool isAppended(QReadWriteLock &lock, std::vector<std::shared_ptr<T>> &list, const std::shared_ptr<Image> &image,
                std::weak_ptr<Device> owner) {
    auto entry = std::dynamic_pointer_cast<T>(image);
    if (entry == nullptr)
        return false;
    image->setOwerDevice(std::move(owner));
    moveToModelThread(*image);
    const WriteGuard guard(lock);
    list.push_back(std::move(entry));
    return true;
}

} // namespace

std::shared_ptr<Image> Device::createImage(FileType type) { return std::dynamic_pointer_cast<Image>(createFile(type)); }

std::weak_ptr<Image> Device::addImage(const std::shared_ptr<Image> &image) {
    const auto type = image == nullptr ? FileType::Invalid : image->fileType();
    if (type == FileType::BKG && isAppended(m_bkgsRWLock, m_bkgs, image, weak_from_this())) {
        Q_EMIT signalBKGAdded(image);
        return image;
    }
    if (type == FileType::LOGO && isAppended(m_logosRWLock, m_logos, image, weak_from_this())) {
        Q_EMIT signalLogoAdded(image);
        return image;
    }
    return {};
}

bool Device::removeBKG(const std::weak_ptr<File> &file) {
    // Another class: its id may be that of a background, whose layers are to stay.
    const auto bkg = std::dynamic_pointer_cast<BKG>(file.lock());
    if (bkg == nullptr)
        return false;
    removeAllLyaerBySource(bkg->fileId(), Enum::Layer::SourceType::BKG);
    if (takePointer(m_bkgsRWLock, m_bkgs, bkg.get()) == nullptr)
        return false;
    Q_EMIT signalBKGRemoved(bkg);
    return true;
}

bool Device::removeLogo(const std::weak_ptr<File> &file) {
    const auto logo = std::dynamic_pointer_cast<Logo>(file.lock());
    if (logo == nullptr)
        return false;
    removeAllLyaerBySource(logo->fileId(), Enum::Layer::SourceType::LOGO);
    if (takePointer(m_logosRWLock, m_logos, logo.get()) == nullptr)
        return false;
    Q_EMIT signalLogoRemoved(logo);
    return true;
}

std::weak_ptr<BKG> Device::findBKG(const uint8_t &id) { return findFirst(copyOf(m_bkgsRWLock, m_bkgs), hasFileId(id)); }

std::weak_ptr<Logo> Device::findLOGO(const uint8_t &id) {
    return findFirst(copyOf(m_logosRWLock, m_logos), hasFileId(id));
}

quint64 Device::bkgUsedCapacity() {
    quint64 used = 0;
    for (const auto &bkg : sharedFiles(FileType::BKG))
        used += std::min(backgroundBytes(bkg->size()), std::numeric_limits<quint64>::max() - used);
    return used;
}

quint64 Device::remainingBKGCapacity() {
    const quint64 used = bkgUsedCapacity();
    return used > Constants::File::BKGCapacity ? 0 : Constants::File::BKGCapacity - used;
}

bool Device::isBKGCapacityEnough(quint64 bytes) { return remainingBKGCapacity() >= bytes; }

int Device::currentLogoCount() {
    int count = 0;
    for (const auto &logo : sharedFiles(FileType::LOGO))
        count += imageSize2ImageCount(logo->size());
    return count;
}

bool Device::isLogoCapacityEnough(const QSize &size) {
    return currentLogoCount() + imageSize2ImageCount(size) <= Constants::File::maxLOGOCount;
}

int Device::imageSize2ImageCount(const QSize &size) {
    if (size.width() < 1 || size.height() < 1)
        return 0;
    const bool isLarge = size.width() > Constants::File::BKGWidth_2K || size.height() > Constants::File::BKGHeight_2K;
    return isLarge ? Constants::File::imageCnt_4 : Constants::File::imageCnt_1;
}

bool Device::isImageCapacityEnough(FileType type) {
    if (type == FileType::BKG)
        return remainingBKGCapacity() == 0;
    return type == FileType::LOGO && currentLogoCount() >= Constants::File::maxLOGOCount;
}

} // namespace Quorix::BizModel
