#pragma once

#include <QString>

namespace VLANKit {
class Defaults;
}

/// How the window is drawn: following the system, or always light or dark. Remembered under
/// "Orvane.appearance".
enum class Appearance { system, light, dark };

[[nodiscard]] QString rawValue(Appearance appearance);
/// The remembered appearance; a missing or unknown value reads as `system`.
[[nodiscard]] Appearance loadAppearance(const VLANKit::Defaults &defaults);
void saveAppearance(Appearance appearance, VLANKit::Defaults &defaults);
