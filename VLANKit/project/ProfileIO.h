#pragma once

#include "VLANKit/project/Profile.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// Reading and writing project files. A file that anybody hands the program gives either the
/// whole project or one sentence that names the file and what is wrong; a write never loses
/// the file that was there.
namespace VLANKit::ProfileIO {

/// Writes the project's JSON atomically: the old file, if any, stays whole until the new one
/// has fully landed. Throws `VLANError` with the file's sentence when it can't be written.
void write(const Profile &profile, const QString &path);

/// Reads the whole file and decodes it, with no fallback of any kind. Throws `VLANError` with
/// the file's sentence when anything required is missing or of the wrong type.
[[nodiscard]] Profile read(const QString &path);

/// The bytes that `write` puts in the file.
[[nodiscard]] QByteArray encoded(const Profile &profile);

/// The profile that the bytes hold; `path` names the file in the sentence of a failure.
[[nodiscard]] Profile decoded(const QByteArray &bytes, const QString &path);

} // namespace VLANKit::ProfileIO
