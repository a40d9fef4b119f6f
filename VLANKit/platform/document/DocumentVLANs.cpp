#include "VLANKit/platform/document/DocumentVLANs.h"

#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentPaths.h"
#include "VLANKit/platform/document/DocumentStatus.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

const QString parentKey = u"Interface"_s;

} // namespace

QStringList DocumentVLANs::names(const DocumentSession &session)
{
    QStringList found;
    if (const QVariantMap *vlans = session.document().map(DocumentPaths::vlans())) {
        for (auto vlan = vlans->constBegin(); vlan != vlans->constEnd(); ++vlan) {
            if (SessionIndex::vlanEntry(vlan.key(), vlan.value()))
                found.append(vlan.key());
        }
    }
    return found;
}

std::optional<SessionIndex::VLANEntry> DocumentVLANs::entry(const DocumentSession &session,
                                                            const QString &name)
{
    const QVariant *vlan = session.document().value(DocumentPaths::vlan(name));
    return vlan ? SessionIndex::vlanEntry(name, *vlan) : std::nullopt;
}

bool DocumentVLANs::mayStand(DocumentSession &session, const QString &name,
                             const InterfaceFacts &parent, qint64 tag, int &status)
{
    // Only an Ethernet adapter carries VLANs; an attached one must say that it can.
    const HardwareInterface *attached =
        parent.bsdName ? session.machine().attachedInterface(*parent.bsdName) : nullptr;
    if (!parent.bsdName || parent.type != kSCNetworkInterfaceTypeEthernet
        || (attached && !attached->vlanCapable) || tag < 1 || tag > 4094)
        return failWith(status, kSCStatusInvalidArgument);
    for (const QString &other : session.index().vlansOn(*parent.bsdName, tag)) {
        if (other != name)
            return failWith(status, kSCStatusKeyExists);
    }
    return true;
}

std::optional<QString> DocumentVLANs::create(DocumentSession &session, const InterfaceFacts &parent,
                                             qint64 tag, int &status)
{
    if (!mayStand(session, QString(), parent, tag, status))
        return std::nullopt;
    const QString name = session.index().names().firstFree();
    const QVariantMap vlan{{parentKey, *parent.bsdName}, {DocumentPaths::tagKey, tag}};
    session.edit().setValue(DocumentPaths::vlan(name), vlan);
    session.index().addVLAN(name, vlan);
    return name;
}

bool DocumentVLANs::remove(DocumentSession &session, const QString &name, int &status)
{
    const QVariant *stored = session.document().value(DocumentPaths::vlan(name));
    if (!stored)
        return failWith(status, kSCStatusNoKey);
    session.index().removeVLAN(name, QVariant(*stored));
    session.edit().remove(DocumentPaths::vlan(name));
    return true;
}

void DocumentVLANs::change(DocumentSession &session, const QString &name, const QString &key,
                           const QVariant &value)
{
    const QVariant before = *session.document().value(DocumentPaths::vlan(name));
    if (mapIn(before)->value(key) == value && mapIn(before)->contains(key))
        return;
    session.index().removeVLAN(name, before);
    QStringList path = DocumentPaths::vlan(name);
    path.append(key);
    session.edit().setValue(path, value);
    session.index().addVLAN(name, *session.document().value(DocumentPaths::vlan(name)));
}

bool DocumentVLANs::setParentAndTag(DocumentSession &session, const QString &name,
                                    const InterfaceFacts &parent, qint64 tag, int &status)
{
    if (!session.document().map(DocumentPaths::vlan(name)))
        return failWith(status, kSCStatusFailed);
    if (!mayStand(session, name, parent, tag, status))
        return false;
    change(session, name, parentKey, *parent.bsdName);
    change(session, name, DocumentPaths::tagKey, tag);
    return true;
}

bool DocumentVLANs::setDisplayName(DocumentSession &session, const QString &name,
                                   const QString &displayName, int &status)
{
    if (!session.document().map(DocumentPaths::vlan(name)))
        return failWith(status, kSCStatusFailed);
    change(session, name, DocumentPaths::nameKey, displayName);
    return true;
}

} // namespace VLANKit
