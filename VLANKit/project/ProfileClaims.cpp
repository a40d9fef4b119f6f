#include "VLANKit/core/TextRules.h"
#include "VLANKit/machine/MachineIdentity.h"
#include "VLANKit/project/Profile.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

/// A host as a number for ordering; one that is no base-10 integer counts as 0.
qint64 hostNumber(const HostAssignment &assignment)
{
    return parseInteger(assignment.host).value_or(0);
}

void sortByHost(QList<HostAssignment> &assignments)
{
    sortStably(assignments, [](const HostAssignment &a, const HostAssignment &b) {
        return hostNumber(a) < hostNumber(b);
    });
}

/// The pieces of a dotted address, empty pieces dropped.
QStringList addressPieces(const QString &address)
{
    return splitDroppingEmpty(address, u'.');
}

} // namespace

Profile::Claim Profile::Claim::own(HostAssignment assignment)
{
    return Claim{Kind::own, std::move(assignment)};
}

Profile::Claim Profile::Claim::sameName(HostAssignment assignment)
{
    return Claim{Kind::sameName, std::move(assignment)};
}

QList<HostAssignment> Profile::roster() const
{
    QList<HostAssignment> sorted = assignments.value_or(QList<HostAssignment>{});
    sortByHost(sorted);
    return sorted;
}

Profile::Claim Profile::claim(const MachineIdentity &machine) const
{
    const QList<HostAssignment> claims = roster();
    for (const HostAssignment &assignment : claims) {
        if (machine.made(assignment))
            return Claim::own(assignment);
    }
    for (const HostAssignment &assignment : claims) {
        if (machine.mayHaveMade(assignment))
            return Claim::sameName(assignment);
    }
    return Claim::none();
}

std::optional<QString> Profile::machine(const QString &takingHost) const
{
    const QString host = trimSpacesAndTabs(takingHost);
    for (const HostAssignment &assignment : roster()) {
        if (assignment.host == host)
            return assignment.machine;
    }
    return std::nullopt;
}

std::optional<HostAssignment> Profile::otherMachine(const QString &takingHost,
                                                    const MachineIdentity &than) const
{
    const QString host = trimSpacesAndTabs(takingHost);
    for (const HostAssignment &assignment : roster()) {
        if (assignment.host == host && than.didNotMake(assignment))
            return assignment;
    }
    return std::nullopt;
}

Profile Profile::recording(const MachineIdentity &machine, const QString &host) const
{
    const QString octet = trimSpacesAndTabs(host);
    // One machine has one claim, and one octet has one owner: the new claim replaces both.
    QList<HostAssignment> kept;
    for (const HostAssignment &assignment : roster()) {
        if (assignment.host != octet && !machine.made(assignment))
            kept.append(assignment);
    }
    kept.append(
        HostAssignment{octet, machine.name,
                       machine.id.isEmpty() ? std::nullopt : std::optional<QString>(machine.id)});
    sortByHost(kept);
    Profile updated = *this;
    updated.assignments = kept;
    return updated;
}

Profile Profile::saving(const std::optional<Profile> &over, const MachineIdentity &machine,
                        const QString &host) const
{
    Profile updated = *this;
    // A save must not lose the other machines' claims.
    if (over)
        updated.assignments = over->assignments;
    if (trimSpacesAndTabs(host).isEmpty())
        return updated;
    return updated.recording(machine, host);
}

QString Profile::suggestedHost() const
{
    QSet<qint64> taken;
    for (const HostAssignment &assignment : roster()) {
        if (const auto number = parseInteger(assignment.host))
            taken.insert(*number);
    }
    qint64 base = 68;
    if (!taken.isEmpty())
        base = *std::max_element(taken.cbegin(), taken.cend());
    else if (const auto written = parseInteger(hostOctet.value_or(QString())))
        base = *written;
    // Written as a comparison with 253 so that the largest integer doesn't overflow.
    if (base <= 253)
        return QString::number(base + 1);
    for (qint64 candidate = 1; candidate <= 254; ++candidate) {
        if (!taken.contains(candidate))
            return QString::number(candidate);
    }
    return QString();
}

std::optional<QString> Profile::detectedHostOctet() const
{
    std::optional<QString> agreed;
    bool disagree = false;
    for (const ProfileEntry &entry : entries) {
        if (entry.ip.mode != IPMode::manual || !entry.ip.address)
            continue;
        const QStringList pieces = addressPieces(*entry.ip.address);
        if (pieces.isEmpty())
            continue;
        if (!agreed)
            agreed = pieces.last();
        else if (*agreed != pieces.last())
            disagree = true;
    }
    // The addresses outvote the field; the field decides only when they can't agree.
    if (agreed && !disagree)
        return agreed;
    return hostOctet;
}

Profile Profile::rehosted(const QString &to) const
{
    const QString octet = trimSpacesAndTabs(to);
    if (!parseOctet(octet))
        return *this;
    Profile updated = *this;
    for (ProfileEntry &entry : updated.entries) {
        if (entry.ip.mode != IPMode::manual || !entry.ip.address)
            continue;
        QStringList pieces = addressPieces(*entry.ip.address);
        if (pieces.size() != 4)
            continue;
        // The octet goes in as typed: "+7" stays "+7".
        pieces[3] = octet;
        entry.ip.address = pieces.join(u'.');
    }
    updated.hostOctet = octet;
    return updated;
}

} // namespace VLANKit
