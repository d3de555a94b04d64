#include <quorixbizmodel/persistence/devicefolder_p.h>

#include <quorixbizmodel/persistence/fileoperations.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quorix::BizModel {

namespace {

namespace fs = std::filesystem;

enum class Kind { New, Old, Gone };

/// What fits into one byte array, whose own head counts.
constexpr off_t kMaxFileSize = std::numeric_limits<int>::max() - 1024;

constexpr std::pair<Kind, std::string_view> kSuffixes[] = {
    {Kind::Old, ".old"}, {Kind::New, ".new"}, {Kind::Gone, ".gone"}};

std::string localName(const QString &name) { return QFile::encodeName(name).toStdString(); }

std::string hidden(const std::string &root, const std::string &name, Kind kind) {
    for (const auto &[row, suffix] : kSuffixes)
        if (row == kind)
            return root + "/." + name + std::string(suffix);
    return {};
}

bool isThere(const std::string &path) {
    struct stat about {};
    return ::lstat(path.c_str(), &about) == 0;
}

/// An open file, closed at the end of the scope.
class OpenFile {
public:
    OpenFile(FileOperations &operations, const std::string &path, int flags)
        : m_operations(operations), m_file(operations.open(path.c_str(), flags)) {}
    ~OpenFile() {
        if (m_file >= 0)
            m_operations.close(m_file);
    }
    Q_DISABLE_COPY_MOVE(OpenFile)

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }
    [[nodiscard]] int number() const { return m_file; }

    [[nodiscard]] bool write(const char *data, std::size_t size) {
        while (size > 0) {
            const ssize_t done = m_operations.write(m_file, data, size);
            if (done < 0 && errno == EINTR)
                continue;
            if (done <= 0) {
                errno = done == 0 ? ENOSPC : errno;
                return false;
            }
            data += done;
            size -= static_cast<std::size_t>(done);
        }
        return true;
    }
    [[nodiscard]] bool sync() {
        while (m_operations.sync(m_file) < 0)
            if (errno != EINTR)
                return false;
        return true;
    }
    /// Some file systems say only now that they couldn't write.
    [[nodiscard]] bool close() { return m_operations.close(std::exchange(m_file, -1)) == 0 || errno == EINTR; }

private:
    FileOperations &m_operations;
    int m_file;
};

/// Makes sure that the names in a folder are on the disk.
bool syncFolder(FileOperations &operations, const std::string &path) {
    OpenFile folder(operations, path.empty() ? "." : path, O_RDONLY | O_DIRECTORY);
    // Not every file system knows a sync of a folder; those that don't need none.
    return folder.isOpen() && (folder.sync() || errno == EINVAL);
}

/// Makes a folder and those above it, each of them lasting.
bool makePath(FileOperations &operations, const std::string &path) {
    if (path.empty() || isThere(path))
        return true;
    const std::string above = fs::path(path).parent_path().string();
    return makePath(operations, above) && (operations.makeFolder(path.c_str()) == 0 || errno == EEXIST) &&
           syncFolder(operations, above);
}

/// The entries of a folder; of none, if it can't be read.
std::vector<fs::directory_entry> entriesOf(const std::string &path) {
    std::vector<fs::directory_entry> entries;
    std::error_code error;
    for (fs::directory_iterator entry(path, error); !error && entry != fs::directory_iterator(); entry.increment(error))
        entries.push_back(*entry);
    return entries;
}

/// Removes an entry and all below it; true if it isn't there any more.
bool removeTree(FileOperations &operations, const std::string &path) {
    std::error_code error;
    const auto type = fs::symlink_status(path, error).type();
    if (type == fs::file_type::not_found)
        return true;
    if (type != fs::file_type::directory)
        return operations.removeFile(path.c_str()) == 0;
    for (const auto &entry : entriesOf(path))
        if (!removeTree(operations, entry.path().string()))
            return false;
    return operations.removeFolder(path.c_str()) == 0;
}

/// Removes what is under the hidden names of a folder; false if something is still there.
bool removeHidden(FileOperations &operations, const std::string &root, const std::string &name) {
    return std::all_of(std::begin(kSuffixes), std::end(kSuffixes),
                       [&](const auto &row) { return removeTree(operations, hidden(root, name, row.first)); });
}

/// Finishes or removes what a store of a folder has left; false if something is still there.
bool recover(FileOperations &operations, const std::string &root, const std::string &name) {
    const std::string target = root + '/' + name;
    const std::string fresh = hidden(root, name, Kind::New);
    const std::string old = hidden(root, name, Kind::Old);
    const bool isFreshThere = isThere(fresh);
    const bool isOldThere = isThere(old);
    if (!isFreshThere && !isOldThere && !isThere(hidden(root, name, Kind::Gone)))
        return true;
    // An old folder leaves its name when the new one is complete.
    if (isOldThere && !isThere(target) &&
        operations.rename(isFreshThere ? fresh.c_str() : old.c_str(), target.c_str()) < 0)
        return false;
    // No file goes before the names are sure.
    return syncFolder(operations, root) && removeHidden(operations, root, name);
}

/// The folder that an entry belongs to which an interrupted store has left; empty for any other entry.
std::string ownerOf(const std::string &entry) {
    for (const auto &[kind, suffix] : kSuffixes)
        if (entry.size() > 1 + suffix.size() && entry.front() == '.' && entry.ends_with(suffix))
            return entry.substr(1, entry.size() - 1 - suffix.size());
    return {};
}

/// Whether a text can name a folder that the root shows. Parts of it are reported by a device.
bool isFolderName(const std::string &name) {
    return !name.empty() && name.front() != '.' && name.find('/') == std::string::npos &&
           name.find('\0') == std::string::npos;
}

} // namespace

FolderWriter::FolderWriter(FileOperations &operations, const QString &root, const QString &name)
    : m_operations(operations),
      m_root(localName(root)),
      m_name(localName(name)),
      m_target(m_root + '/' + m_name),
      m_new(hidden(m_root, m_name, Kind::New)) {}

FolderWriter::~FolderWriter() {
    if (m_isBegun)
        removeTree(m_operations, m_new);
}

bool FolderWriter::check(bool isDone) {
    if (!isDone && m_error == 0)
        m_error = errno;
    return isDone;
}

QString FolderWriter::errorString() const { return qt_error_string(m_error); }

bool FolderWriter::begin() {
    errno = EINVAL;
    // Under a root without a name the folder would stand at the top of the file system.
    if (!check(!m_root.empty() && isFolderName(m_name) && makePath(m_operations, m_root) &&
               recover(m_operations, m_root, m_name)))
        return false;
    m_isBegun = check(m_operations.makeFolder(m_new.c_str()) == 0);
    return m_isBegun;
}

bool FolderWriter::add(const QString &name, const char *text, std::size_t size) {
    OpenFile file(m_operations, m_new + '/' + localName(name), O_WRONLY | O_CREAT | O_TRUNC);
    m_written.insert(name);
    return check(file.isOpen() && file.write(text, size) && file.sync() && file.close());
}

bool FolderWriter::addOthers(const std::string &below) {
    for (const auto &entry : entriesOf(m_target + '/' + below)) {
        const std::string path = below + entry.path().filename().string();
        const QString name = QFile::decodeName(path.c_str());
        std::error_code error;
        if (fs::is_directory(entry.symlink_status(error))) {
            const std::string made = m_new + '/' + path;
            if (!check(m_operations.makeFolder(made.c_str()) == 0) || !addOthers(path + '/') ||
                !check(syncFolder(m_operations, made)))
                return false;
            continue;
        }
        if (m_written.count(name) != 0 || !entry.is_regular_file(error))
            continue;
        QByteArray bytes;
        errno = readFile(m_operations, QFile::decodeName(entry.path().c_str()), bytes);
        if (!check(errno == 0) || !add(name, bytes.constData(), static_cast<std::size_t>(bytes.size())))
            return false;
    }
    return true;
}

bool FolderWriter::replace() {
    if (!isThere(m_target))
        return m_operations.rename(m_new.c_str(), m_target.c_str()) == 0;
    if (m_operations.exchange(m_new.c_str(), m_target.c_str()) == 0)
        return true;
    if (errno != ENOSYS && errno != EINVAL && errno != EOPNOTSUPP)
        return false;
    // The first step has to be on the disk before the second one: both the other way round would leave the new folder
    // under the old one's name, with no trace of which of the two is complete.
    const std::string old = hidden(m_root, m_name, Kind::Old);
    if (m_operations.rename(m_target.c_str(), old.c_str()) < 0)
        return false;
    if (syncFolder(m_operations, m_root) && m_operations.rename(m_new.c_str(), m_target.c_str()) == 0)
        return true;
    const int reason = errno;
    // Unless the old folder is back for sure, both are left to the next load or store.
    m_isBegun =
        m_operations.rename(old.c_str(), m_target.c_str()) == 0 && syncFolder(m_operations, m_root) && m_isBegun;
    errno = reason;
    return false;
}

bool FolderWriter::commit() {
    if (!check(syncFolder(m_operations, m_new) && replace()))
        return false;
    m_isBegun = false;
    if (!check(syncFolder(m_operations, m_root)))
        return false;
    removeHidden(m_operations, m_root, m_name); // what can't be removed now goes with the next load or store
    return true;
}

void recoverFolders(FileOperations &operations, const QString &root) {
    const std::string path = localName(root);
    std::set<std::string> names;
    for (const auto &entry : entriesOf(path))
        if (const auto name = ownerOf(entry.path().filename().string()); !name.empty())
            names.insert(name);
    for (const auto &name : names)
        recover(operations, path, name);
}

void removeFolder(FileOperations &operations, const QString &root, const QString &name) {
    const std::string path = localName(root);
    const std::string folder = localName(name);
    const std::string gone = hidden(path, folder, Kind::Gone);
    if (!recover(operations, path, folder) || operations.rename((path + '/' + folder).c_str(), gone.c_str()) < 0)
        return;
    if (syncFolder(operations, path))
        removeTree(operations, gone);
}

bool makeFolders(FileOperations &operations, const QString &path) {
    return !path.isEmpty() && makePath(operations, localName(path)) && QFileInfo(path).isDir();
}

QStringList folderNames(const QString &root) {
    return root.isEmpty() ? QStringList() : QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

int readFile(FileOperations &operations, const QString &path, QByteArray &bytes) {
    // Nothing that waits for a writer is a document.
    const OpenFile file(operations, localName(path), O_RDONLY | O_NONBLOCK);
    struct stat about {};
    if (!file.isOpen() || ::fstat(file.number(), &about) < 0)
        return errno == ENOTDIR ? ENOENT : errno;
    if (!S_ISREG(about.st_mode))
        return S_ISDIR(about.st_mode) ? EISDIR : EINVAL;
    if (about.st_size > kMaxFileSize)
        return EFBIG;
    bytes = QByteArray(static_cast<int>(about.st_size), Qt::Uninitialized);
    int size = 0;
    while (size < bytes.size()) {
        const ssize_t got = ::read(file.number(), bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return errno;
        if (got == 0)
            break;
        size += static_cast<int>(got);
    }
    bytes.truncate(size);
    return 0;
}

} // namespace Quorix::BizModel
