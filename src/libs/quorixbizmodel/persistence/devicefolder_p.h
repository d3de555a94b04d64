/// Folders of files under one root, each of which is replaced or removed as a whole: whenever the process or the
/// machine stops, a folder holds all of its old files or all of its new ones.
///
/// Folder X is written as `.X.new` and then changes names with the old one, or, where a file system can't do that in
/// one step, the old one is `.X.old` for a moment. One that is removed is `.X.gone` first. What is found under such a
/// name was left by a store that was interrupted.
#ifndef QUORIXBIZMODEL_DEVICEFOLDER_P_H
#define QUORIXBIZMODEL_DEVICEFOLDER_P_H

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <set>
#include <string>

namespace Quorix::BizModel {

class FileOperations;

/// Writes a folder. Nothing happens to the one that is there before commit(); without it the new files go again. After
/// the first step that fails, errorString() has the reason.
class FolderWriter {
public:
    FolderWriter(FileOperations &operations, const QString &root, const QString &name);
    ~FolderWriter();
    Q_DISABLE_COPY_MOVE(FolderWriter)

    /// Clears what an earlier store of this folder has left, makes the root if need be and the new folder in it.
    [[nodiscard]] bool begin();
    /// Writes a file, to the disk; a second one of a name takes the place of the first.
    [[nodiscard]] bool add(const QString &name, const char *text, std::size_t size);
    /// Takes over what the present folder holds beside the files that have been written.
    [[nodiscard]] bool addOthers() { return addOthers({}); }
    /// Puts the new folder in the place of the old one. False also when it is there, but not known to be on the disk.
    [[nodiscard]] bool commit();
    [[nodiscard]] QString errorString() const;

private:
    [[nodiscard]] bool check(bool isDone);
    /// @param below a folder in the present one, with a slash at its end; empty: that one itself
    [[nodiscard]] bool addOthers(const std::string &below);
    [[nodiscard]] bool replace();

    FileOperations &m_operations;
    const std::string m_root;
    const std::string m_name;
    const std::string m_target;
    const std::string m_new;
    std::set<QString> m_written;
    bool m_isBegun = false;
    int m_error = 0; ///< errno of the first failure
};

/// Finishes or removes what interrupted stores have left under a root.
void recoverFolders(FileOperations &operations, const QString &root);

/// Removes a folder with all that is in it.
void removeFolder(FileOperations &operations, const QString &root, const QString &name);

/// Makes a folder and those above it, each of them lasting; false if it isn't there afterwards.
[[nodiscard]] bool makeFolders(FileOperations &operations, const QString &path);

/// Names of the folders under a root, as QDir lists them; those that begin with a dot aren't among them.
[[nodiscard]] QStringList folderNames(const QString &root);

/// All bytes of a regular file. @return 0, or the errno of why they can't be read; ENOENT without a file
[[nodiscard]] int readFile(FileOperations &operations, const QString &path, QByteArray &bytes);

} // namespace Quorix::BizModel

#endif
