// The Current tab's actions: the state of all edits, the bulk lists and `apply`, through which
// every change of the tab reaches the system.
#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Counted.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/store/VLANStore.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace VLANKit;

QList<AppModel::Row> AppModel::vlanRows() const
{
    QList<Row> vlans;
    for (const Row &row : m_rows) {
        if (row->source().isVLAN())
            vlans.append(row);
    }
    return vlans;
}

QList<AppModel::Row> AppModel::dirtyRows() const
{
    QList<Row> dirty;
    for (const Row &row : m_rows) {
        if (row->isDirty())
            dirty.append(row);
    }
    return dirty;
}

QList<PlannedChange> AppModel::allChanges() const
{
    QList<PlannedChange> changes;
    for (const Row &row : dirtyRows())
        changes.append(row->changes());
    return changes;
}

namespace {

QList<RowProblem> problemsOf(const QList<AppModel::Row> &rows)
{
    QList<RowProblem> problems;
    for (const AppModel::Row &row : rows) {
        if (const std::optional<ServiceEdit::Problem> problem = row->problem())
            problems.append({row, problem->message});
    }
    return problems;
}

} // namespace

QList<RowProblem> AppModel::rowProblems() const
{
    return problemsOf(dirtyRows());
}

EditStatus AppModel::editStatus() const
{
    const QList<Row> dirty = dirtyRows();
    const QList<RowProblem> problems = problemsOf(dirty);
    if (!problems.isEmpty()) {
        const RowSource &first = problems.first().row->source();
        const QString label = first.tag ? QString::number(*first.tag) : first.device;
        const QString count = problems.size() > 1
                                  ? QString::number(problems.size()) + u" rows can't be saved. "_s
                                  : QString();
        return {count + label + u" — "_s + problems.first().message, true};
    }
    if (dirty.isEmpty())
        return {u"No unsaved edits"_s, false};
    return {counted(dirty.size(), u"row"_s) + u" edited"_s, false};
}

void AppModel::apply(const QList<PlannedChange> &changes)
{
    if (changes.isEmpty())
        return;
    try {
        writeWithRight([&](VLANStore &store) { store.execute(Plan{notReported(), changes}); });
    } catch (const std::exception &failure) {
        fail(failure);
        // Nothing was written, so the touched rows meet the same sources and survive.
        reload(false);
        return;
    }
    succeed(receipt(changes));
    const auto removals =
        std::count_if(changes.begin(), changes.end(), [](const PlannedChange &change) {
            return change.as<PlannedChange::RemoveVLAN>() != nullptr;
        });
    // Deleting every VLAN must not be taken for an empty read.
    reloadAfterSettling(m_existing.size() <= removals);
}

void AppModel::revert(const Row &row)
{
    QList<Row> rows = m_rows;
    for (Row &each : rows) {
        if (each->source().id == row->source().id)
            each = each->reverted();
    }
    setRows(rows);
}

void AppModel::revertAll()
{
    QList<Row> rows = m_rows;
    for (Row &row : rows) {
        if (row->isTouched())
            row = row->reverted();
    }
    setRows(rows);
}

std::optional<LiveState::Address> AppModel::liveAddress(const Row &row) const
{
    const std::optional<QString> &serviceID = row->source().serviceID;
    if (!serviceID)
        return std::nullopt;
    const auto found = m_live.ipv4.constFind(*serviceID);
    return found == m_live.ipv4.constEnd() ? std::nullopt : std::optional(*found);
}

QList<AppModel::Row> AppModel::selectedRows() const
{
    QList<Row> selected;
    for (const Row &row : m_rows) {
        if (m_selectedIDs.contains(row->source().id))
            selected.append(row);
    }
    return selected;
}

void AppModel::toggleSelection(const Row &row)
{
    QSet<QString> ids = m_selectedIDs;
    if (!ids.remove(row->source().id))
        ids.insert(row->source().id);
    setSelectedIDs(ids);
}

QList<PlannedChange> AppModel::deleteSelectedChanges() const
{
    QList<PlannedChange> changes;
    for (const Row &row : selectedRows()) {
        const std::optional<VLANRecord> &vlan = row->source().vlan;
        if (row->source().isVLAN() && vlan)
            changes.append(PlannedChange::RemoveVLAN{vlan->tag, vlan->name, vlan->bsdName});
    }
    return changes;
}

QList<PlannedChange> AppModel::setSelectedEnabledChanges(bool enabled) const
{
    QList<PlannedChange> changes;
    for (const Row &row : selectedRows()) {
        const RowSource &source = row->source();
        if (!source.serviceID || source.enabled == enabled)
            continue;
        if (source.isVLAN() && source.vlan)
            changes.append(PlannedChange::SetEnabled{source.vlan->tag, source.vlan->bsdName,
                                                     source.name, enabled});
        else if (!source.isVLAN())
            changes.append(
                PlannedChange::SetServiceEnabled{*source.serviceID, source.name, enabled});
    }
    return changes;
}

QList<PlannedChange> AppModel::orphanReparentChanges(const QString &adapterBSD) const
{
    QList<PlannedChange> changes;
    for (const VLANRecord &vlan : m_existing) {
        if (!vlan.live)
            changes.append(PlannedChange::Reparent{vlan, vlan.parentBSD, adapterBSD});
    }
    return changes;
}

QList<PlannedChange> AppModel::addToLocationChanges() const
{
    QList<PlannedChange> changes;
    for (const Row &row : vlanRows()) {
        const std::optional<VLANRecord> &vlan = row->source().vlan;
        if (!row->source().hasService() && vlan)
            changes.append(PlannedChange::AddService{vlan->tag, vlan->bsdName, vlan->name});
    }
    return changes;
}
