// A whole document folder (preferences.plist, NetworkInterfaces.plist and machine.toml, split
// at `FuzzInput::separator`) through every reader of the store, with each kept table checked
// against a fresh computation; then the plans, which may refuse but never crash.
#include "VLANKit/Platform.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/files/Defaults.h"
#include "VLANKit/store/VLANStore.h"
#include "fuzz/FuzzInput.h"
#include "tests/support/RefreshReads.h"

#include <QDir>

using namespace VLANKit;

namespace {

// Every version of the folder is a new folder: the backend keeps parsed documents by their
// file's signature, which two quick writes of the same size could share.
QString freshFolder()
{
    static int made = 0;
    const QString folder =
        FuzzInput::scratchFolder() + QStringLiteral("/machine-") + QString::number(++made);
    QDir().mkpath(folder);
    return folder;
}

void readEverything(VLANStore &store, const Defaults &defaults)
{
    for (const LocationRecord &location : store.locations()) {
        try {
            readAsARefreshDoes(store, location.name, defaults);
        } catch (const VLANError &) {
            // Only the choice of a Location may fail: its name may not be unique.
        }
        (void)store.serviceIndex();
        (void)store.serviceNameIndex();
        (void)store.orphanedParents();
        (void)store.activeLocation();
        (void)store.defaultInternetServiceIDs();
        (void)store.capture(QStringLiteral("Fuzz"));
    }
}

void planEverything(VLANStore &store)
{
    Profile profile;
    profile.name = QStringLiteral("Fuzz");
    profile.entries = {{1, QStringLiteral("one"), {}, true},
                       {4094, QStringLiteral("last"), {}, false}};
    for (const AdapterRecord &adapter : store.availableAdapters()) {
        try {
            (void)store.planApply(profile, adapter.bsdName);
            (void)store.planReparentAll(adapter.bsdName);
        } catch (const VLANError &) {
        }
    }
    QList<qint64> tags;
    for (const VLANRecord &vlan : store.vlans())
        tags.append(vlan.tag);
    try {
        (void)store.planDelete(tags, std::nullopt);
    } catch (const VLANError &) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    VLANStore::setVerifyingTables(true);
    const QList<QByteArray> files = FuzzInput::parts(data, size, 3);
    const QString folder = freshFolder();
    FuzzInput::writeOrRemove(folder + QStringLiteral("/preferences.plist"), files[0]);
    FuzzInput::writeOrRemove(folder + QStringLiteral("/NetworkInterfaces.plist"), files[1]);
    FuzzInput::writeOrRemove(folder + QStringLiteral("/machine.toml"), files[2]);
    const Defaults defaults = Defaults::inFile(folder + QStringLiteral("/defaults.plist"));
    try {
        const Platform platform = Platform::overFolder(folder);
        VLANStore store(platform);
        readEverything(store, defaults);
        planEverything(store);
    } catch (const VLANError &error) {
        FuzzInput::require(!error.errorDescription().isEmpty(), "a refusal says why");
    }
    QDir(folder).removeRecursively();
    return 0;
}
