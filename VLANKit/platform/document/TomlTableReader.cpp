#include "VLANKit/platform/document/TomlTableReader.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace VLANKit {

QString fromToml(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

TomlTableReader::TomlTableReader(const toml::table &table, QString path, QString keyPrefix)
    : m_table(&table)
    , m_path(std::move(path))
    , m_prefix(std::move(keyPrefix))
{}

void TomlTableReader::fail(const toml::node *node, const QString &key, const QString &what) const
{
    const toml::node &at = node ? *node : static_cast<const toml::node &>(*m_table);
    throw VLANError::operationFailed(
        curlyQuoted(m_path) + u" can\u2019t be read: line %1, key "_s.arg(at.source().begin.line)
        + curlyQuoted(m_prefix + key) + u": "_s + what + u"."_s);
}

void TomlTableReader::allowOnly(std::initializer_list<const char *> keys) const
{
    QSet<QString> allowed;
    for (const char *key : keys)
        allowed.insert(QString::fromLatin1(key));
    for (auto &&[key, node] : *m_table) {
        if (!allowed.contains(fromToml(key.str())))
            fail(&node, fromToml(key.str()), u"there is no such key"_s);
    }
}

std::optional<QString> TomlTableReader::string(const char *key) const
{
    const toml::node *found = node(key);
    if (!found)
        return std::nullopt;
    if (!found->is_string())
        fail(found, QString::fromLatin1(key), u"expected text in quotes"_s);
    return fromToml(found->as_string()->get());
}

QString TomlTableReader::requiredString(const char *key) const
{
    if (auto text = string(key); text && !text->isEmpty())
        return *text;
    fail(node(key), QString::fromLatin1(key), u"this key is needed and can\u2019t be empty"_s);
}

std::optional<qint64> TomlTableReader::integer(const char *key) const
{
    const toml::node *found = node(key);
    if (!found)
        return std::nullopt;
    if (!found->is_integer())
        fail(found, QString::fromLatin1(key), u"expected a whole number"_s);
    return found->as_integer()->get();
}

std::optional<bool> TomlTableReader::boolean(const char *key) const
{
    const toml::node *found = node(key);
    if (!found)
        return std::nullopt;
    if (!found->is_boolean())
        fail(found, QString::fromLatin1(key), u"expected true or false"_s);
    return found->as_boolean()->get();
}

std::optional<QStringList> TomlTableReader::strings(const toml::node *found,
                                                    const QString &key) const
{
    if (!found)
        return std::nullopt;
    const toml::array *array = found->as_array();
    if (!array)
        fail(found, key, u"expected a list of texts in quotes"_s);
    QStringList list;
    for (const toml::node &element : *array) {
        if (!element.is_string())
            fail(&element, key, u"expected a list of texts in quotes"_s);
        list.append(fromToml(element.as_string()->get()));
    }
    return list;
}

std::array<int, 4> TomlTableReader::address(const char *key, bool required) const
{
    const std::optional<QString> text = required ? requiredString(key) : string(key);
    if (!text)
        return {};
    const auto quad = parseDottedQuad(*text);
    if (!quad)
        fail(node(key), QString::fromLatin1(key), u"expected an address such as 10.0.0.1"_s);
    return *quad;
}

std::optional<TomlTableReader> TomlTableReader::table(const char *key) const
{
    const toml::node *found = node(key);
    if (!found)
        return std::nullopt;
    if (!found->is_table())
        fail(found, QString::fromLatin1(key), u"expected a table"_s);
    return TomlTableReader(*found->as_table(), m_path, m_prefix + QString::fromLatin1(key) + u'.');
}

std::vector<TomlTableReader> TomlTableReader::tables(const char *key) const
{
    std::vector<TomlTableReader> readers;
    const toml::node *found = node(key);
    if (!found)
        return readers;
    const toml::array *array = found->as_array();
    if (!array)
        fail(found, QString::fromLatin1(key), u"expected [[%1]] tables"_s.arg(QLatin1String(key)));
    for (const toml::node &element : *array) {
        if (!element.is_table())
            fail(&element, QString::fromLatin1(key),
                 u"expected [[%1]] tables"_s.arg(QLatin1String(key)));
        const QString prefix = u"%1[%2]."_s.arg(QLatin1String(key)).arg(readers.size() + 1);
        readers.push_back(TomlTableReader(*element.as_table(), m_path, m_prefix + prefix));
    }
    return readers;
}

} // namespace VLANKit
