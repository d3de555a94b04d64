/// The system calls under the store of devices.
#ifndef QUORIXBIZMODEL_FILEOPERATIONS_H
#define QUORIXBIZMODEL_FILEOPERATIONS_H

#include <quorix_export.h>

#include <QtGlobal>

#include <cstddef>

#include <sys/types.h>

namespace Quorix::BizModel {

/// What the store does to files, one function for each system call; a test overrides them to let one fail. Each gives a
/// negative number, with the reason in errno, if it fails. Without state, so that any thread may call.
class QUORIX_EXPORT FileOperations {
public:
    FileOperations() = default;
    virtual ~FileOperations();
    Q_DISABLE_COPY_MOVE(FileOperations)

    /// Those of the operating system.
    static FileOperations &system();

    /// A file that is made gets the rights that the process gives to all.
    virtual int open(const char *path, int flags);
    virtual ssize_t write(int file, const char *data, std::size_t size);
    /// Of a file or a folder that is open: what was written is on the disk when it returns.
    virtual int sync(int file);
    virtual int close(int file);
    virtual int makeFolder(const char *path);
    virtual int rename(const char *from, const char *to);
    /// Gives each of two entries the name of the other in one step. ENOSYS or EINVAL where that can't be done.
    virtual int exchange(const char *one, const char *other);
    virtual int removeFile(const char *path);
    virtual int removeFolder(const char *path);
};

} // namespace Quorix::BizModel

#endif
