#include "OrvaneApp/drive/BlockDisk.h"
#include "VLANKit/core/TextRules.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// How many device-mapper or partition layers are followed before giving up: a loop in a
/// damaged tree must not hang the start of the program.
constexpr int deepestStack = 8;

QString readWord(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return VLANKit::trimWhitespaceAndNewlines(QString::fromUtf8(file.readAll()));
}

QString realPath(const QString &path)
{
    return QFileInfo(path).canonicalFilePath();
}

/// The folders (or links to folders) in `folder`, in canonical order so that "the first" is
/// the same on every machine.
QStringList foldersIn(const QString &folder)
{
    QStringList names =
        QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::System, QDir::Unsorted);
    VLANKit::sortCanonically(names);
    return names;
}

/// The sysfs node of a device named in a mount's source: "/dev/sdb1", "/dev/mapper/NAME".
QString nodeOfSource(const QString &source, const QString &sysRoot)
{
    if (!source.startsWith(u"/dev/"_s))
        return {};
    const QString classFolder = sysRoot + u"/class/block/"_s;
    const QString mapper = u"/dev/mapper/"_s;
    if (source.startsWith(mapper)) {
        const QString name = source.mid(mapper.size());
        for (const QString &node : foldersIn(classFolder)) {
            if (readWord(classFolder + node + u"/dm/name"_s) == name)
                return realPath(classFolder + node);
        }
        return {};
    }
    return realPath(classFolder + QFileInfo(source).fileName());
}

/// From a partition or a device-mapper node down to the disk that holds it.
QString diskBeneath(QString node)
{
    for (int layer = 0; layer < deepestStack && !node.isEmpty(); ++layer) {
        if (QFileInfo::exists(node + u"/partition"_s)) {
            node = realPath(node + u"/.."_s);
            continue;
        }
        const QStringList below = foldersIn(node + u"/slaves"_s);
        if (below.isEmpty())
            return node;
        node = realPath(node + u"/slaves/"_s + below.first());
    }
    return node;
}

bool hasComponentStartingWith(const QStringList &components, const QString &start)
{
    for (const QString &component : components) {
        if (component.startsWith(start))
            return true;
    }
    return false;
}

enum class Place { external, internal, unknown };

/// Where the disk hangs: on a bus from which it can be pulled, or built into the machine.
Place placeOf(const QString &relativeNode, const QString &node)
{
    const QStringList components = relativeNode.split(u'/', Qt::SkipEmptyParts);
    const QString name = components.isEmpty() ? QString() : components.last();
    if (name.startsWith(u"loop"_s))
        return Place::external;
    // USB and FireWire controllers sit on PCI themselves, so these come before PCI.
    if (hasComponentStartingWith(components, u"usb"_s)
        || hasComponentStartingWith(components, u"fw"_s)
        || hasComponentStartingWith(components, u"firewire"_s))
        return Place::external;
    if (name.startsWith(u"mmcblk"_s)) {
        const QString type = readWord(node + u"/device/type"_s);
        if (type == u"SD"_s)
            return Place::external;
        if (type == u"MMC"_s)
            return Place::internal;
        return Place::unknown;
    }
    if (hasComponentStartingWith(components, u"pci"_s)
        || hasComponentStartingWith(components, u"ata"_s) || name.startsWith(u"nvme"_s))
        return Place::internal;
    return Place::unknown;
}

} // namespace

std::optional<BlockDisk> BlockDisk::under(const MountEntry &mount, const QString &sysRoot)
{
    QString node;
    if (!mount.hasAnonymousDevice())
        node = realPath(sysRoot + u"/dev/block/"_s + mount.deviceNumbers);
    if (node.isEmpty())
        node = nodeOfSource(mount.source, sysRoot);
    node = diskBeneath(node);
    if (node.isEmpty())
        return std::nullopt;

    BlockDisk disk;
    disk.node = node;
    const QString removable = readWord(node + u"/removable"_s);
    if (removable == u"1"_s)
        disk.isRemovable = true;
    else if (removable == u"0"_s)
        disk.isRemovable = false;

    const QString root = realPath(sysRoot);
    const QString relative = node.startsWith(root) ? node.mid(root.size()) : node;
    switch (placeOf(relative, node)) {
    case Place::external:
        disk.isInternal = false;
        disk.isEjectable = true;
        break;
    case Place::internal:
        disk.isInternal = true;
        disk.isEjectable = false;
        break;
    case Place::unknown:
        break;
    }
    return disk;
}
