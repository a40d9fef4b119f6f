#include "tests/support/StoreTestSupport.h"

#include "VLANKit/formats/PropertyList.h"
#include "tests/support/SyntheticMachine.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace VLANKit;

void StoreTest::openCopyOf(const QString &repositoryFolder)
{
    folder = temporary.copyOf(repositoryFolder, u"machine"_s);
    platform = Platform::overFolder(folder);
}

void StoreTest::openSynthetic(int count)
{
    folder = temporary.filePath(u"machine"_s);
    writeSyntheticMachine(folder, count);
    platform = Platform::overFolder(folder);
}

Platform StoreTest::another() const
{
    return Platform::overFolder(folder);
}

std::unique_ptr<VLANStore> StoreTest::readStore() const
{
    return std::make_unique<VLANStore>(*platform);
}

std::unique_ptr<VLANStore> StoreTest::writeStore() const
{
    NetworkAuthorization authorization(*platform);
    authorization.acquire();
    return std::make_unique<VLANStore>(*platform, authorization);
}

QByteArray StoreTest::preferencesBytes() const
{
    QFile file(folder + u"/preferences.plist"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QVariantMap StoreTest::valueAt(const QVariantMap &map, const QStringList &path)
{
    QVariantMap here = map;
    for (const QString &key : path)
        here = here.value(key).toMap();
    return here;
}

void StoreTest::putAt(QVariantMap &map, const QStringList &path, const QVariant &value)
{
    if (path.size() == 1) {
        map.insert(path.first(), value);
        return;
    }
    QVariantMap child = map.value(path.first()).toMap();
    putAt(child, path.mid(1), value);
    map.insert(path.first(), child);
}

void StoreTest::writePreferences(const QByteArray &bytes)
{
    temporary.write(u"machine/preferences.plist"_s, bytes);
    platform = Platform::overFolder(folder);
}

void StoreTest::editPreferences(const std::function<void(QVariantMap &)> &edit)
{
    QVariantMap preferences = parsePropertyList(preferencesBytes()).value_or(QVariant()).toMap();
    edit(preferences);
    writePreferences(*xmlPropertyList(preferences));
}

void StoreTest::answerAdministrator(const QString &lines)
{
    QFile file(folder + u"/machine.toml"_s);
    QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    file.close();
    // A fresh table at the end replaces whatever the example said.
    text.replace("\n[administrator]\n", "\n");
    const qsizetype at = text.indexOf("answer = ");
    if (at >= 0)
        text.remove(at, text.indexOf('\n', at) - at);
    text += "\n[administrator]\n" + lines.toUtf8() + "\n";
    temporary.write(u"machine/machine.toml"_s, text);
    platform = Platform::overFolder(folder);
}

VLANRecord StoreTest::vlanTagged(const VLANStore &store, qint64 tag)
{
    for (const VLANRecord &vlan : store.vlans()) {
        if (vlan.tag == tag)
            return vlan;
    }
    ADD_FAILURE() << "no VLAN tagged " << tag;
    return {};
}

ServiceRecord StoreTest::serviceNamed(const VLANStore &store, const QString &name)
{
    for (const ServiceRecord &service : store.services()) {
        if (service.name == name)
            return service;
    }
    ADD_FAILURE() << "no service named " << name.toStdString();
    return {};
}
