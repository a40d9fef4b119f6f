#include "OrvaneApp/drive/LinuxVolume.h"

#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// File systems whose data lives on another machine.
const std::array networkTypes = {
    u"nfs"_s,         u"nfs4"_s,        u"cifs"_s,      u"smb3"_s,
    u"smbfs"_s,       u"ceph"_s,        u"9p"_s,        u"afs"_s,
    u"ncpfs"_s,       u"coda"_s,        u"lustre"_s,    u"glusterfs"_s,
    u"fuse.sshfs"_s,  u"fuse.rclone"_s, u"fuse.s3fs"_s, u"fuse.glusterfs"_s,
    u"fuse.cephfs"_s, u"fuse.davfs"_s,  u"davfs"_s,
};

QString readAll(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

} // namespace

std::optional<bool> LinuxVolume::isLocalType(const QString &fileSystemType, bool hasBlockDevice)
{
    for (const QString &type : networkTypes) {
        if (fileSystemType == type)
            return false;
    }
    // A FUSE file system with no disk beneath could be anything, near or far.
    const bool isFuse = fileSystemType == u"fuse"_s || fileSystemType.startsWith(u"fuse."_s);
    if (isFuse && !hasBlockDevice)
        return std::nullopt;
    return true;
}

std::optional<LinuxVolume> LinuxVolume::read(const QString &path, const QString &procRoot,
                                             const QString &sysRoot)
{
    const QString table = readAll(procRoot + u"/self/mountinfo"_s);
    std::optional<MountEntry> mount = MountTable::holding(table, path);
    if (!mount)
        return std::nullopt;

    LinuxVolume volume;
    volume.mount = *mount;
    volume.disk = BlockDisk::under(*mount, sysRoot);
    volume.facts.volume = mount->point;
    volume.facts.isRoot = mount->point == u"/"_s;
    volume.facts.isLocal = isLocalType(mount->fileSystemType, volume.disk.has_value());
    if (volume.disk) {
        volume.facts.isRemovable = volume.disk->isRemovable;
        volume.facts.isInternal = volume.disk->isInternal;
        volume.facts.isEjectable = volume.disk->isEjectable;
    }
    return volume;
}
