#pragma once

#include <QStringList>
#include <QVariant>
#include <QVariantMap>

namespace VLANKit {

/// The network preferences as one tree of dictionaries, addressed by paths of keys, with the
/// rules of the system's path calls: dictionaries on the way are made as needed, and removing
/// a key also removes every dictionary that it leaves empty, up to the top-level key.
///
/// Changing a value deep in the tree copies only the dictionaries on its path that are shared
/// with another copy of the tree, and each of them once: a session that keeps the tree it read
/// beside the one it changes pays for each shared dictionary the first time only.
class PreferencesDocument
{
public:
    PreferencesDocument() = default;
    explicit PreferencesDocument(QVariantMap root)
        : m_root(std::move(root))
    {}

    [[nodiscard]] const QVariantMap &root() const { return m_root; }

    /// The value at the path; null when a key is missing or a step on the way is no dictionary.
    [[nodiscard]] const QVariant *value(const QStringList &path) const;
    /// The dictionary at the path, or null.
    [[nodiscard]] const QVariantMap *map(const QStringList &path) const;

    /// The dictionary at the path for changing in place, with missing dictionaries on the way
    /// made empty; null when a step on the way, or the end, holds something else.
    [[nodiscard]] QVariantMap *mutableMap(const QStringList &path);
    /// The value at the path for changing in place, or null when there is none.
    [[nodiscard]] QVariant *mutableValue(const QStringList &path);
    /// Stores the value; false when a step on the way is no dictionary.
    bool setValue(const QStringList &path, const QVariant &value);
    /// Removes the last key of the path and prunes; false when there was nothing to remove.
    bool remove(const QStringList &path);

private:
    QVariantMap m_root;
};

/// A value in the form the file gives it back: lists of strings as lists of values, integers of
/// every width as 64-bit ones, throughout. What a session stages reads the same as what it
/// reads after a commit, as with the system's property lists.
[[nodiscard]] QVariant storedForm(const QVariant &value);

/// The dictionary inside a value for changing in place, or null when the value holds another
/// type. The value keeps its dictionary: nothing is copied unless it is shared.
[[nodiscard]] QVariantMap *mutableMapIn(QVariant &value);
/// The same for reading.
[[nodiscard]] const QVariantMap *mapIn(const QVariant &value);
/// The list inside a value for changing in place, or null.
[[nodiscard]] QVariantList *mutableListIn(QVariant &value);

} // namespace VLANKit
