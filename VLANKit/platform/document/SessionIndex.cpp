#include "VLANKit/platform/document/SessionIndex.h"

#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/document/DocumentPaths.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

QString parentAndTag(const QString &parent, qint64 tag)
{
    return parent + u'\n' + QString::number(tag);
}

void addTo(QHash<QString, QSet<QString>> &index, const QString &key, const QString &value)
{
    index[key].insert(value);
}

// Empty entries are dropped, so that an index kept up to date equals one built afresh.
void removeFrom(QHash<QString, QSet<QString>> &index, const QString &key, const QString &value)
{
    const auto found = index.find(key);
    if (found == index.end())
        return;
    found->remove(value);
    if (found->isEmpty())
        index.erase(found);
}

std::optional<QString> deviceOf(const QVariantMap &service)
{
    const std::optional<QVariantMap> interface = mapIn(service, DocumentPaths::interfaceKey);
    return interface ? stringIn(*interface, DocumentPaths::deviceNameKey) : std::nullopt;
}

} // namespace

QString SessionIndex::genericVLANName(const QString &name)
{
    return u"VLAN ("_s + name + u")"_s;
}

std::optional<SessionIndex::VLANEntry> SessionIndex::vlanEntry(const QString &name,
                                                               const QVariant &value)
{
    const QVariantMap *vlan = mapIn(value);
    if (!vlan)
        return std::nullopt;
    const std::optional<QString> parent = stringIn(*vlan, u"Interface"_s);
    const QVariant tag = vlan->value(DocumentPaths::tagKey);
    std::optional<qint64> tagValue = anyInteger(tag);
    // A tag stored as a real is a number to the framework too; its integer value counts.
    if (const std::optional<double> real = anyReal(tag); !tagValue && real && std::isfinite(*real))
        tagValue = static_cast<qint64>(*real);
    if (!parent || !tagValue)
        return std::nullopt;
    return VLANEntry{*parent, *tagValue,
                     stringIn(*vlan, DocumentPaths::nameKey).value_or(genericVLANName(name))};
}

SessionIndex SessionIndex::build(const PreferencesDocument &document)
{
    SessionIndex index;
    if (const QVariantMap *sets = document.map({DocumentPaths::setsKey})) {
        for (auto set = sets->constBegin(); set != sets->constEnd(); ++set) {
            const QVariantMap *links = document.map(DocumentPaths::setServices(set.key()));
            if (!links)
                continue;
            for (auto link = links->constBegin(); link != links->constEnd(); ++link) {
                const QString target = DocumentPaths::serviceOfLinkEntry(link.value());
                if (!target.isEmpty())
                    index.addLink(target, Link{set.key(), link.key()});
            }
        }
    }
    if (const QVariantMap *sets = document.map({DocumentPaths::setsKey})) {
        for (auto set = sets->constBegin(); set != sets->constEnd(); ++set) {
            const QVariant *order = document.value(DocumentPaths::serviceOrder(set.key()));
            index.replaceOrder(set.key(), order ? anyList(*order) : std::nullopt);
        }
    }
    if (const QVariantMap *services = document.map({DocumentPaths::servicesKey})) {
        for (auto service = services->constBegin(); service != services->constEnd(); ++service) {
            if (const QVariantMap *map = mapIn(service.value()))
                index.addService(service.key(), *map);
        }
    }
    if (const QVariantMap *vlans = document.map(DocumentPaths::vlans())) {
        for (auto vlan = vlans->constBegin(); vlan != vlans->constEnd(); ++vlan)
            index.addVLAN(vlan.key(), vlan.value());
    }
    return index;
}

QList<SessionIndex::Link> SessionIndex::links(const QString &serviceID) const
{
    return m_links.value(serviceID);
}

bool SessionIndex::links(const QString &setID, const QString &serviceID) const
{
    const auto found = m_links.constFind(serviceID);
    if (found == m_links.constEnd())
        return false;
    return std::any_of(found->begin(), found->end(),
                       [&](const Link &link) { return link.setID == setID; });
}

void SessionIndex::addLink(const QString &serviceID, const Link &link)
{
    QList<Link> &links = m_links[serviceID];
    // Sets in the document's own key order (that of its dictionaries), links likewise.
    auto at = std::find_if(links.begin(), links.end(), [&](const Link &held) {
        return link.setID < held.setID || (link.setID == held.setID && link.key < held.key);
    });
    links.insert(at, link);
}

void SessionIndex::removeLink(const QString &serviceID, const Link &link)
{
    const auto found = m_links.find(serviceID);
    if (found == m_links.end())
        return;
    found->removeOne(link);
    if (found->isEmpty())
        m_links.erase(found);
}

QSet<QString> SessionIndex::servicesOnDevice(const QString &bsdName) const
{
    return m_byDevice.value(bsdName);
}

QSet<QString> SessionIndex::servicesStoring(const QString &name) const
{
    return m_byStoredName.value(name);
}

void SessionIndex::addService(const QString &serviceID, const QVariantMap &service)
{
    if (const auto device = deviceOf(service))
        addTo(m_byDevice, *device, serviceID);
    if (const auto name = stringIn(service, DocumentPaths::nameKey))
        addTo(m_byStoredName, *name, serviceID);
}

void SessionIndex::removeService(const QString &serviceID, const QVariantMap &service)
{
    if (const auto device = deviceOf(service))
        removeFrom(m_byDevice, *device, serviceID);
    if (const auto name = stringIn(service, DocumentPaths::nameKey))
        removeFrom(m_byStoredName, *name, serviceID);
}

void SessionIndex::renameService(const QString &serviceID, const std::optional<QString> &from,
                                 const std::optional<QString> &to)
{
    if (from)
        removeFrom(m_byStoredName, *from, serviceID);
    if (to)
        addTo(m_byStoredName, *to, serviceID);
}

bool SessionIndex::isOrdered(const QString &setID, const QString &serviceID) const
{
    const auto found = m_ordered.constFind(setID);
    return found != m_ordered.constEnd() && found->contains(serviceID);
}

void SessionIndex::addToOrder(const QString &setID, const QString &serviceID)
{
    ++m_ordered[setID][serviceID];
}

void SessionIndex::removeFromOrder(const QString &setID, const QString &serviceID)
{
    const auto found = m_ordered.find(setID);
    if (found == m_ordered.end())
        return;
    found->remove(serviceID);
    if (found->isEmpty())
        m_ordered.erase(found);
}

void SessionIndex::replaceOrder(const QString &setID, const std::optional<QVariantList> &order)
{
    m_ordered.remove(setID);
    if (!order)
        return;
    for (const QVariant &element : *order) {
        if (const auto id = anyString(element))
            addToOrder(setID, *id);
    }
}

QSet<QString> SessionIndex::vlansOn(const QString &parent, qint64 tag) const
{
    return m_byParentAndTag.value(parentAndTag(parent, tag));
}

QSet<QString> SessionIndex::vlansShowing(const QString &name) const
{
    return m_byShownName.value(name);
}

void SessionIndex::addVLAN(const QString &name, const QVariant &value)
{
    m_names.use(name);
    if (const auto entry = vlanEntry(name, value)) {
        addTo(m_byParentAndTag, parentAndTag(entry->parent, entry->tag), name);
        addTo(m_byShownName, entry->shownName, name);
    }
}

void SessionIndex::removeVLAN(const QString &name, const QVariant &value)
{
    m_names.release(name);
    if (const auto entry = vlanEntry(name, value)) {
        removeFrom(m_byParentAndTag, parentAndTag(entry->parent, entry->tag), name);
        removeFrom(m_byShownName, entry->shownName, name);
    }
}

} // namespace VLANKit
