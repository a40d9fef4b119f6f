#pragma once

#include "OrvaneApp/model/Appearance.h"

#include <QPalette>

/// Light and dark as two Fusion palettes: Qt 6.4 has no colour-scheme call, so "Follow
/// System" is light wherever the platform reports nothing.
class AppearancePalette
{
public:
    [[nodiscard]] static QPalette light();
    [[nodiscard]] static QPalette dark();
    /// The palette for an appearance; `system` follows what the platform's style reports.
    [[nodiscard]] static QPalette forAppearance(Appearance appearance);
    /// Sets Fusion and the appearance's palette on the running application.
    static void apply(Appearance appearance);
};
