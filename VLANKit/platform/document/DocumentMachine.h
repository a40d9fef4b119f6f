#pragma once

#include "VLANKit/platform/document/HardwareInterface.h"
#include "VLANKit/platform/document/MachineDescription.h"

#include <QHash>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace VLANKit {

/// The fixed facts of one folder shaped like the system's SystemConfiguration folder: where its
/// files are, and the machine behind it, read once when the folder is opened. Interfaces come
/// from the description where it lists them, else from the folder's NetworkInterfaces.plist
/// (those marked active are attached, with their links down).
class DocumentMachine
{
public:
    static inline const QString preferencesFileName = QStringLiteral("preferences.plist");
    static inline const QString interfacesFileName = QStringLiteral("NetworkInterfaces.plist");
    static inline const QString descriptionFileName = QStringLiteral("machine.toml");
    static inline const QString stateFileName = QStringLiteral("kernel-state.plist");

    /// Reads the folder's description and interface list; throws `VLANError` with a sentence
    /// naming what can't be read.
    [[nodiscard]] static std::shared_ptr<const DocumentMachine> open(const QString &folder);

    [[nodiscard]] const QString &folder() const { return m_folder; }
    [[nodiscard]] QString path(const QString &fileName) const;
    [[nodiscard]] QString preferencesPath() const { return path(preferencesFileName); }
    [[nodiscard]] QString lockPath() const { return preferencesPath() + QStringLiteral("-lock"); }
    [[nodiscard]] QString statePath() const { return path(stateFileName); }

    [[nodiscard]] const std::optional<MachineDescription> &description() const
    {
        return m_description;
    }
    /// The interfaces attached now, in the order the machine lists them.
    [[nodiscard]] const QList<HardwareInterface> &attached() const { return m_attached; }
    [[nodiscard]] const HardwareInterface *attachedInterface(const QString &bsdName) const;
    /// An attached interface, else one the folder's interface list remembers.
    [[nodiscard]] const HardwareInterface *knownInterface(const QString &bsdName) const;

    [[nodiscard]] MachineDescription::Answer answer() const;
    [[nodiscard]] std::int32_t failingStatus() const;
    [[nodiscard]] QList<MachineDescription::DHCPServer> dhcpServers() const;

    /// The entries of a NetworkInterfaces.plist, each with whether it is active; throws
    /// `VLANError` for a file that exists and can't be read.
    [[nodiscard]] static QList<std::pair<HardwareInterface, bool>>
    readInterfaceList(const QString &path);

private:
    QString m_folder;
    std::optional<MachineDescription> m_description;
    QList<HardwareInterface> m_attached;
    QList<HardwareInterface> m_remembered;
    QHash<QString, qsizetype> m_attachedIndex;
    QHash<QString, qsizetype> m_rememberedIndex;
};

} // namespace VLANKit
