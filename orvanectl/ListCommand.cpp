#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/machine/LiveState.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Output.h"
#include "orvanectl/Sessions.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace Orvanectl {

namespace {

std::optional<QString> liveAddress(const LiveState &live, const std::optional<QString> &serviceID)
{
    if (!serviceID)
        return std::nullopt;
    const auto found = live.ipv4.constFind(*serviceID);
    if (found == live.ipv4.constEnd())
        return std::nullopt;
    return found->address;
}

void insertIP(QJsonObject &object, const IPConfig &ip)
{
    object.insert(u"mode"_s, rawValue(ip.mode));
    object.insert(u"address"_s, jsonText(ip.address));
    object.insert(u"subnetMask"_s, jsonText(ip.subnetMask));
    object.insert(u"router"_s, jsonText(ip.router));
}

QJsonObject vlanJson(const VLANRecord &vlan, const LiveState &live)
{
    QJsonObject object{{u"tag"_s, vlan.tag},
                       {u"name"_s, vlan.name},
                       {u"bsdName"_s, vlan.bsdName},
                       {u"adapter"_s, vlan.parentBSD},
                       {u"adapterName"_s, vlan.parentName},
                       {u"serviceID"_s, jsonText(vlan.serviceID)},
                       {u"on"_s, vlan.hasService() && vlan.serviceEnabled},
                       {u"live"_s, jsonText(liveAddress(live, vlan.serviceID))}};
    insertIP(object, vlan.ip);
    return object;
}

QJsonObject serviceJson(const ServiceRecord &service, const LiveState &live)
{
    QJsonObject object{
        {u"name"_s, service.name},
        {u"serviceID"_s, service.serviceID},
        {u"device"_s,
         jsonText(service.hasDevice ? std::optional(service.interfaceBSD) : std::nullopt)},
        {u"type"_s, service.interfaceType},
        {u"on"_s, service.enabled},
        {u"live"_s, jsonText(liveAddress(live, service.serviceID))}};
    insertIP(object, service.ip);
    return object;
}

QString onOrOff(bool on)
{
    return on ? u"on"_s : u"off"_s;
}

QStringList vlanLines(const QList<VLANRecord> &vlans, const LiveState &live)
{
    if (vlans.isEmpty())
        return {u"No VLANs."_s};
    QList<QStringList> rows{
        {u"TAG"_s, u"ADAPTER"_s, u"NAME"_s, u"MODE"_s, u"ADDRESS"_s, u"ON"_s, u"LIVE"_s}};
    for (const VLANRecord &vlan : vlans)
        rows.append({QString::number(vlan.tag), vlan.parentBSD, vlan.name, rawValue(vlan.ip.mode),
                     orDash(vlan.ip.address),
                     vlan.hasService() ? onOrOff(vlan.serviceEnabled) : u"no service"_s,
                     orDash(liveAddress(live, vlan.serviceID))});
    return table(rows);
}

QStringList serviceLines(const QList<ServiceRecord> &services, const LiveState &live)
{
    if (services.isEmpty())
        return {u"No other services."_s};
    QList<QStringList> rows{{u"NAME"_s, u"DEVICE"_s, u"MODE"_s, u"ADDRESS"_s, u"ON"_s, u"LIVE"_s}};
    for (const ServiceRecord &service : services)
        rows.append({service.name, service.hasDevice ? service.interfaceBSD : notReported(),
                     rawValue(service.ip.mode), orDash(service.ip.address),
                     onOrOff(service.enabled), orDash(liveAddress(live, service.serviceID))});
    return table(rows);
}

} // namespace

int listVLANs(const Invocation &invocation, const Platform &platform)
{
    const auto store = readingStore(platform, invocation.value(u"--location"_s));
    const auto active = store->activeLocation();
    const bool inUse = active && active->isCurrent;
    const LiveState live = LiveState::read(platform.backend());
    const QList<VLANRecord> vlans = store->vlans();
    QList<ServiceRecord> others;
    for (const ServiceRecord &service : store->services()) {
        if (!service.isVLAN)
            others.append(service);
    }

    if (invocation.json) {
        QJsonArray vlanArray;
        for (const VLANRecord &vlan : vlans)
            vlanArray.append(vlanJson(vlan, live));
        QJsonArray serviceArray;
        for (const ServiceRecord &service : others)
            serviceArray.append(serviceJson(service, live));
        writeJson({{u"location"_s, locationName(*store)},
                   {u"inUse"_s, inUse},
                   {u"vlans"_s, vlanArray},
                   {u"otherServices"_s, serviceArray}});
        return 0;
    }
    QStringList lines{u"Location "_s + curlyQuoted(locationName(*store))
                          + (inUse ? u" (in use)"_s : u" (not in use)"_s),
                      QString(), u"VLANs"_s};
    lines += vlanLines(vlans, live);
    lines += {QString(), u"Other services"_s};
    lines += serviceLines(others, live);
    writeLines(lines);
    return 0;
}

} // namespace Orvanectl
