#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/store/VLANStore.h"
#include "VLANKit/values/AdapterNaming.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

Plan VLANStore::planApply(const Profile &profile, const QString &adapterBSD) const
{
    // Where one tag stands on two adapters, the VLAN already on the target is the one compared;
    // with none there, the first listed.
    QHash<qint64, VLANRecord> byTag;
    for (const VLANRecord &vlan : vlans()) {
        const auto kept = byTag.constFind(vlan.tag);
        if (kept == byTag.constEnd() || vlan.parentBSD == adapterBSD)
            byTag.insert(vlan.tag, vlan);
    }
    QList<ProfileEntry> entries = profile.entries;
    sortStably(entries, [](const ProfileEntry &a, const ProfileEntry &b) { return a.tag < b.tag; });

    Plan plan;
    plan.adapterBSD = adapterBSD;
    for (const ProfileEntry &entry : entries) {
        const auto found = byTag.constFind(entry.tag);
        if (found == byTag.constEnd()) {
            plan.changes.append(
                PlannedChange::CreateVLAN{entry.tag, entry.name, entry.ip, entry.enabled});
            continue;
        }
        const VLANRecord &record = *found;
        if (record.parentBSD != adapterBSD)
            plan.changes.append(PlannedChange::Reparent{record, record.parentBSD, adapterBSD});
        if (record.ip != entry.ip) {
            plan.changes.append(
                PlannedChange::Retag{entry.tag, record.bsdName, entry.name, record.ip, entry.ip});
        }
        if (record.serviceEnabled != entry.enabled) {
            plan.changes.append(
                PlannedChange::SetEnabled{entry.tag, record.bsdName, entry.name, entry.enabled});
        }
    }
    return plan;
}

Plan VLANStore::planDelete(QList<qint64> tags, const std::optional<QString> &adapterBSD) const
{
    const QList<VLANRecord> all = vlans();
    sortStably(tags, std::less<qint64>());
    Plan plan;
    for (qint64 tag : tags) {
        QList<VLANRecord> matching;
        for (const VLANRecord &vlan : all) {
            if (vlan.tag == tag && (!adapterBSD || vlan.parentBSD == *adapterBSD))
                matching.append(vlan);
        }
        if (matching.isEmpty())
            continue;
        if (matching.size() > 1) {
            QStringList where;
            for (const VLANRecord &vlan : matching)
                where.append(vlan.name + u" on "_s + vlan.parentBSD);
            throw VLANError::operationFailed(
                u"Tag %1 is on %2 VLANs: "_s.arg(tag).arg(matching.size()) + where.join(u", "_s)
                + u". Say which adapter's with --on."_s);
        }
        const VLANRecord &vlan = matching.first();
        plan.changes.append(PlannedChange::RemoveVLAN{tag, vlan.name, vlan.bsdName});
    }
    return plan;
}

Plan VLANStore::planReparentAll(const QString &adapterBSD) const
{
    Plan plan;
    plan.adapterBSD = adapterBSD;
    for (const VLANRecord &vlan : vlans()) {
        if (vlan.parentBSD != adapterBSD)
            plan.changes.append(PlannedChange::Reparent{vlan, vlan.parentBSD, adapterBSD});
    }
    return plan;
}

Profile VLANStore::capture(const QString &name) const
{
    const QList<VLANRecord> all = vlans();
    const QSet<QString> labels = knownAdapterLabels();
    Profile profile;
    profile.name = name;
    profile.note = u"Captured by Orvane"_s;
    if (!all.isEmpty())
        profile.capturedFrom = all.first().parentBSD;
    for (const VLANRecord &vlan : all) {
        profile.entries.append(ProfileEntry{vlan.tag, AdapterNaming::stripped(vlan.name, labels),
                                            vlan.ip, vlan.serviceEnabled});
    }
    return profile;
}

} // namespace VLANKit
