#pragma once

#include <QByteArray>
#include <QVariant>

#include <optional>

/// Writes a property list held as Qt values straight to XML bytes, in the very layout that
/// libplist 2.2's `plist_to_xml` gives: tabs, `<dict/>` and `<array/>` when empty, only `<`,
/// `>` and `&` escaped, base64 lines whose width follows the depth, dates to the whole second.
/// Documents of thousands of VLANs are written at every commit and apply, and building a
/// libplist tree only to serialise it cost as much as writing the bytes.
namespace VLANKit::PropertyListXmlWriter {

/// Absent when the value holds something no property list can: a null, an unknown type, a
/// NUL character in a text or a key.
[[nodiscard]] std::optional<QByteArray> write(const QVariant &value);

} // namespace VLANKit::PropertyListXmlWriter
