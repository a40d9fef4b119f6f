// Locations: making one, switching the machine to one, renaming and deleting. Each takes the
// right, makes one commit and moves the Internet memory along.
#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Counted.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/internet/InternetMemory.h"
#include "VLANKit/store/VLANStore.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString nameTaken = u"A Location with that name already exists."_s;

} // namespace

bool AppModel::locationNameTaken(const QString &name, const QString &except) const
{
    return std::any_of(m_locations.begin(), m_locations.end(), [&](const LocationRecord &each) {
        return each.name != except && caseBlindEqual(each.name, name);
    });
}

QString AppModel::editsLost() const
{
    const qsizetype dirty = dirtyRows().size();
    if (dirty == 0)
        return {};
    return u" The edits to "_s + counted(dirty, u"row"_s)
           + u" here that haven't been saved will be lost."_s;
}

void AppModel::beginCreatingLocation()
{
    setNewLocationName(QString());
    setSwitchToNewLocation(false);
    setNewLocationStart(m_selectedLocation.isEmpty() ? LocationStart::adaptersOnly()
                                                     : LocationStart::copy(m_selectedLocation));
    setNewLocationError(std::nullopt);
    setCreatingLocation(true);
}

std::optional<QString> AppModel::newLocationIssue() const
{
    const QString name = trimWhitespaceAndNewlines(m_newLocationName);
    if (!name.isEmpty() && locationNameTaken(name))
        return nameTaken;
    return std::nullopt;
}

bool AppModel::canCreateLocation() const
{
    return !trimWhitespaceAndNewlines(m_newLocationName).isEmpty() && !newLocationIssue();
}

QString AppModel::newLocationSwitchNote(bool switching) const
{
    if (!switching)
        return u"This Mac stays on "_s + m_selectedLocation
               + u". To work on the new Location, switch to it in the Location menu."_s;
    return u"This Mac switches to it as soon as it is made."_s + editsLost();
}

void AppModel::createLocation()
{
    const QString name = trimWhitespaceAndNewlines(m_newLocationName);
    const LocationStart start = m_newLocationStart;
    const bool switching = m_switchToNewLocation;
    setNewLocationError(std::nullopt);
    QString summary;
    try {
        writeWithRight(
            [&](VLANStore &store) {
                // The memory is written before the commit and stays if the commit fails.
                if (start.kind == LocationStart::Kind::adaptersOnly) {
                    store.createLocation(name, true);
                    InternetMemory::forget(name, m_defaults);
                    summary =
                        u"Created '"_s + name + u"' with a service for each attached adapter."_s;
                } else {
                    const LocationCopy copy = store.duplicateLocation(start.location, name);
                    InternetMemory::carry(start.location, name, copy.serviceIDs, m_defaults);
                    summary =
                        u"Created '"_s + name + u"' as a copy of '"_s + start.location + u"'."_s;
                }
                if (switching)
                    store.makeSelectedLocationCurrent();
                store.commit();
            },
            false);
    } catch (const std::exception &failure) {
        setNewLocationError(localizedDescription(failure));
        return;
    }
    setCreatingLocation(false);
    // The edits belong to the Location just left.
    if (switching)
        revertAll();
    reloadAfterSettling(false);
    succeed(summary
            + (switching ? u" This Mac is now using it."_s
                         : u" Choose it in the Location menu to switch this Mac to it."_s));
}

void AppModel::askToSwitch(const QString &name)
{
    const bool known =
        std::any_of(m_locations.begin(), m_locations.end(),
                    [&](const LocationRecord &location) { return location.name == name; });
    if (name == m_selectedLocation || !known)
        return;
    setSwitchingTo(name);
}

QString AppModel::switchDetail() const
{
    return u"Every adapter and VLAN takes the settings it has in that Location, straight away."_s
           + editsLost();
}

void AppModel::confirmSwitch()
{
    if (!m_switchingTo)
        return;
    const QString name = *m_switchingTo;
    setSwitchingTo(std::nullopt);
    const bool switched = switchAction ? switchAction(name) : makeActive(name);
    if (switched)
        revertAll();
}

bool AppModel::makeActive(const QString &name)
{
    try {
        writeWithRight(
            [&](VLANStore &store) {
                store.selectLocation(name);
                store.makeSelectedLocationCurrent();
                store.commit();
            },
            false);
    } catch (const std::exception &failure) {
        fail(failure);
        return false;
    }
    succeed(u"This Mac is now using '"_s + name + u"'."_s);
    // The Location on show follows the system's current one, through this read.
    reloadAfterSettling(false);
    return true;
}

void AppModel::beginRenamingLocation()
{
    setLocationBeingRenamed(m_selectedLocation);
    setLocationNewName(m_selectedLocation);
    setLocationRenameError(std::nullopt);
    setRenamingLocation(true);
}

std::optional<QString> AppModel::locationRenameIssue() const
{
    const QString name = trimWhitespaceAndNewlines(m_locationNewName);
    // The Location under rename is passed over, so that a change of case alone is allowed.
    if (!name.isEmpty() && locationNameTaken(name, m_locationBeingRenamed))
        return nameTaken;
    return std::nullopt;
}

bool AppModel::canRenameLocation() const
{
    const QString name = trimWhitespaceAndNewlines(m_locationNewName);
    return !name.isEmpty() && name != m_locationBeingRenamed && !locationRenameIssue();
}

void AppModel::commitLocationRename()
{
    const QString oldName = m_locationBeingRenamed;
    const QString newName = trimWhitespaceAndNewlines(m_locationNewName);
    setLocationRenameError(std::nullopt);
    try {
        writeWithRight(
            [&](VLANStore &store) {
                store.renameLocation(oldName, newName);
                store.commit();
            },
            false);
    } catch (const std::exception &failure) {
        setLocationRenameError(localizedDescription(failure));
        return;
    }
    InternetMemory::rename(oldName, newName, m_defaults);
    setRenamingLocation(false);
    succeed(u"Renamed '"_s + oldName + u"' to '"_s + newName + u"'."_s);
    reloadAfterSettling(false);
}

QList<LocationRecord> AppModel::deletableLocations() const
{
    QList<LocationRecord> deletable;
    for (const LocationRecord &location : m_locations) {
        if (!location.isCurrent)
            deletable.append(location);
    }
    return deletable;
}

QString AppModel::deleteDetail(const QString &name) const
{
    const auto found =
        std::find_if(m_locations.begin(), m_locations.end(),
                     [&](const LocationRecord &location) { return location.name == name; });
    const qint64 services = found == m_locations.end() ? 0 : found->serviceCount;
    // The verb stays "go" for one service too.
    return u"Its "_s + counted(services, u"service"_s) + u" go with it. "_s
           + u"The VLANs themselves stay on the Mac. This can't be undone."_s;
}

void AppModel::deleteLocation(const QString &name)
{
    try {
        writeWithRight(
            [&](VLANStore &store) {
                store.removeLocation(name);
                store.commit();
            },
            false);
    } catch (const std::exception &failure) {
        fail(failure);
        return;
    }
    InternetMemory::forget(name, m_defaults);
    succeed(u"Deleted the Location '"_s + name + u"'."_s);
    reloadAfterSettling(false);
}
