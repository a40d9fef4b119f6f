#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/files/Defaults.h"
#include "VLANKit/internet/InternetMemory.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Confirmation.h"
#include "orvanectl/Output.h"
#include "orvanectl/Sessions.h"

#include <QHash>
#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace Orvanectl {

namespace {

/// The services of a Location in rank order, with what the ticks and the policy say of them.
struct OrderView
{
    QList<ServiceRecord> services;
    QHash<QString, InternetMarks::Candidate> candidates;
    QSet<QString> internet;
    QList<ServiceRecord> outranking;

    [[nodiscard]] QStringList rankLines() const
    {
        QList<QStringList> rows{
            {u"RANK"_s, u"INTERNET"_s, u"NAME"_s, u"DEVICE"_s, u"TAG"_s, u"ON"_s}};
        for (qsizetype rank = 0; rank < services.size(); ++rank) {
            const ServiceRecord &service = services.at(rank);
            const InternetMarks::Candidate candidate = candidates.value(service.serviceID);
            rows.append({QString::number(rank + 1),
                         internet.contains(service.serviceID) ? u"yes"_s : u"no"_s, service.name,
                         orDash(candidate.device),
                         service.vlanTag ? QString::number(*service.vlanTag) : notReported(),
                         service.enabled ? u"on"_s : u"off"_s});
        }
        return services.isEmpty() ? QStringList{u"No services."_s} : table(rows);
    }

    [[nodiscard]] QString outrankingLine() const
    {
        if (outranking.isEmpty())
            return u"No VLAN outranks the way to the internet."_s;
        QStringList names;
        for (const ServiceRecord &service : outranking)
            names.append(curlyQuoted(service.name));
        return (outranking.size() == 1 ? u"1 VLAN outranks"_s
                                       : counted(outranking.size(), u"VLAN"_s) + u" outrank"_s)
               + u" the way to the internet: "_s + names.join(u", "_s) + u'.';
    }

    [[nodiscard]] QJsonArray servicesJson() const
    {
        QJsonArray array;
        for (qsizetype rank = 0; rank < services.size(); ++rank) {
            const ServiceRecord &service = services.at(rank);
            array.append(
                QJsonObject{{u"rank"_s, rank + 1},
                            {u"name"_s, service.name},
                            {u"serviceID"_s, service.serviceID},
                            {u"device"_s, jsonText(candidates.value(service.serviceID).device)},
                            {u"tag"_s, jsonNumber(service.vlanTag)},
                            {u"vlan"_s, service.isVLAN},
                            {u"on"_s, service.enabled},
                            {u"internet"_s, internet.contains(service.serviceID)}});
        }
        return array;
    }

    [[nodiscard]] QJsonArray outrankingJson() const
    {
        QJsonArray array;
        for (const ServiceRecord &service : outranking)
            array.append(QJsonObject{{u"name"_s, service.name},
                                     {u"serviceID"_s, service.serviceID},
                                     {u"tag"_s, jsonNumber(service.vlanTag)}});
        return array;
    }
};

OrderView viewOf(const VLANStore &store, const QHash<QString, InternetMarks::Candidate> &candidates,
                 const QSet<QString> &internet)
{
    return {store.services(), candidates, internet, store.vlansOutrankingInternet(internet)};
}

QStringList idsOf(const QList<ServiceRecord> &services)
{
    QStringList ids;
    for (const ServiceRecord &service : services)
        ids.append(service.serviceID);
    return ids;
}

} // namespace

int showOrder(const Invocation &invocation, const Platform &platform)
{
    const std::optional<QString> location = invocation.value(u"--location"_s);
    const auto store = readingStore(platform, location);
    const QString name = locationName(*store);
    // The ticks are the ones the window remembers for this Location; orvanectl only reads them.
    QHash<QString, InternetMarks::Candidate> candidates;
    const QList<InternetMarks::Candidate> holding = store->internetCandidates();
    for (const InternetMarks::Candidate &candidate : holding)
        candidates.insert(candidate.serviceID, candidate);
    const auto active = store->activeLocation();
    const QSet<QString> internet =
        InternetMemory::marks(active ? active->name : QString(), holding, Defaults::standard())
            .internetServiceIDs();

    OrderView view = viewOf(*store, candidates, internet);
    const QList<ServiceRecord> recommended = store->recommendedOrder(internet);
    const bool fixing = invocation.has(u"--fix"_s);
    const bool needsFix = idsOf(recommended) != idsOf(view.services);

    QStringList preview{u"Service order of Location "_s + curlyQuoted(name)
                        + u", highest first:"_s};
    preview += view.rankLines();
    preview += {QString(), view.outrankingLine()};
    if (fixing && needsFix) {
        preview += {QString(), u"The recommended order:"_s};
        preview += OrderView{recommended, candidates, internet, {}}.rankLines();
    } else if (fixing) {
        preview += u"Nothing to do: the order is already the recommended one."_s;
    }
    const bool asking = fixing && needsFix && !invocation.has(u"--yes"_s);
    if (!invocation.json)
        writeLines(preview);
    else if (asking)
        writeError(preview.join(u'\n') + u'\n');

    bool changed = false;
    if (fixing && needsFix) {
        if (asking)
            confirm(u"Put the services in the recommended order?"_s);
        WritingSession session(platform, location);
        // Absent when the order became the recommended one in the meantime.
        if (session.store().applyRecommendedOrder(internet)) {
            session.store().commit();
            changed = true;
        }
        view = viewOf(session.store(), candidates, internet);
    }

    if (invocation.json) {
        writeJson({{u"location"_s, name},
                   {u"services"_s, view.servicesJson()},
                   {u"outranking"_s, view.outrankingJson()},
                   {u"changed"_s, changed}});
        return 0;
    }
    if (fixing && needsFix)
        writeLines({QString(), changed ? u"The services now stand in the recommended order."_s
                                       : u"Nothing to do: the order already was the recommended "
                                         u"one."_s});
    return 0;
}

} // namespace Orvanectl
