#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace VLANKit {

/// Where a `Defaults` keeps its values: the system's own store on macOS, a property-list file
/// elsewhere and in tests.
class DefaultsBackend
{
public:
    virtual ~DefaultsBackend() = default;
    [[nodiscard]] virtual std::optional<QVariant> value(const QString &key) const = 0;
    virtual void setValue(const QString &key, const QVariant &value) = 0;
    virtual void remove(const QString &key) = 0;
};

/// The user's remembered settings, typed: data, strings, lists of strings and lists of maps.
/// Keys are kept verbatim, whatever characters a Location's name brings; a missing key and an
/// empty list stay different.
class Defaults
{
public:
    explicit Defaults(std::shared_ptr<DefaultsBackend> backend);

    /// The user's own defaults of this application.
    [[nodiscard]] static Defaults standard();
    /// Defaults kept in one property-list file, written atomically on every change.
    [[nodiscard]] static Defaults inFile(const QString &path);
    /// The file that `standard()` uses on systems without their own defaults store.
    [[nodiscard]] static QString standardFilePath();

    /// The stored value as it is, of whatever type: absent when the key is missing.
    [[nodiscard]] std::optional<QVariant> value(const QString &key) const;
    [[nodiscard]] std::optional<QByteArray> data(const QString &key) const;
    [[nodiscard]] std::optional<QString> string(const QString &key) const;
    /// A list whose elements are all strings; absent when missing or of another shape.
    [[nodiscard]] std::optional<QStringList> stringList(const QString &key) const;
    /// A list whose elements are all maps; absent when missing or of another shape.
    [[nodiscard]] std::optional<QList<QVariantMap>> mapList(const QString &key) const;

    void setData(const QString &key, const QByteArray &data);
    void setString(const QString &key, const QString &string);
    void setStringList(const QString &key, const QStringList &strings);
    void setMapList(const QString &key, const QList<QVariantMap> &maps);
    /// Stores a value as it is, of whatever type `value()` gave: for moving a key whole.
    void setValue(const QString &key, const QVariant &value);
    void remove(const QString &key);

private:
    std::shared_ptr<DefaultsBackend> m_backend;
};

} // namespace VLANKit
