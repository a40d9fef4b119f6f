#pragma once

#include <QList>

#include <optional>

namespace VLANKit {

/// A platform list as a plain list of handles: an absent list is empty, and null elements are
/// skipped.
template <typename Ref>
[[nodiscard]] QList<Ref> listOf(const std::optional<QList<Ref>> &list)
{
    QList<Ref> items;
    if (!list)
        return items;
    items.reserve(list->size());
    for (const Ref &item : *list) {
        if (item)
            items.append(item);
    }
    return items;
}

} // namespace VLANKit
