#include "VLANKit/files/FileSignature.h"

#include <QFile>

#include <sys/stat.h>

namespace VLANKit {

FileSignature FileSignature::fromStat(const struct stat &info)
{
    const struct timespec modified = modificationTime(info);
    FileSignature signature;
    signature.device = static_cast<std::uint64_t>(info.st_dev);
    signature.inode = static_cast<std::uint64_t>(info.st_ino);
    signature.modifiedSeconds = static_cast<std::int64_t>(modified.tv_sec);
    signature.modifiedNanoseconds = static_cast<std::int64_t>(modified.tv_nsec);
    signature.size = static_cast<std::int64_t>(info.st_size);
    return signature;
}

FileSignature FileSignature::ofPath(const QString &path)
{
    struct stat info
    {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return {};
    return fromStat(info);
}

FileSignature FileSignature::ofDescriptor(int fileDescriptor)
{
    struct stat info
    {};
    if (::fstat(fileDescriptor, &info) != 0)
        return {};
    return fromStat(info);
}

} // namespace VLANKit
