#include "tests/support/SyntheticMachine.h"

#include "VLANKit/formats/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QUuid>
#include <QVariantList>
#include <QVariantMap>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

QString uuidFor(const QString &seed)
{
    // Stable identifiers, so that a failure names the same service on every run.
    return QUuid::createUuidV5(QUuid(), seed).toString(QUuid::WithoutBraces).toUpper();
}

QVariantMap serviceDictionary(const QString &deviceName, const QString &interfaceName,
                              const QString &serviceName, const QVariantMap &ipv4)
{
    return QVariantMap{
        {u"DNS"_s, QVariantMap()},
        {u"IPv4"_s, ipv4},
        {u"IPv6"_s, QVariantMap{{u"ConfigMethod"_s, u"Automatic"_s}}},
        {u"Interface"_s, QVariantMap{{u"DeviceName"_s, deviceName},
                                     {u"Hardware"_s, u"Ethernet"_s},
                                     {u"Type"_s, u"Ethernet"_s},
                                     {u"UserDefinedName"_s, interfaceName}}},
        {u"UserDefinedName"_s, serviceName},
    };
}

const char *syntheticDescription =
    R"(# A machine made by a test: one built-in port and one USB trunk.
[machine]
computer-name = "Test Mac"
hardware-uuid = "00000000-1111-2222-3333-444444444444"

[[interface]]
bsd-name = "en0"
type = "Ethernet"
display-name = "Ethernet"
link-up = true
mtu = { current = 1500, min = 1280, max = 9000 }

[[interface]]
bsd-name = "en5"
display-name = "USB 10/100/1000 LAN"
link-up = true
mtu = { current = 1500, min = 1280, max = 9000 }
)";

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

} // namespace

void writeSyntheticMachine(const QString &folder, int vlanCount)
{
    QDir().mkpath(folder);
    const QString setID = uuidFor(u"set"_s);
    QVariantMap services;
    QVariantMap links;
    QVariantList order;
    QVariantMap vlans;
    const auto addService = [&](const QString &id, const QVariantMap &service) {
        services.insert(id, service);
        links.insert(id, QVariantMap{{u"__LINK__"_s, u"/NetworkServices/"_s + id}});
        order.append(id);
    };
    addService(uuidFor(u"en5"_s), serviceDictionary(u"en5"_s, u"USB 10/100/1000 LAN"_s, u"DONGLE"_s,
                                                    {{u"ConfigMethod"_s, u"DHCP"_s}}));
    for (int i = 0; i < vlanCount; ++i) {
        const qint64 tag = i + 1;
        const QString bsdName = u"vlan%1"_s.arg(i);
        const QString name = u"%1 - Net %1 (DONGLE)"_s.arg(tag);
        vlans.insert(
            bsdName,
            QVariantMap{{u"Interface"_s, u"en5"_s}, {u"Tag"_s, tag}, {u"UserDefinedName"_s, name}});
        const QVariantMap ipv4{
            {u"ConfigMethod"_s, u"Manual"_s},
            {u"Addresses"_s, QVariantList{u"10.%1.%2.69"_s.arg(tag / 256).arg(tag % 256)}},
            {u"SubnetMasks"_s, QVariantList{u"255.255.255.0"_s}}};
        addService(uuidFor(bsdName),
                   serviceDictionary(bsdName, name, u"VLAN (%1)"_s.arg(bsdName), ipv4));
    }
    const QVariantMap set{
        {u"UserDefinedName"_s, u"Show"_s},
        {u"Network"_s,
         QVariantMap{
             {u"Service"_s, links},
             {u"Global"_s, QVariantMap{{u"IPv4"_s, QVariantMap{{u"ServiceOrder"_s, order}}}}}}}};
    QVariantMap preferences{{u"CurrentSet"_s, u"/Sets/"_s + setID},
                            {u"NetworkServices"_s, services},
                            {u"Sets"_s, QVariantMap{{setID, set}}}};
    if (!vlans.isEmpty())
        preferences.insert(u"VirtualNetworkInterfaces"_s, QVariantMap{{u"VLAN"_s, vlans}});
    writeFile(folder + u"/preferences.plist"_s, *xmlPropertyList(preferences));
    writeFile(folder + u"/machine.toml"_s, syntheticDescription);
}
