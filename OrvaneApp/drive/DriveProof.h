#pragma once

#include "OrvaneApp/drive/VolumeFacts.h"
#include "OrvaneApp/proof/RenderRequest.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// The drive proof: prints what drive care found and waits, so that a person or a script can
/// pull the drive under it and see how it ends. With "--work" each SIGUSR1 draws the main
/// window off screen, which touches many pages of the program. Plain value.
struct DriveProof
{
    /// "--no-care" was among the arguments.
    bool noCare = false;
    /// Where a picture is written on demand: the word after "--work".
    std::optional<QString> work;

    friend bool operator==(const DriveProof &, const DriveProof &) = default;

    /// Absent unless the arguments hold "--drive-proof".
    [[nodiscard]] static std::optional<DriveProof> parse(const QStringList &arguments);

    /// Draws one picture and answers the render proof's status.
    using Render = std::function<int(const RenderRequest &)>;

    /// Prints its lines, then runs the main loop, working on each SIGUSR1. Needs the
    /// application object. Answers 0 if the loop ever ends.
    [[nodiscard]] int run(const Render &render) const;

    /// What one SIGUSR1 does: the picture's status, or -1 when there is no "--work".
    [[nodiscard]] int workOnce(const Render &render) const;

    /// The line of volume facts: "drive-proof: volume /media/stick — internal no, …".
    [[nodiscard]] static QString factsLine(const DriveCare::VolumeFacts &facts);
    /// A fact as the proof prints it: "yes", "no" or "not said".
    [[nodiscard]] static QString stateWord(std::optional<bool> state);
};
