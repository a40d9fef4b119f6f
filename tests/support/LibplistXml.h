#pragma once

#include <QByteArray>
#include <QVariant>

#include <optional>

/// libplist's own XML for a tree of Qt values, built through a libplist tree: the reference that
/// VLANKit's own writer must match byte for byte.
namespace OrvaneTest {

[[nodiscard]] std::optional<QByteArray> libplistXml(const QVariant &value);

} // namespace OrvaneTest
