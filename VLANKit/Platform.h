#pragma once

#include "VLANKit/machine/MachineFacts.h"
#include "VLANKit/platform/PlatformBackend.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace VLANKit {

/// The process's one choice of backend, handed to everything that reads the platform: stores,
/// live state, the kernel look-up, the watcher, the authorization and the machine's identity.
/// A plain value: copies share the backend.
class Platform
{
public:
    explicit Platform(std::shared_ptr<PlatformBackend> backend,
                      std::optional<QString> documentFolder = std::nullopt);

    /// The document backend over a folder shaped like the system's SystemConfiguration folder;
    /// throws `VLANError` with a sentence naming what can't be read.
    [[nodiscard]] static Platform overFolder(const QString &folder);

    [[nodiscard]] PlatformBackend &backend() const { return *m_backend; }
    [[nodiscard]] const std::shared_ptr<PlatformBackend> &sharedBackend() const
    {
        return m_backend;
    }
    [[nodiscard]] const MachineFacts &machineFacts() const { return *m_backend; }
    /// The folder of the document backend; absent for the system's own preferences.
    [[nodiscard]] const std::optional<QString> &documentFolder() const { return m_folder; }

private:
    std::shared_ptr<PlatformBackend> m_backend;
    std::optional<QString> m_folder;
};

/// The option that names a folder of preferences: "--prefs DIR", anywhere in the arguments.
inline const QString prefsOption = QStringLiteral("--prefs");

/// "--prefs DIR" chooses the document backend over DIR (the last one given counts). Without it,
/// the system's own platform: SystemConfiguration on a Mac, elsewhere a per-user working copy of
/// the example show machine. Throws `VLANError` with a sentence when the choice can't be made.
[[nodiscard]] Platform choosePlatform(const QStringList &arguments);

/// The arguments without "--prefs DIR", for the readers of the rest of the command line.
[[nodiscard]] QStringList withoutPlatformArguments(const QStringList &arguments);

/// The platform of this system when no folder is named; one definition per system.
[[nodiscard]] Platform systemPlatform();

/// The per-user working copy of the example show machine under `dataFolder`, made from the copy
/// built into the program when it isn't there yet; answers its path. Throws `VLANError`.
[[nodiscard]] QString exampleWorkingCopy(const QString &dataFolder);

} // namespace VLANKit
