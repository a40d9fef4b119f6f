// Project files: saving the shown Location with this machine's host octet, and opening one into
// the Add tab's rows. Nothing here changes a system setting.
#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/project/ProfileIO.h"
#include "VLANKit/store/VLANStore.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace VLANKit;

void AppModel::loadProfile(const QString &path)
{
    Profile profile;
    try {
        profile = ProfileIO::read(path);
    } catch (const std::exception &failure) {
        fail(failure);
        return;
    }
    if (!profile.hasManualAddresses()) {
        populateDrafts(profile);
        return;
    }
    setImportHostOctet(hostToOffer(profile, m_thisMac, m_addressPlan.host));
    setPendingImportURL(path);
    setPendingImport(profile);
}

QString AppModel::hostToOffer(const Profile &in, const MachineIdentity &to, const QString &planHost)
{
    const Profile::Claim claim = in.claim(to);
    switch (claim.kind) {
    case Profile::Claim::Kind::own:
        return claim.assignment->host;
    case Profile::Claim::Kind::sameName:
        // A machine of that name may be another one: the user must say.
        return {};
    case Profile::Claim::Kind::none:
        break;
    }
    const QList<HostAssignment> roster = in.roster();
    const bool planHostTaken =
        std::any_of(roster.begin(), roster.end(),
                    [&](const HostAssignment &assignment) { return assignment.host == planHost; });
    return !planHost.isEmpty() && !planHostTaken ? planHost : in.suggestedHost();
}

std::optional<QString> AppModel::importHostIssue() const
{
    const QString host = trimWhitespaceAndNewlines(m_importHostOctet);
    if (host.isEmpty())
        return std::nullopt;
    if (!parseOctet(host))
        return u"Must be a number from 0 to 255."_s;
    if (!m_pendingImport)
        return std::nullopt;
    if (const std::optional<HostAssignment> other =
            m_pendingImport->otherMachine(host, m_thisMac)) {
        // The point stands before the octet: it is the last part of an address.
        if (other->machine == m_thisMac.name)
            return u"Host ."_s + host + u" is already assigned to another Mac named "_s
                   + other->machine + u"."_s;
        return u"Host ."_s + host + u" is already assigned to "_s + other->machine + u"."_s;
    }
    const QList<HostAssignment> roster = m_pendingImport->roster();
    const bool claimed =
        std::any_of(roster.begin(), roster.end(),
                    [&](const HostAssignment &assignment) { return assignment.host == host; });
    if (m_pendingImport->detectedHostOctet() == host && !claimed)
        return u"That's the machine this project was captured on — the addresses would collide."_s;
    return std::nullopt;
}

bool AppModel::canConfirmImport() const
{
    return !trimWhitespaceAndNewlines(m_importHostOctet).isEmpty() && !importHostIssue();
}

void AppModel::confirmImport()
{
    if (!m_pendingImport)
        return;
    const Profile profile = *m_pendingImport;
    const QString host = trimWhitespaceAndNewlines(m_importHostOctet);
    const std::optional<QString> path = m_pendingImportURL;
    setPendingImport(std::nullopt);
    setPendingImportURL(std::nullopt);
    if (path) {
        try {
            ProfileIO::write(profile.recording(m_thisMac, host), *path);
        } catch (const std::exception &failure) {
            // The rows are filled all the same; the user learns the file wasn't updated.
            setResult(BuildResult{QUuid::createUuid(), false,
                                  u"Loaded, but couldn't record host ."_s + host
                                      + u" in the project file: "_s
                                      + localizedDescription(failure)});
        }
    }
    AddressPlan plan = m_addressPlan;
    if (profile.addressPrefix && !profile.addressPrefix->isEmpty())
        plan = AddressPlan::fromPrefix(*profile.addressPrefix, host);
    else
        plan.host = host;
    setAddressPlan(plan);
    populateDrafts(profile.rehosted(host));
}

void AppModel::populateDrafts(const Profile &profile)
{
    QList<DraftRow> drafts;
    for (const ProfileEntry &entry : profile.entries) {
        auto draft = std::make_shared<Draft>(QString::number(entry.tag), entry.name);
        draft->setMode(entry.ip.mode == IPMode::manual ? IPMode::manual : IPMode::dhcp);
        draft->setAddress(entry.ip.address.value_or(QString()));
        draft->setRouter(entry.ip.router.value_or(QString()));
        draft->setSubnetMask(entry.ip.subnetMask.value_or(u"255.255.255.0"_s));
        draft->setDNS(entry.ip.dns.join(u", "_s));
        // Later changes of the plan must not rewrite the file's addresses.
        draft->setAutoAddress(false);
        drafts.append(draft);
    }
    if (drafts.isEmpty())
        drafts.append(std::make_shared<Draft>());
    setDrafts(drafts);
    setTab(AppTab::add);
}

void AppModel::saveProfile(const QString &path)
{
    Profile profile;
    try {
        const std::unique_ptr<VLANStore> store = openStore();
        if (!m_selectedLocation.isEmpty())
            store->selectLocation(m_selectedLocation);
        profile = store->capture(baseNameDroppingLastExtension(QFileInfo(path).fileName()));
    } catch (const std::exception &failure) {
        fail(failure);
        return;
    }
    profile.hostOctet =
        m_addressPlan.host.isEmpty() ? std::nullopt : std::optional(m_addressPlan.host);
    profile.addressPrefix =
        m_addressPlan.isUsable() ? std::optional(m_addressPlan.prefix()) : std::nullopt;
    std::optional<Profile> earlier;
    try {
        earlier = ProfileIO::read(path);
    } catch (const std::exception &) {
        // There is no earlier file to keep claims from.
    }
    profile = profile.saving(earlier, m_thisMac, m_addressPlan.host);
    profile.note = u"Captured from "_s + m_selectedLocation + u" by Orvane"_s;
    try {
        ProfileIO::write(profile, path);
    } catch (const std::exception &failure) {
        fail(failure);
    }
}
