#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// What a service's interface is told about its wire. The system's "autoselect" is never held
/// here: it reads as `speed` absent.
struct HardwareSettings
{
    /// Absent means the driver's own frame size.
    std::optional<qint64> mtu;
    /// A media subtype word; absent means automatic selection.
    std::optional<QString> speed;
    /// The media options that go with `speed`; empty when `speed` is absent.
    QStringList duplex;

    [[nodiscard]] static HardwareSettings automatic() { return {}; }
    /// True when `mtu` and `speed` are both absent, whatever `duplex` holds.
    [[nodiscard]] bool isAutomatic() const { return !mtu && !speed; }
    /// "1000baseT full-duplex, MTU 9000", or "automatic".
    [[nodiscard]] QString summary() const;

    friend bool operator==(const HardwareSettings &, const HardwareSettings &) = default;
};

} // namespace VLANKit
