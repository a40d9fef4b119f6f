#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <toml++/toml.h>

#include <array>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

namespace VLANKit {

/// Reads one table of a TOML file, knowing where it stands, and refuses what it can't take
/// with one sentence that names the file, the line and the key.
class TomlTableReader
{
public:
    TomlTableReader(const toml::table &table, QString path, QString keyPrefix);

    /// Throws the sentence for a node of this table (the table itself when none).
    [[noreturn]] void fail(const toml::node *node, const QString &key, const QString &what) const;
    /// Every key must be one of these: a misspelt key would otherwise be quietly ignored.
    void allowOnly(std::initializer_list<const char *> keys) const;

    // Each key read as one type; a missing key reads as absent, any other type is refused.
    [[nodiscard]] const toml::node *node(const char *key) const { return m_table->get(key); }
    std::optional<QString> string(const char *key) const;
    QString requiredString(const char *key) const;
    std::optional<qint64> integer(const char *key) const;
    std::optional<bool> boolean(const char *key) const;
    std::optional<QStringList> strings(const toml::node *found, const QString &key) const;
    std::array<int, 4> address(const char *key, bool required) const;
    /// A nested table, read by its own reader.
    std::optional<TomlTableReader> table(const char *key) const;
    /// The tables of an array of tables, such as every [[interface]].
    std::vector<TomlTableReader> tables(const char *key) const;
    [[nodiscard]] const QString &path() const { return m_path; }

private:
    const toml::table *m_table;
    QString m_path;
    QString m_prefix;
};

/// A TOML text as a string.
[[nodiscard]] QString fromToml(std::string_view text);

} // namespace VLANKit
