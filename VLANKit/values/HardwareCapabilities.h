#pragma once

#include "VLANKit/values/HardwareSettings.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// A closed range of integers: both bounds belong to it.
struct ClosedRange
{
    qint64 lower = 0;
    qint64 upper = 0;

    [[nodiscard]] bool contains(qint64 value) const { return value >= lower && value <= upper; }
    friend bool operator==(const ClosedRange &, const ClosedRange &) = default;
};

/// What a driver offers, and what it runs at now.
struct HardwareCapabilities
{
    /// One media subtype that the driver offers, with the option combinations it accepts.
    struct Speed
    {
        QString name;
        QList<QStringList> duplexes;
        friend bool operator==(const Speed &, const Speed &) = default;
    };

    /// Absent when the frame size can't be set.
    std::optional<ClosedRange> mtuRange;
    std::optional<qint64> activeMTU;
    /// In the driver's order, without "autoselect".
    QList<Speed> speeds;
    std::optional<QString> activeSpeed;
    QStringList activeDuplex;

    /// Why this driver can't take the settings, or nothing when it can.
    [[nodiscard]] std::optional<QString> problem(const HardwareSettings &settings) const;

    friend bool operator==(const HardwareCapabilities &, const HardwareCapabilities &) = default;
};

} // namespace VLANKit
