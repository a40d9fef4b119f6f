#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QVariant>

#include <optional>

/// Property lists as Qt values, through libplist: dictionaries are QVariantMap, arrays
/// QVariantList, integers qint64, reals double, booleans bool, strings QString, data
/// QByteArray and dates QDateTime in UTC.
namespace VLANKit {

struct PropertyListLimits
{
    qint64 maxBytes = 64 * 1024 * 1024;
    int maxDepth = 256;
};

/// Parses XML or binary property-list data. Absent when the data is no property list, or is
/// larger or deeper than the limits: libplist's parser is guarded, since a crash inside it
/// could not be mended here. A text or key that holds a NUL character is refused too: libplist
/// aborts on some, cuts others short, and could not write any of them back whole. Where the
/// data is refused for a reason a person can act on, `why` receives it as the end of a
/// sentence about the file ("it holds a NUL character inside a text").
[[nodiscard]] std::optional<QVariant>
parsePropertyList(const QByteArray &data, PropertyListLimits limits = {}, QString *why = nullptr);

/// Parses the rest of an open file or device; one larger than the limit is refused by its size,
/// before a byte of it is read, so that a huge file costs no memory.
[[nodiscard]] std::optional<QVariant>
parsePropertyList(QIODevice &device, PropertyListLimits limits = {}, QString *why = nullptr);

/// The value as an XML property list, with tab indentation as the system writes it.
/// Absent when the value holds something no property list can (a null, an unknown type, a
/// NUL character in a text or a key).
[[nodiscard]] std::optional<QByteArray> xmlPropertyList(const QVariant &value);

} // namespace VLANKit
