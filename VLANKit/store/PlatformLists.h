#pragma once

#include <QList>
#include <QStringList>
#include <QVariantList>

#include <optional>

namespace VLANKit {

/// The handles of a platform list, in order: an absent list is empty, and null elements are
/// skipped.
template <typename Ref>
[[nodiscard]] QList<Ref> presentHandles(const std::optional<QList<Ref>> &list)
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

/// Strings as a platform list value.
[[nodiscard]] inline QVariantList variantList(const QStringList &strings)
{
    QVariantList list;
    list.reserve(strings.size());
    for (const QString &string : strings)
        list.append(string);
    return list;
}

} // namespace VLANKit
