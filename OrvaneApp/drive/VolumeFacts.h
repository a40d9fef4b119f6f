#pragma once

#include <QString>

#include <optional>

namespace DriveCare {

/// What the system says of the volume that holds a file. An absent optional is a third state,
/// "not said", and is kept as such: it matters to `canBeTakenAway` and the proof prints it.
struct VolumeFacts
{
    /// The root of the volume (its mount point).
    QString volume;
    bool isRoot = false;
    std::optional<bool> isInternal;
    std::optional<bool> isRemovable;
    std::optional<bool> isEjectable;
    std::optional<bool> isLocal;

    friend bool operator==(const VolumeFacts &, const VolumeFacts &) = default;

    /// Whether the volume can go while the program runs. The order of the rules is the point:
    /// the root stays whatever else it reports, and a volume of which nothing is known stays.
    [[nodiscard]] bool canBeTakenAway() const;

    /// The facts of the volume holding `path`; absent when the system can't say which volume
    /// that is. Each system has its own half.
    [[nodiscard]] static std::optional<VolumeFacts> read(const QString &path);
};

} // namespace DriveCare
