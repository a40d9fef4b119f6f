#pragma once

#include "VLANKit/platform/document/PreferencesDocument.h"

#include <QString>
#include <QStringList>

/// Where things stand in the preferences document, as the system keeps them.
namespace VLANKit::DocumentPaths {

inline const QString currentSetKey = QStringLiteral("CurrentSet");
inline const QString servicesKey = QStringLiteral("NetworkServices");
inline const QString setsKey = QStringLiteral("Sets");
inline const QString nameKey = QStringLiteral("UserDefinedName");
inline const QString inactiveKey = QStringLiteral("__INACTIVE__");
inline const QString linkKey = QStringLiteral("__LINK__");
inline const QString interfaceKey = QStringLiteral("Interface");
inline const QString deviceNameKey = QStringLiteral("DeviceName");
inline const QString typeKey = QStringLiteral("Type");
inline const QString subTypeKey = QStringLiteral("SubType");
inline const QString hardwareKey = QStringLiteral("Hardware");
inline const QString tagKey = QStringLiteral("Tag");

inline QStringList service(const QString &serviceID)
{
    return {servicesKey, serviceID};
}
inline QStringList set(const QString &setID)
{
    return {setsKey, setID};
}
inline QStringList setServices(const QString &setID)
{
    return {setsKey, setID, QStringLiteral("Network"), QStringLiteral("Service")};
}
inline QStringList serviceOrder(const QString &setID)
{
    return {setsKey,
            setID,
            QStringLiteral("Network"),
            QStringLiteral("Global"),
            QStringLiteral("IPv4"),
            QStringLiteral("ServiceOrder")};
}
inline QStringList interfaceSettings(const QString &setID, const QString &bsdName,
                                     const QString &entity)
{
    return {setsKey, setID, QStringLiteral("Network"), QStringLiteral("Interface"),
            bsdName, entity};
}
inline QStringList vlans()
{
    return {QStringLiteral("VirtualNetworkInterfaces"), QStringLiteral("VLAN")};
}
inline QStringList vlan(const QString &name)
{
    return {QStringLiteral("VirtualNetworkInterfaces"), QStringLiteral("VLAN"), name};
}
inline QString setLink(const QString &setID)
{
    return QStringLiteral("/Sets/") + setID;
}
inline QString serviceLink(const QString &serviceID)
{
    return QStringLiteral("/NetworkServices/") + serviceID;
}
/// The service that a link of a set leads to: "/NetworkServices/<id>", nothing else.
inline QString serviceOfLink(const QString &link)
{
    const QStringList parts = link.split(QLatin1Char('/'));
    if (parts.size() != 3 || !parts.at(0).isEmpty() || parts.at(1) != servicesKey
        || parts.at(2).isEmpty())
        return {};
    return parts.at(2);
}

/// The service that an entry under a set's Network/Service leads to; empty when it is no link.
inline QString serviceOfLinkEntry(const QVariant &entry)
{
    const QVariantMap *link = mapIn(entry);
    const QVariant target = link ? link->value(linkKey) : QVariant();
    return target.metaType().id() == QMetaType::QString ? serviceOfLink(target.toString())
                                                        : QString();
}

} // namespace VLANKit::DocumentPaths
