#include "VLANKit/machine/MachineIdentity.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/machine/MachineFacts.h"

#include <QCryptographicHash>

namespace VLANKit {

namespace {

/// The first six bytes of the SHA-256 digest of the identifier's UTF-8 bytes, as it stands:
/// no salt, no trimming, no change of case.
QString markFromHardwareUUID(const std::optional<QString> &uuid)
{
    if (!uuid || uuid->isEmpty())
        return {};
    const QByteArray digest = QCryptographicHash::hash(uuid->toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(digest.left(6).toHex());
}

} // namespace

MachineIdentity MachineIdentity::current(const MachineFacts &facts)
{
    return MachineIdentity{facts.machineDisplayName(), markFromHardwareUUID(facts.hardwareUUID())};
}

bool MachineIdentity::made(const HostAssignment &assignment) const
{
    if (!id.isEmpty())
        return assignment.machineID == id;
    return canonicallyEqual(assignment.machine, name);
}

bool MachineIdentity::mayHaveMade(const HostAssignment &assignment) const
{
    return !id.isEmpty() && !assignment.machineID && canonicallyEqual(assignment.machine, name);
}

bool MachineIdentity::didNotMake(const HostAssignment &assignment) const
{
    if (!id.isEmpty() && assignment.machineID)
        return *assignment.machineID != id;
    return !canonicallyEqual(assignment.machine, name);
}

} // namespace VLANKit
