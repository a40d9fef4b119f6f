// The build: the good drafts become a plan that is shown, and on confirmation one transaction.
#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Counted.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/store/NetworkAuthorization.h"
#include "VLANKit/store/VLANStore.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace VLANKit;

void AppModel::writeWithRight(const std::function<void(VLANStore &)> &work, bool selectShown)
{
    NetworkAuthorization authorization(m_platform);
    authorization.acquire();
    VLANStore store(m_platform, authorization);
    if (selectShown && !m_selectedLocation.isEmpty())
        store.selectLocation(m_selectedLocation);
    work(store);
}

void AppModel::preparePlan()
{
    try {
        const std::unique_ptr<VLANStore> store = openStore();
        if (!m_selectedLocation.isEmpty())
            store->selectLocation(m_selectedLocation);
        Profile profile{.name = u"Orvane build"_s};
        for (const DraftRow &draft : buildableDrafts()) {
            if (const std::optional<qint64> tag = draft->tagValue())
                profile.entries.append({*tag, draft->effectiveName(), draft->ipConfig(), true});
        }
        setPendingPlan(
            PendingPlan{QUuid::createUuid(), store->planApply(profile, m_selectedAdapter)});
    } catch (const std::exception &failure) {
        fail(failure);
    }
}

void AppModel::commitPendingPlan()
{
    if (!m_pendingPlan)
        return;
    // The plan is gone whatever happens: after a failure the user builds again.
    const Plan plan = m_pendingPlan->plan;
    setPendingPlan(std::nullopt);
    try {
        writeWithRight([&](VLANStore &store) { store.execute(plan); });
    } catch (const std::exception &failure) {
        fail(failure);
        return;
    }
    const qsizetype count = plan.changes.size();
    const bool built =
        std::any_of(plan.changes.begin(), plan.changes.end(), [](const PlannedChange &change) {
            return change.as<PlannedChange::CreateVLAN>() != nullptr;
        });
    // Every change counts as a VLAN built, whatever else it did.
    const QString message =
        built ? u"Built "_s + counted(count, u"VLAN"_s) + u" on "_s + plan.adapterBSD + u"."_s
              : u"Applied "_s + counted(count, u"change"_s) + u"."_s;
    succeed(message);
    if (built) {
        setDrafts({std::make_shared<Draft>()});
        setTab(AppTab::current);
    }
    reloadAfterSettling(false);
}

QString AppModel::receipt(const QList<PlannedChange> &changes)
{
    constexpr qsizetype listedInFull = 7;
    constexpr qsizetype listedAtMost = 5;
    QStringList lines;
    const qsizetype count = changes.size();
    const qsizetype listed = count < listedInFull ? count : listedAtMost;
    for (qsizetype index = 0; index < listed; ++index)
        lines.append(changes.at(index).completed());
    if (count < listedInFull)
        return lines.join(u'\n');
    return QString::number(count) + u" changes applied:\n"_s + lines.join(u'\n') + u"\n… and "_s
           + QString::number(count - listedAtMost) + u" more."_s;
}
