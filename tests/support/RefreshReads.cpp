#include "tests/support/RefreshReads.h"

#include "VLANKit/files/Defaults.h"
#include "VLANKit/internet/InternetMemory.h"
#include "VLANKit/machine/LiveState.h"
#include "VLANKit/store/VLANStore.h"

using namespace VLANKit;

void readAsARefreshDoes(VLANStore &store, const QString &location, const Defaults &defaults)
{
    (void)store.locations();
    store.selectLocation(location);
    (void)store.vlans();
    (void)store.availableAdapters();
    (void)store.services();
    (void)LiveState::read(store.platform());
    (void)store.adapterFrameRanges();
    // Every row's offers, adapters and VLANs alike, in one walk.
    (void)store.hardwareCapabilitiesByService();
    (void)store.adaptersWithoutService();
    const InternetMarks marks =
        InternetMemory::marks(location, store.internetCandidates(), defaults);
    (void)InternetMemory::holds(marks, location, defaults);
    const QSet<QString> internet = marks.internetServiceIDs();
    (void)store.vlansOutrankingInternet(internet);
    (void)store.recommendedOrder(internet);
    (void)store.planSyncAdapterNames(std::nullopt);
}
