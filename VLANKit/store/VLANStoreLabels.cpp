#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/store/VLANStore.h"
#include "VLANKit/values/AdapterNaming.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

QString VLANStore::computeAdapterLabel(const QString &bsdName) const
{
    for (const AdapterRecord &adapter : availableAdapters()) {
        if (adapter.bsdName == bsdName)
            return AdapterNaming::label(adapter);
    }
    // An unplugged adapter keeps its label while some Location remembers a name for it.
    const QHash<QString, QString> names = serviceNameIndex();
    const auto entry = names.constFind(bsdName);
    if (entry == names.constEnd() || *entry == bsdName)
        return bsdName;
    const QStringList words = splitAtBlanks(*entry);
    return words.isEmpty() ? bsdName : words.first();
}

QHash<QString, QSet<QString>> VLANStore::computeServiceNamesEverywhere() const
{
    QHash<QString, QSet<QString>> names;
    for (const SetRef &set : allSets()) {
        for (const ServiceRef &service : servicesOf(set)) {
            const auto bsdName = interfaceBSDOf(service);
            const auto name = m_platform->scNetworkServiceGetName(service);
            if (bsdName && name && !name->isEmpty())
                names[*bsdName].insert(*name);
        }
    }
    return names;
}

QSet<QString> VLANStore::knownAdapterLabels() const
{
    QSet<QString> labels = adapterLabelSet();
    // Every adapter that carries a VLAN, by kernel name and by the first word of each name its
    // services bear in any Location.
    const QHash<QString, QSet<QString>> everywhere = serviceNamesEverywhere();
    const QHash<QString, qint64> &parents = parentCounts();
    for (auto parent = parents.cbegin(); parent != parents.cend(); ++parent) {
        if (parent.value() <= 0)
            continue;
        labels.insert(parent.key());
        for (const QString &name : everywhere.value(parent.key())) {
            const QStringList words = splitAtBlanks(name);
            if (!words.isEmpty())
                labels.insert(words.first());
        }
    }
    labels.unite(retiredLabels);
    return labels;
}

void VLANStore::renameAdapter(const QString &bsdName, const QString &name)
{
    const QString trimmed = trimWhitespaceAndNewlines(name);
    if (trimmed.isEmpty())
        throw VLANError::operationFailed(u"An adapter needs a name."_s);
    // Retired before anything changes, so that names carrying the old label are still known.
    retiredLabels.insert(adapterLabel(bsdName));
    m_tables.dropNames();
    int named = 0;
    for (const SetRef &set : allSets()) {
        for (const ServiceRef &service : servicesOf(set)) {
            if (interfaceBSDOf(service) == bsdName
                && m_platform->scNetworkServiceSetName(service, trimmed))
                ++named;
        }
    }
    if (named == 0) {
        throw VLANError::operationFailed(u"No network service uses "_s + bsdName
                                         + u", so there is nothing to name."_s);
    }
}

Plan VLANStore::planSyncAdapterNames(const std::optional<QString> &adapterBSD) const
{
    const QSet<QString> known = knownAdapterLabels();
    QSet<QString> available;
    for (const AdapterRecord &adapter : availableAdapters())
        available.insert(adapter.bsdName);
    Plan plan;
    QHash<QString, QString> labels;
    for (const VLANRecord &vlan : vlans()) {
        if (!available.contains(vlan.parentBSD))
            continue;
        if (adapterBSD && vlan.parentBSD != *adapterBSD)
            continue;
        auto label = labels.constFind(vlan.parentBSD);
        if (label == labels.constEnd())
            label = labels.insert(vlan.parentBSD, adapterLabel(vlan.parentBSD));
        const QString composed = AdapterNaming::compose(vlan.name, *label, known);
        if (composed != vlan.name)
            plan.changes.append(PlannedChange::Rename{vlan.tag, vlan.bsdName, vlan.name, composed});
    }
    return plan;
}

} // namespace VLANKit
