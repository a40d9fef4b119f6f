#pragma once

#include "OrvaneApp/drive/VolumeFacts.h"

#include <QString>

#include <optional>

/// The care taken when the program runs from a drive that can be taken away: at start-up,
/// before any window or other thread exists, it decides whether the drive can go and, if so,
/// arms two endings that let the system end the process at once when it goes.
namespace DriveCare {

/// What care was taken.
struct Care
{
    /// The volume that can go.
    QString volume;
    /// The watch on the running file was armed.
    bool closesWhenPulled = false;

    friend bool operator==(const Care &, const Care &) = default;
};

/// The steps that arm the endings and tell of it; tests give their own to see the order.
struct Endings
{
    void (*armBusError)() = nullptr;
    int (*armWatch)(const char *path) = nullptr;
    void (*log)(bool closesWhenPulled) = nullptr;
};

/// The system's own endings and the system's log.
[[nodiscard]] Endings systemEndings();

/// Judges the volume of `bundle` and, when it can go, arms the endings on `executable`.
[[nodiscard]] std::optional<Care> begin(const QString &bundle, const QString &executable);

/// `begin` on facts already read, with the given endings.
[[nodiscard]] std::optional<Care> armFor(const std::optional<VolumeFacts> &facts,
                                         const QString &executable, const Endings &endings);

/// `begin` for this program, its result kept in `current`. Called once, first of all.
void beginForThisApp();

/// The care `beginForThisApp` took; absent when it found no drive that can go.
[[nodiscard]] const std::optional<Care> &current();

/// Where this program lies: what the user moved onto the drive (on Linux the executable file
/// itself, its links resolved), and the file whose pages the process runs from.
[[nodiscard]] std::optional<QString> bundleOfThisApp();
[[nodiscard]] std::optional<QString> executableOfThisApp();

/// The one log line, with its flag written as "true" or "false".
[[nodiscard]] QString logLine(bool closesWhenPulled);

} // namespace DriveCare
