#pragma once

#include <QStringList>

namespace VLANKit {
class Platform;
}

namespace Orvanectl {

struct Invocation;

/// Runs orvanectl with the arguments after the program's name, and answers the exit status:
/// 0 done or nothing to do, 1 a failure with its sentence on standard error, 2 a bad command
/// line with the usage.
[[nodiscard]] int run(const QStringList &arguments);

// The commands, one source each. Each answers its exit status or throws `VLANError`.
[[nodiscard]] int listVLANs(const Invocation &invocation, const VLANKit::Platform &platform);
[[nodiscard]] int listLocations(const Invocation &invocation, const VLANKit::Platform &platform);
[[nodiscard]] int planProject(const Invocation &invocation, const VLANKit::Platform &platform);
[[nodiscard]] int applyProject(const Invocation &invocation, const VLANKit::Platform &platform);
[[nodiscard]] int deleteVLANs(const Invocation &invocation, const VLANKit::Platform &platform);
[[nodiscard]] int captureProject(const Invocation &invocation, const VLANKit::Platform &platform);
[[nodiscard]] int showOrder(const Invocation &invocation, const VLANKit::Platform &platform);

} // namespace Orvanectl
