#pragma once

#include <QString>

namespace Orvanectl {

/// Asks the question on standard error, so that standard output keeps only the command's
/// answer, and reads one line of standard input. Anything but "y" or "yes", or no answer at
/// all, throws `VLANError` with the sentence that nothing was changed.
void confirm(const QString &question);

} // namespace Orvanectl
