#pragma once

#include "VLANKit/platform/document/MachineDescription.h"

#include <QByteArray>
#include <QString>

namespace VLANKit {

/// Reads the hand-written description of a machine. What it can't read it refuses whole, with
/// one sentence that names the file, the line and the key: a person edits this file, and a
/// typo must not pass for a setting.
class MachineDescriptionReader
{
public:
    /// The description in the file; throws `VLANError` with the sentence.
    [[nodiscard]] static MachineDescription readFile(const QString &path);
    /// The description in the text, named `path` in sentences; throws `VLANError`.
    [[nodiscard]] static MachineDescription parse(const QByteArray &text, const QString &path);
};

} // namespace VLANKit
