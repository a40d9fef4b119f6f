// The rows of the Add tab and everything said about them before a build.
#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/core/TextRules.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

constexpr qint64 highestTag = 4094;

QString modeWord(IPMode mode)
{
    switch (mode) {
    case IPMode::dhcp:
        return u"DHCP"_s;
    case IPMode::manual:
        return u"Manual"_s;
    case IPMode::linkLocal:
        return u"Link-local"_s;
    case IPMode::off:
        return u"Off"_s;
    case IPMode::unknown:
        break;
    }
    return u"Other"_s;
}

// The first thing wrong with a manual row's typed address, mask or router.
std::optional<QString> manualIssue(const Draft &draft)
{
    if (draft.mode() != IPMode::manual)
        return std::nullopt;
    if (!isDottedQuad(draft.address()))
        return u"IP address isn't a valid IPv4 address."_s;
    if (!isDottedQuad(draft.subnetMask()))
        return u"Subnet mask isn't valid."_s;
    if (!draft.router().isEmpty() && !isDottedQuad(draft.router()))
        return u"Router isn't a valid IPv4 address."_s;
    return std::nullopt;
}

} // namespace

void AppModel::addRow()
{
    QList<DraftRow> drafts = m_drafts;
    drafts.append(std::make_shared<Draft>(suggestedNextTag()));
    setDrafts(drafts);
}

void AppModel::removeRow(const DraftRow &draft)
{
    QList<DraftRow> drafts = m_drafts;
    drafts.removeIf([&](const DraftRow &row) { return row->id() == draft->id(); });
    if (drafts.isEmpty())
        drafts.append(std::make_shared<Draft>());
    setDrafts(drafts);
}

QList<AppModel::DraftRow> AppModel::buildableDrafts() const
{
    QList<DraftRow> buildable;
    for (const DraftRow &draft : m_drafts) {
        if (!draft->isBlank())
            buildable.append(draft);
    }
    return buildable;
}

QSet<qint64> AppModel::existingTags() const
{
    QSet<qint64> tags;
    for (const VLANRecord &vlan : m_existing)
        tags.insert(vlan.tag);
    return tags;
}

QString AppModel::suggestedNextTag() const
{
    const QSet<qint64> existingSet = existingTags();
    QSet<qint64> used = existingSet;
    std::optional<qint64> base;
    for (const DraftRow &draft : m_drafts) {
        if (const std::optional<qint64> tag = draft->tagValue()) {
            used.insert(*tag);
            base = tag;
        }
    }
    if (!base && !existingSet.isEmpty())
        base = *std::max_element(existingSet.begin(), existingSet.end());
    if (!base)
        return {};
    qint64 next = *base + 1;
    while (used.contains(next)) {
        if (next > highestTag)
            return {};
        ++next;
    }
    return next > highestTag ? QString() : QString::number(next);
}

QList<ExistingVLAN> AppModel::existingVLANs() const
{
    QList<ExistingVLAN> listed;
    for (const Row &row : vlanRows()) {
        const RowSource &source = row->source();
        ExistingVLAN entry;
        entry.id = source.id;
        entry.tag = source.tag ? QString::number(*source.tag) : QString();
        entry.name = source.name;
        entry.inLocation = source.hasService();
        entry.isOn = source.hasService() && source.enabled;
        entry.mode = source.hasService() ? modeWord(source.ip.mode) : QString();
        entry.isManual = source.ip.mode == IPMode::manual;
        if (entry.isManual) {
            entry.address = source.ip.address.value_or(QString());
            entry.subnetMask = source.ip.subnetMask.value_or(QString());
            entry.router = source.ip.router.value_or(QString());
        } else if (const std::optional<LiveState::Address> &holds = row->holds()) {
            entry.address = holds->address;
            entry.subnetMask = holds->subnetMask.value_or(QString());
            entry.router = holds->router.value_or(QString());
        }
        entry.dns = source.ip.dns.join(u", "_s);
        listed.append(entry);
    }
    return listed;
}

QList<AdapterChoice> AppModel::buildAdapterChoices() const
{
    QList<AdapterChoice> choices;
    bool selectedIsListed = false;
    for (const AdapterRecord &adapter : m_adapters) {
        const QString name = adapter.serviceName && !adapter.serviceName->isEmpty()
                                 ? *adapter.serviceName
                                 : adapter.displayName;
        choices.append({adapter.bsdName, adapter.bsdName + u" — "_s + name});
        selectedIsListed = selectedIsListed || adapter.bsdName == m_selectedAdapter;
    }
    if (!m_selectedAdapter.isEmpty() && !selectedIsListed) {
        QString label = m_selectedAdapter;
        const auto seen = m_adapterNamesSeen.constFind(m_selectedAdapter);
        if (seen != m_adapterNamesSeen.constEnd())
            label += u" — "_s + *seen;
        choices.append({m_selectedAdapter, label + u" (absent)"_s});
    }
    return choices;
}

const AdapterRecord *AppModel::selectedAdapterRecord() const
{
    const auto found =
        std::find_if(m_adapters.begin(), m_adapters.end(), [&](const AdapterRecord &adapter) {
            return adapter.bsdName == m_selectedAdapter;
        });
    return found == m_adapters.end() ? nullptr : &*found;
}

bool AppModel::selectedAdapterNeedsName() const
{
    const AdapterRecord *adapter = selectedAdapterRecord();
    if (!adapter)
        return false;
    // A hardware name is no name of the user's; one of the user's may still be too long.
    if (adapter->isNamed())
        return characterCount(*adapter->serviceName) > 18;
    return true;
}

std::optional<QString> AppModel::selectedAdapterNameHint() const
{
    const AdapterRecord *adapter = selectedAdapterRecord();
    if (!adapter)
        return std::nullopt;
    return adapter->isNamed() ? u"Shorten this name"_s : u"Name this adapter"_s;
}

bool AppModel::selectedAdapterIsPresent() const
{
    const AdapterRecord *adapter = selectedAdapterRecord();
    return adapter && adapter->present;
}

std::optional<QString> AppModel::buildAdapterProblem() const
{
    if (selectedAdapterIsPresent())
        return std::nullopt;
    const bool anyPresent =
        std::any_of(m_adapters.begin(), m_adapters.end(),
                    [](const AdapterRecord &adapter) { return adapter.present; });
    if (m_selectedAdapter.isEmpty() || !anyPresent)
        return u"No VLAN-capable adapter is attached. Plug one in"_s;
    return m_selectedAdapter
           + u" isn't attached. Plug it in, or choose another adapter under Build on,"_s;
}

QHash<QUuid, QString> AppModel::issues() const
{
    QHash<qint64, const VLANRecord *> existingByTag;
    for (const VLANRecord &vlan : m_existing)
        existingByTag.insert(vlan.tag, &vlan);
    QHash<QUuid, QString> found;
    QHash<qint64, QUuid> seen;
    for (const DraftRow &draft : m_drafts) {
        if (draft->isBlank())
            continue;
        const std::optional<qint64> tag = draft->tagValue();
        if (!tag) {
            found.insert(draft->id(), u"Tag must be a number."_s);
            continue;
        }
        if (*tag < 1 || *tag > highestTag) {
            found.insert(draft->id(), u"Tag must be between 1 and 4094."_s);
            continue;
        }
        const QString number = QString::number(*tag);
        if (const VLANRecord *vlan = existingByTag.value(*tag)) {
            found.insert(draft->id(), vlan->serviceID
                                          ? u"VLAN "_s + number + u" already exists on this Mac."_s
                                          : u"VLAN "_s + number + u" is on this Mac but not in "_s
                                                + m_selectedLocation
                                                + u". Add it on the Current tab."_s);
            continue;
        }
        if (const auto earlier = seen.constFind(*tag); earlier != seen.constEnd()) {
            const QString duplicate = u"Duplicate of another row."_s;
            found.insert(draft->id(), duplicate);
            found.insert(*earlier, duplicate);
            continue;
        }
        seen.insert(*tag, draft->id());
        if (const std::optional<QString> issue = manualIssue(*draft))
            found.insert(draft->id(), *issue);
    }
    return found;
}

bool AppModel::canBuild() const
{
    return !buildableDrafts().isEmpty() && issues().isEmpty() && !m_selectedAdapter.isEmpty()
           && selectedAdapterIsPresent();
}
