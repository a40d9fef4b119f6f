#pragma once

#include <QByteArray>
#include <QString>

/// Writing a whole file so that a crash at any moment leaves the old file or the new one,
/// whole: a temporary file beside it, flushed to the disk, renamed over the old one, and the
/// folder flushed after the rename. What a killed write leaves goes at the next write.
namespace VLANKit {

/// Writes the bytes to the path atomically. On failure the old file stays as it was, no
/// temporary file is left behind, `errorText` (when given) holds the system's words and
/// `errorCode` (when given) its errno.
[[nodiscard]] bool writeFileAtomically(const QString &path, const QByteArray &bytes,
                                       QString *errorText = nullptr, int *errorCode = nullptr);

/// Removes the temporary files that writes of `path` left behind when their process was killed
/// before the rename ("<name>.new-" and six characters). A write in progress holds a lock on its
/// temporary file and keeps it. Every write calls this, so none outlives the next write.
void removeLeftoverTemporaries(const QString &path);

/// Flushes a file's data to the disk itself (F_FULLFSYNC where the system has it).
/// Returns 0, or the errno of the failure. Defined once per system.
[[nodiscard]] int flushToDisk(int fileDescriptor);

} // namespace VLANKit
