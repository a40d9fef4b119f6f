#include "tests/document/DocumentTestSupport.h"

#include "VLANKit/platform/PlatformConstants.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace VLANKit;

void DocumentTest::openCopyOf(const QString &repositoryFolder)
{
    folder = temporary.copyOf(repositoryFolder, u"machine"_s);
    backend = another();
}

std::shared_ptr<DocumentBackend> DocumentTest::another() const
{
    return DocumentBackend::open(folder);
}

SessionRef DocumentTest::readSession() const
{
    return backend->scPreferencesCreate(u"Orvane"_s);
}

SessionRef DocumentTest::writeSession() const
{
    return writeSession(*backend);
}

SessionRef DocumentTest::writeSession(DocumentBackend &on)
{
    const AuthorizationCreated created = on.authorizationCreate();
    EXPECT_EQ(created.status, 0);
    EXPECT_EQ(
        on.authorizationCopyRights(created.authorization, u"system.preferences.network"_s, 19), 0);
    return on.scPreferencesCreateWithAuthorization(u"Orvane"_s, created.authorization);
}

QString DocumentTest::path(const QString &fileName) const
{
    return QDir(folder).filePath(fileName);
}

QByteArray DocumentTest::bytesOf(const QString &fileName) const
{
    QFile file(path(fileName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void DocumentTest::write(const QString &fileName, const QByteArray &bytes) const
{
    QFile file(path(fileName));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

SetRef DocumentTest::setNamed(const SessionRef &session, const QString &name) const
{
    for (const SetRef &set : backend->scNetworkSetCopyAll(session).value_or(QList<SetRef>())) {
        if (backend->scNetworkSetGetName(set) == name)
            return set;
    }
    return {};
}

ServiceRef DocumentTest::serviceNamed(const SetRef &set, const QString &name) const
{
    for (const ServiceRef &service :
         backend->scNetworkSetCopyServices(set).value_or(QList<ServiceRef>())) {
        if (backend->scNetworkServiceGetName(service) == name)
            return service;
    }
    return {};
}

InterfaceRef DocumentTest::vlanNamed(const SessionRef &session, const QString &bsdName) const
{
    for (const InterfaceRef &vlan :
         backend->scVLANInterfaceCopyAll(session).value_or(QList<InterfaceRef>())) {
        if (backend->scNetworkInterfaceGetBSDName(vlan) == bsdName)
            return vlan;
    }
    return {};
}

InterfaceRef DocumentTest::adapterNamed(const QString &bsdName) const
{
    for (const InterfaceRef &adapter :
         backend->scNetworkInterfaceCopyAll().value_or(QList<InterfaceRef>())) {
        if (backend->scNetworkInterfaceGetBSDName(adapter) == bsdName)
            return adapter;
    }
    return {};
}

QStringList DocumentTest::setNames(const SessionRef &session) const
{
    QStringList names;
    for (const SetRef &set : backend->scNetworkSetCopyAll(session).value_or(QList<SetRef>()))
        names.append(backend->scNetworkSetGetName(set).value_or(u"?"_s));
    return names;
}

QStringList DocumentTest::serviceNames(const SetRef &set) const
{
    QStringList names;
    for (const ServiceRef &service :
         backend->scNetworkSetCopyServices(set).value_or(QList<ServiceRef>()))
        names.append(backend->scNetworkServiceGetName(service).value_or(u"?"_s));
    return names;
}

QStringList DocumentTest::vlanNames(const SessionRef &session) const
{
    return bsdNames(backend->scVLANInterfaceCopyAll(session));
}

QStringList DocumentTest::bsdNames(const std::optional<QList<InterfaceRef>> &list) const
{
    QStringList names;
    for (const InterfaceRef &interface : list.value_or(QList<InterfaceRef>()))
        names.append(backend->scNetworkInterfaceGetBSDName(interface).value_or(u"?"_s));
    return names;
}
