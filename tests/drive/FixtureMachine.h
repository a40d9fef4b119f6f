#pragma once

#include "OrvaneApp/drive/LinuxVolume.h"
#include "tests/support/TemporaryFolder.h"

#include <QString>

#include <optional>

/// A made-up Linux machine for the volume reader: a mount table under its own procfs root and
/// the block devices of a sysfs root, linked the way the kernel links them.
class FixtureMachine
{
public:
    FixtureMachine();

    /// Adds one line to the mount table.
    void mount(const QString &line);

    /// A disk whose node is `sys/devices/<devicePath>`, ending in ".../block/NAME"; answers
    /// the node's path.
    QString addDisk(const QString &devicePath, const QString &numbers, int removable);
    /// A partition of `disk`; answers its node.
    QString addPartition(const QString &disk, const QString &name, const QString &numbers);
    /// A device-mapper node named `mapperName`, stacked on `below`; answers its node.
    QString addMapper(const QString &name, const QString &numbers, const QString &mapperName,
                      const QString &below);
    /// The card type an MMC disk reports ("SD" or "MMC").
    void setCardType(const QString &disk, const QString &type);

    [[nodiscard]] std::optional<LinuxVolume> read(const QString &path) const;

private:
    void write(const QString &path, const QByteArray &bytes) const;
    void link(const QString &target, const QString &path) const;
    void registerNode(const QString &node, const QString &numbers) const;

    TemporaryFolder m_folder;
    QByteArray m_table;
};
