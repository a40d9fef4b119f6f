#pragma once

#include <QString>

namespace VLANKit {
class Defaults;
class VLANStore;
} // namespace VLANKit

/// The reads of one refresh of the window, on one store: the Locations, the shown one selected,
/// the VLANs, adapters and services, the live addresses, every row's hardware offers and the
/// adapters' frame sizes, the adapters without service, the Internet marks with their holds,
/// the VLANs that outrank the internet, the recommended order and the adapter names to sync.
void readAsARefreshDoes(VLANKit::VLANStore &store, const QString &location,
                        const VLANKit::Defaults &defaults);
