#include "tests/drive/FixtureMachine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

FixtureMachine::FixtureMachine()
{
    QDir(m_folder.path()).mkpath(u"proc/self"_s);
    QDir(m_folder.path()).mkpath(u"sys/dev/block"_s);
    QDir(m_folder.path()).mkpath(u"sys/class/block"_s);
}

void FixtureMachine::write(const QString &path, const QByteArray &bytes) const
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

void FixtureMachine::link(const QString &target, const QString &path) const
{
    QDir().mkpath(QFileInfo(path).path());
    QFile::link(target, path);
}

void FixtureMachine::registerNode(const QString &node, const QString &numbers) const
{
    write(node + u"/dev"_s, numbers.toUtf8() + '\n');
    link(node, m_folder.filePath(u"sys/dev/block/"_s + numbers));
    link(node, m_folder.filePath(u"sys/class/block/"_s + QFileInfo(node).fileName()));
}

void FixtureMachine::mount(const QString &line)
{
    m_table += line.toUtf8() + '\n';
    write(m_folder.filePath(u"proc/self/mountinfo"_s), m_table);
}

QString FixtureMachine::addDisk(const QString &devicePath, const QString &numbers, int removable)
{
    const QString node = m_folder.filePath(u"sys/devices/"_s + devicePath);
    QDir().mkpath(node);
    write(node + u"/removable"_s, QByteArray::number(removable) + '\n');
    registerNode(node, numbers);
    return node;
}

QString FixtureMachine::addPartition(const QString &disk, const QString &name,
                                     const QString &numbers)
{
    const QString node = disk + u'/' + name;
    write(node + u"/partition"_s, "1\n");
    registerNode(node, numbers);
    return node;
}

QString FixtureMachine::addMapper(const QString &name, const QString &numbers,
                                  const QString &mapperName, const QString &below)
{
    const QString node = m_folder.filePath(u"sys/devices/virtual/block/"_s + name);
    write(node + u"/removable"_s, "0\n");
    write(node + u"/dm/name"_s, mapperName.toUtf8() + '\n');
    link(below, node + u"/slaves/"_s + QFileInfo(below).fileName());
    registerNode(node, numbers);
    return node;
}

void FixtureMachine::setCardType(const QString &disk, const QString &type)
{
    write(disk + u"/device/type"_s, type.toUtf8() + '\n');
}

std::optional<LinuxVolume> FixtureMachine::read(const QString &path) const
{
    return LinuxVolume::read(path, m_folder.filePath(u"proc"_s), m_folder.filePath(u"sys"_s));
}
