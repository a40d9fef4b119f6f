#pragma once

#include <optional>
#include <stdexcept>
#include <string>

namespace VLANKit {

/// Whether every kept table is compared with a fresh computation at each use.
[[nodiscard]] bool verifyingTables();

/// A kept table, or a fresh one kept from now on. In the verifying mode a kept table is compared
/// with a fresh computation, through `describe`, which turns either into comparable values.
template <typename Table, typename Compute, typename Describe>
const Table &kept(std::optional<Table> &slot, const char *what, Compute compute, Describe describe)
{
    if (!slot) {
        slot = compute();
    } else if (verifyingTables() && describe(*slot) != describe(compute())) {
        throw std::logic_error(std::string("the store's kept table differs from a fresh one: ")
                               + what);
    }
    return *slot;
}

template <typename Table, typename Compute>
const Table &kept(std::optional<Table> &slot, const char *what, Compute compute)
{
    return kept(slot, what, compute, [](const Table &table) { return table; });
}

} // namespace VLANKit
