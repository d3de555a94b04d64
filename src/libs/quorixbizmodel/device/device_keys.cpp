/// User keys and keypads of a device.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/device/device_files_p.h>
#include <quorixbizmodel/files/keypad.h>
#include <quorixbizmodel/files/userkey.h>

#include <QDebug>
#include <QSet>

namespace Quorix::BizModel {

namespace {

using Enum::File::FileType;

constexpr char kAddKeypadFailed[] = "Device add keypad file has failed!The keypad is null.";
constexpr char kRemoveKeyFailed[] = "Device remove userKey file has failed!The keypad is null.";
constexpr char kRemoveKeypadFailed[] = "Device remove keypad file has failed!The keypad is null.";

/// The file as an object of its class; null, with a warning, for one that has gone or is of another class.
template <class T>
std::shared_ptr<T> requireFile(const std::weak_ptr<File> &file, const char *warning) {
    auto object = std::dynamic_pointer_cast<T>(file.lock());
    if (object == nullptr)
        qWarning() << warning;
    return object;
}

} // namespace

std::shared_ptr<UserKey> Device::keepUserKey(const std::weak_ptr<File> &file) {
    // Keys are warned of by the text of keypads.
    auto key = requireFile<UserKey>(file, kAddKeypadFailed);
    if (key == nullptr)
        return nullptr;
    key->setOwerDevice(weak_from_this());
    moveToModelThread(*key);
    const WriteGuard guard(m_userKeyRWLock);
    m_userKey.push_back(key);
    sortByKeyOnce(m_userKey, [](const auto &entry) { return entry == nullptr ? 256 : int{entry->userkeyId()}; });
    return key;
}

bool Device::addUserKeyFile(const std::weak_ptr<File> &file) {
    const auto key = keepUserKey(file);
    if (key != nullptr)
        Q_EMIT signalUserKeyChanged(key);
    return key != nullptr;
}

bool Device::addModifyUserKeyFile(const std::weak_ptr<File> &file) {
    const auto key = keepUserKey(file);
    if (key != nullptr)
        Q_EMIT signalModifyUserKeyChanged(key);
    return key != nullptr;
}

bool Device::removeUserKeyFile(const std::weak_ptr<File> &file) {
    const auto key = requireFile<UserKey>(file, kRemoveKeyFailed);
    const auto taken = takeFile(m_userKeyRWLock, m_userKey, key);
    if (taken.file == nullptr)
        return false;
    Q_EMIT signalUserKeyRemoved(key);
    if (taken.isLast)
        Q_EMIT signalUserKeyClear();
    return true;
}

bool Device::removeModifyUserKeyFile(const std::weak_ptr<File> &file) {
    const auto key = requireFile<UserKey>(file, kRemoveKeyFailed);
    return takeFile(m_userKeyRWLock, m_userKey, key).file != nullptr;
}

bool Device::clearUserKeyFiles(const QList<FileType> &fileTypes) {
    if (fileTypes.isEmpty() || fileTypes.first() != FileType::UserKeyFile)
        return false;
    emptyList(m_userKeyRWLock, m_userKey);
    Q_EMIT signalUserKeyClear();
    return true;
}

bool Device::compareUserKey(const std::shared_ptr<UserKey> &a, const std::shared_ptr<UserKey> &b) {
    return a != nullptr && b != nullptr && a->userkeyId() > b->userkeyId();
}

std::weak_ptr<UserKey> Device::findUserKey(const uint8_t &id) {
    return findFirst(copyOf(m_userKeyRWLock, m_userKey), hasFileId(id));
}

std::weak_ptr<File> Device::findUserKey(const QString &name) {
    return findFirst(sharedFiles(FileType::UserKeyFile), [&](const File &file) { return file.name() == name; });
}

int Device::nextUserKeyFileID() { return lowestFreeFileId(sharedFiles(FileType::UserKeyFile), 1); }

int Device::nextUserKeyID() { return nextUserKeyFileID(); }

QString Device::nextUserKeyName() {
    QSet<QString> names;
    for (const auto &file : sharedFiles(FileType::UserKeyFile))
        names.insert(file->name());
    const auto nameOf = [](int number) {
        const QString form = number < 10 ? tr("User Key00%1") : number < 100 ? tr("User Key0%1") : tr("User Key%1");
        return form.arg(number);
    };
    return firstFreeName(nameOf, [&](const QString &name) { return names.contains(name); });
}

bool Device::addKeypadFile(const std::weak_ptr<File> &file) {
    const auto keypad = requireFile<Keypad>(file, kAddKeypadFailed);
    if (keypad == nullptr)
        return false;
    keypad->setOwerDevice(weak_from_this());
    moveToModelThread(*keypad);
    decltype(m_keypads) list{keypad};
    {
        const WriteGuard guard(m_keypadsRWLock);
        m_keypads.swap(list);
    }
    Q_EMIT signalKeypadChanged(keypad);
    return true;
}

bool Device::removeKeypadFile(const std::weak_ptr<File> &file) {
    const auto keypad = requireFile<Keypad>(file, kRemoveKeypadFailed);
    return takeFile(m_keypadsRWLock, m_keypads, keypad).file != nullptr;
}

std::weak_ptr<Keypad> Device::findKeypad(const uint8_t &id) {
    return findFirst(copyOf(m_keypadsRWLock, m_keypads), hasFileId(id));
}

} // namespace Quorix::BizModel
