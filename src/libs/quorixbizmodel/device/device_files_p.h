/// Shared by the sources on a device's files.
#ifndef QUORIXBIZMODEL_DEVICE_FILES_P_H
#define QUORIXBIZMODEL_DEVICE_FILES_P_H

#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/files/file.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace Quorix::BizModel {

/// Accepts the files of an id. One outside 0 to 255 is nobody's.
inline auto hasFileId(int id) {
    return [id](const File &file) { return file.fileId() == id; };
}

/// The lowest id from @p first on that no file has; 255 may be taken, too.
inline uint8_t lowestFreeFileId(const std::vector<std::shared_ptr<File>> &files, uint8_t first) {
    std::array<bool, Constants::File::maxId> isTaken{};
    for (const auto &file : files)
        if (const auto id = file->fileId(); id < isTaken.size())
            isTaken[id] = true;
    return static_cast<uint8_t>(std::find(isTaken.begin() + first, isTaken.end(), false) - isTaken.begin());
}

/// Gives a file its owner and appends it to a list behind a lock; nothing happens if it stands there.
template <class T>
bool appendOnce(QReadWriteLock &lock, std::vector<std::shared_ptr<T>> &list, const std::shared_ptr<T> &file,
                std::weak_ptr<Device> owner) {
    const auto isThere = [&] { return std::find(list.begin(), list.end(), file) != list.end(); };
    {
        const ReadGuard guard(lock);
        if (isThere())
            return false;
    }
    // Before the list: who finds the file there finds its owner. Not under the list's lock, the file has its own.
    file->setOwerDevice(std::move(owner));
    const WriteGuard guard(lock);
    if (isThere())
        return false;
    list.push_back(file);
    return true;
}

/// What a file list has given away.
template <class T>
struct TakenFile {
    std::shared_ptr<T> file; ///< null if it wasn't there
    bool isLast = false;     ///< the list holds no other now
};

/// Takes a file out of a list behind a lock.
template <class T>
TakenFile<T> takeFile(QReadWriteLock &lock, std::vector<std::shared_ptr<T>> &list, const std::weak_ptr<File> &file) {
    const auto wanted = file.lock();
    const WriteGuard guard(lock);
    auto taken = takePointer(list, wanted.get());
    const bool isLast = taken != nullptr && findFirst(list, [](const File &) { return true; }) == nullptr;
    return {std::move(taken), isLast};
}

/// Empties a list behind a lock; what stood there ends with no lock held.
template <class List>
void emptyList(QReadWriteLock &lock, List &list) {
    List dropped;
    const WriteGuard guard(lock);
    dropped.swap(list);
}

} // namespace Quorix::BizModel

#endif
