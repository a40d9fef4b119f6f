#include "VLANKit/internet/InternetMarks.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/formats/AnyValue.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

using Mark = InternetMarks::Mark;
using Candidate = InternetMarks::Candidate;

/// Both have a device, the devices are equal, and so are the tags, two absent tags included:
/// an adapter's mark without a tag can follow the adapter whose service was replaced.
bool sameVLAN(const std::optional<qint64> &tag, const std::optional<QString> &device,
              const Mark &mark)
{
    return device && mark.device && *device == *mark.device && tag == mark.tag;
}

/// The answer for one candidate: the first rule that applies.
bool answer(const Candidate &candidate, const std::optional<QList<Mark>> &remembered,
            const std::optional<QSet<QString>> &tickedBefore, const QHash<QString, Mark> &byID,
            const QList<Mark> &departed)
{
    if (!remembered) {
        if (!tickedBefore)
            return candidate.guess;
        if (tickedBefore->contains(candidate.serviceID))
            return true;
        // A VLAN that the old list doesn't name may be newer than the list; an adapter that it
        // doesn't name was left unticked on purpose.
        return candidate.tag ? candidate.guess : false;
    }
    if (const auto found = byID.constFind(candidate.serviceID); found != byID.constEnd())
        return found->internet;
    if (candidate.device) {
        for (const Mark &mark : departed) {
            if (sameVLAN(candidate.tag, candidate.device, mark))
                return mark.internet;
        }
        if (candidate.tag) {
            // A VLAN moved to another adapter keeps its tick; of several old marks, a tick wins.
            bool anyWithTag = false;
            for (const Mark &mark : departed) {
                if (mark.tag == candidate.tag) {
                    if (mark.internet)
                        return true;
                    anyWithTag = true;
                }
            }
            if (anyWithTag)
                return false;
        }
    }
    return candidate.guess;
}

} // namespace

QVariantMap Mark::stored() const
{
    QVariantMap map{{u"id"_s, serviceID}, {u"internet"_s, internet}};
    if (tag)
        map.insert(u"tag"_s, *tag);
    if (device)
        map.insert(u"device"_s, *device);
    return map;
}

std::optional<Mark> Mark::fromStored(const QVariant &value)
{
    const auto map = anyMap(value);
    if (!map)
        return std::nullopt;
    const auto serviceID = stringIn(*map, u"id"_s);
    const auto internet = boolIn(*map, u"internet"_s);
    if (!serviceID || serviceID->isEmpty() || !internet)
        return std::nullopt;
    return Mark{*serviceID, integerIn(*map, u"tag"_s), stringIn(*map, u"device"_s), *internet};
}

InternetMarks InternetMarks::reconciled(const std::optional<QList<Mark>> &remembered,
                                        const std::optional<QSet<QString>> &tickedBefore,
                                        const QList<Candidate> &candidates)
{
    InternetMarks result;
    for (const Candidate &candidate : candidates)
        result.held.insert(candidate.serviceID);

    QHash<QString, Mark> byID;
    QList<Mark> departed;
    for (const Mark &mark : remembered.value_or(QList<Mark>{})) {
        if (!byID.contains(mark.serviceID))
            byID.insert(mark.serviceID, mark);
        if (!result.held.contains(mark.serviceID))
            departed.append(mark);
    }

    for (const Candidate &candidate : candidates) {
        result.marks.append(Mark{candidate.serviceID, candidate.tag, candidate.device,
                                 answer(candidate, remembered, tickedBefore, byID, departed)});
    }
    // A departed mark whose VLAN has come back under a new identifier has handed its answer on;
    // the others wait for their service to return.
    for (const Mark &mark : departed) {
        bool found = false;
        for (const Candidate &candidate : candidates)
            found = found || sameVLAN(candidate.tag, candidate.device, mark);
        if (!found)
            result.marks.append(mark);
    }
    return result;
}

QSet<QString> InternetMarks::internetServiceIDs() const
{
    QSet<QString> ids;
    for (const Mark &mark : marks) {
        if (mark.internet && held.contains(mark.serviceID))
            ids.insert(mark.serviceID);
    }
    return ids;
}

InternetMarks InternetMarks::marking(const QSet<QString> &ticked) const
{
    InternetMarks updated = *this;
    updated.held.unite(ticked);
    QStringList inOrder(ticked.cbegin(), ticked.cend());
    sortCanonically(inOrder);
    for (const QString &serviceID : inOrder) {
        const bool known =
            std::any_of(updated.marks.cbegin(), updated.marks.cend(),
                        [&](const Mark &mark) { return mark.serviceID == serviceID; });
        if (!known)
            updated.marks.append(Mark{serviceID, std::nullopt, std::nullopt, true});
    }
    for (Mark &mark : updated.marks) {
        if (updated.held.contains(mark.serviceID))
            mark.internet = ticked.contains(mark.serviceID);
    }
    return updated;
}

QList<QVariantMap> InternetMarks::stored() const
{
    QList<QVariantMap> maps;
    maps.reserve(marks.size());
    for (const Mark &mark : marks)
        maps.append(mark.stored());
    return maps;
}

std::optional<QList<Mark>> InternetMarks::marksFromStored(const std::optional<QVariant> &value)
{
    const auto list = value ? anyList(*value) : std::nullopt;
    if (!list)
        return std::nullopt;
    QList<Mark> marks;
    for (const QVariant &element : *list) {
        if (const auto mark = Mark::fromStored(element))
            marks.append(*mark);
    }
    return marks;
}

} // namespace VLANKit
