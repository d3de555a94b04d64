#include <quorixbizmodel/persistence/fileoperations.h>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quorix::BizModel {

FileOperations::~FileOperations() = default;

FileOperations &FileOperations::system() {
    static FileOperations operations;
    return operations;
}

int FileOperations::open(const char *path, int flags) { return ::open(path, flags | O_CLOEXEC, 0666); }

ssize_t FileOperations::write(int file, const char *data, std::size_t size) { return ::write(file, data, size); }

int FileOperations::sync(int file) { return ::fsync(file); }

int FileOperations::close(int file) { return ::close(file); }

int FileOperations::makeFolder(const char *path) { return ::mkdir(path, 0777); }

int FileOperations::rename(const char *from, const char *to) { return ::rename(from, to); }

int FileOperations::exchange([[maybe_unused]] const char *one, [[maybe_unused]] const char *other) {
#ifdef RENAME_EXCHANGE
    return ::renameat2(AT_FDCWD, one, AT_FDCWD, other, RENAME_EXCHANGE);
#else
    errno = ENOSYS;
    return -1;
#endif
}

int FileOperations::removeFile(const char *path) { return ::unlink(path); }

int FileOperations::removeFolder(const char *path) { return ::rmdir(path); }

} // namespace Quorix::BizModel
