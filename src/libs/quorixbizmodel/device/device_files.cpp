#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/device/device_files_p.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/files/keypad.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/files/userkey.h>

#include <QDebug>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Quorix::BizModel {

namespace {

using FileType = Enum::File::FileType;
using Files = std::vector<std::shared_ptr<File>>;

/// Nobody listens to a new file, so that its type comes in silence.
template <class T>
std::shared_ptr<File> newFile(FileType type) {
    auto file = makeModelObject<T>();
    file->setFileType(type);
    return file;
}

template <class List>
Files sharedFilesOf(QReadWriteLock &lock, const List &list) {
    auto entries = presentEntries(lock, list);
    return {std::make_move_iterator(entries.begin()), std::make_move_iterator(entries.end())};
}

} // namespace

/// What the device does with the files of a type.
struct Device::FileKind {
    FileType type;
    std::shared_ptr<File> (*create)(FileType type);
    Files (*list)(Device &device);
    void (*add)(Device &device, const std::shared_ptr<File> &file);
    bool (Device::*remove)(const std::weak_ptr<File> &file);
    void (Device::*clear)() = nullptr; ///< null: this kind isn't cleared
};

const Device::FileKind *Device::fileKind(FileType type) {
    constexpr auto addPicture = [](Device &device, const std::shared_ptr<File> &file) {
        device.addImage(std::dynamic_pointer_cast<Image>(file));
    };
    constexpr auto bkgs = [](Device &device) { return sharedFilesOf(device.m_bkgsRWLock, device.m_bkgs); };
    constexpr auto logos = [](Device &device) { return sharedFilesOf(device.m_logosRWLock, device.m_logos); };
    constexpr auto umds = [](Device &device) { return sharedFilesOf(device.m_umdsRWLock, device.m_umdFiles); };
    constexpr auto presets = [](Device &device) { return sharedFilesOf(device.m_presetsRWLock, device.m_presets); };
    constexpr auto keypads = [](Device &device) { return sharedFilesOf(device.m_keypadsRWLock, device.m_keypads); };
    constexpr auto keys = [](Device &device) { return sharedFilesOf(device.m_userKeyRWLock, device.m_userKey); };
    constexpr auto addUmd = [](Device &device, const std::shared_ptr<File> &file) { device.addUmdFile(file); };
    constexpr auto addPreset = [](Device &device, const std::shared_ptr<File> &file) { device.addPreset(file); };
    constexpr auto addKeypad = [](Device &device, const std::shared_ptr<File> &file) { device.addKeypadFile(file); };
    constexpr auto addKey = [](Device &device, const std::shared_ptr<File> &file) { device.addUserKeyFile(file); };
    static constexpr FileKind kinds[] = {
        {FileType::BKG, newFile<BKG>, bkgs, addPicture, &Device::removeBKG},
        {FileType::LOGO, newFile<Logo>, logos, addPicture, &Device::removeLogo},
        {FileType::PresetPVW, newFile<Preset>, presets, addPreset, &Device::removePreset, &Device::clearPreset},
        {FileType::PresetPGM, newFile<Preset>, presets, addPreset, &Device::removePreset, &Device::clearPreset},
        {FileType::UMD, newFile<File>, umds, addUmd, &Device::removeUmdFile},
        {FileType::keypad, newFile<Keypad>, keypads, addKeypad, &Device::removeKeypadFile},
        {FileType::UserKeyFile, newFile<UserKey>, keys, addKey, &Device::removeUserKeyFile},
    };
    const auto *const kind =
        std::find_if(std::begin(kinds), std::end(kinds), [type](const FileKind &row) { return row.type == type; });
    return kind == std::end(kinds) ? nullptr : kind;
}

std::shared_ptr<File> Device::createFile(FileType type) {
    const auto *kind = fileKind(type);
    return kind == nullptr ? nullptr : kind->create(type);
}

bool Device::initModelData(const ProtoModel::File::s_FileDetailArray &details, QString &errMsg) {
    bool areTaken = true;
    QList<std::shared_ptr<File>> made;
    for (const auto &detail : details) {
        const auto file = createFile(static_cast<FileType>(detail.fileType));
        if (file == nullptr)
            continue;
        areTaken = file->initModelData(detail, errMsg) && areTaken;
        file->createConnects(weak_from_this());
        made.append(file);
    }
    if (!made.isEmpty())
        addFile(made);
    return areTaken;
}

void Device::unserailizeFiles() {
    // Copies: a picture that is loaded lets slots run, and they may remove files.
    for (const auto type :
         {FileType::BKG, FileType::LOGO, FileType::UMD, FileType::PresetPVW, FileType::keypad, FileType::UserKeyFile})
        for (const auto &file : sharedFiles(type))
            file->unserailize(weak_from_this());
}

void Device::addFile(const QList<std::shared_ptr<File>> &files) {
    for (const auto &file : files)
        if (const auto *kind = file == nullptr ? nullptr : fileKind(file->fileType()))
            kind->add(*this, file);
}

Files Device::sharedFiles(FileType type) {
    const auto *kind = fileKind(type);
    return kind == nullptr ? Files() : kind->list(*this);
}

QList<std::weak_ptr<File>> Device::files(int fileType) {
    return weakReferences(sharedFiles(static_cast<FileType>(fileType)));
}

std::weak_ptr<File> Device::findFile(const ProtoModel::s_FileIdentity &identity) {
    return findFile(static_cast<FileType>(identity.fileType), identity.fileId);
}

std::weak_ptr<File> Device::findFile(FileType type, int fileId) {
    // User keys are told apart by name.
    if (type == FileType::UserKeyFile)
        return {};
    return findFirst(sharedFiles(type), hasFileId(fileId));
}

std::weak_ptr<File> Device::findUMD(const uint8_t &id) {
    return findFirst(copyOf(m_umdsRWLock, m_umdFiles), hasFileId(id));
}

void Device::removeFiles(const QList<std::weak_ptr<File>> &files) {
    for (const auto &entry : files)
        if (const auto file = entry.lock())
            if (const auto *kind = fileKind(file->fileType()))
                (this->*kind->remove)(file);
}

void Device::clearAllFiles(const QList<FileType> &types) {
    for (const auto type : types)
        if (const auto *kind = fileKind(type); kind != nullptr && kind->clear != nullptr)
            (this->*kind->clear)();
}

uint8_t Device::nextFileId(FileType type) { return lowestFreeFileId(sharedFiles(type), 0); }

QString Device::nextImageName(FileType type) {
    QSet<QString> names;
    for (const auto &file : sharedFiles(type))
        names.insert(file->name());
    const auto prefix = type == FileType::BKG    ? QStringLiteral("BKG-")
                        : type == FileType::LOGO ? QStringLiteral("LOGO-")
                                                 : QStringLiteral("N/A");
    return firstFreeName([&](int number) { return prefix + QString::number(number); },
                         [&](const QString &name) { return names.contains(name); });
}

bool Device::isFileNameExist(FileType type, const QString &name) {
    return findFirst(sharedFiles(type), [&](const File &file) { return file.name() == name; }) != nullptr;
}

bool Device::addUmdFile(const std::weak_ptr<File> &file) {
    const auto added = file.lock();
    if (added == nullptr) {
        qWarning() << "Device add umd file has failed!The umd is null.";
        return false;
    }
    const bool isAdded = appendOnce(m_umdsRWLock, m_umdFiles, added, weak_from_this());
    if (!isAdded)
        qWarning() << "Device add umd has failed!The umd is exists."
                   << " id" << added->fileId();
    return isAdded;
}

bool Device::removeUmdFile(const std::weak_ptr<File> &file) {
    const auto removed = file.lock();
    if (removed == nullptr) {
        qWarning() << "Device remove umd file has failed!The umd is null.";
        return false;
    }
    return takePointer(m_umdsRWLock, m_umdFiles, removed.get()) != nullptr;
}

} // namespace Quorix::BizModel
