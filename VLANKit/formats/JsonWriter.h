#pragma once

#include <QByteArray>
#include <QJsonValue>

namespace VLANKit {

/// The bytes of a project file: UTF-8, two-space indentation, `"key" : value`, the keys of
/// every object sorted by code point. The same value always gives the same bytes.
[[nodiscard]] QByteArray prettyJson(const QJsonValue &value);

} // namespace VLANKit
