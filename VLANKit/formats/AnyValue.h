#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>

#include <optional>

/// Typed readers of "anything": values of stored marks, live state, interface configurations
/// and property lists. Each looks at the stored type and never converts: the string "true" is
/// no boolean, and 1010.0 is no integer where an integer is asked for.
namespace VLANKit {

[[nodiscard]] std::optional<QString> anyString(const QVariant &value);
[[nodiscard]] std::optional<qint64> anyInteger(const QVariant &value);
[[nodiscard]] std::optional<double> anyReal(const QVariant &value);
[[nodiscard]] std::optional<bool> anyBool(const QVariant &value);
[[nodiscard]] std::optional<QByteArray> anyData(const QVariant &value);
[[nodiscard]] std::optional<QVariantList> anyList(const QVariant &value);
[[nodiscard]] std::optional<QVariantMap> anyMap(const QVariant &value);

/// A list whose every element is a string; one element of another type makes it no list.
[[nodiscard]] std::optional<QStringList> anyStringList(const QVariant &value);

/// The string elements of a list, in order, with everything else dropped.
[[nodiscard]] QStringList anyStringsOf(const QVariant &value);

/// The same readers, for one key of a map; a missing key reads as absent.
[[nodiscard]] std::optional<QString> stringIn(const QVariantMap &map, const QString &key);
[[nodiscard]] std::optional<qint64> integerIn(const QVariantMap &map, const QString &key);
[[nodiscard]] std::optional<bool> boolIn(const QVariantMap &map, const QString &key);
[[nodiscard]] std::optional<QByteArray> dataIn(const QVariantMap &map, const QString &key);
[[nodiscard]] std::optional<QVariantList> listIn(const QVariantMap &map, const QString &key);
[[nodiscard]] std::optional<QVariantMap> mapIn(const QVariantMap &map, const QString &key);
[[nodiscard]] std::optional<QStringList> stringListIn(const QVariantMap &map, const QString &key);

} // namespace VLANKit
