#pragma once

#include "VLANKit/platform/document/HardwareInterface.h"

#include <QString>
#include <QVariantMap>

#include <optional>

namespace VLANKit {

class DocumentMachine;
class DocumentSession;

/// What an interface shows through the framework's getters, worked out as the system's own
/// preferences file would give it: an attached device shows what its driver says, a VLAN of
/// the preferences its own name, and a device that is gone what its service remembered of it.
struct InterfaceFacts
{
    std::optional<QString> bsdName;
    std::optional<QString> type;
    std::optional<QString> displayName;
    /// Where the system stores another word than the one it shows: a VLAN shows its own name
    /// and stores "VLAN (vlanN)" in place of it.
    std::optional<QString> storedName;
    bool builtIn = false;

    [[nodiscard]] static InterfaceFacts ofHardware(const HardwareInterface &hardware);
    /// A VLAN of the session's document by its kernel name.
    [[nodiscard]] static InterfaceFacts ofVLAN(const DocumentSession &session, const QString &name);
    /// The adapter behind a kernel name: attached, else remembered by the folder's interface
    /// list, else a plain Ethernet placeholder that shows no name.
    [[nodiscard]] static InterfaceFacts ofAdapter(const DocumentMachine &machine,
                                                  const QString &bsdName);
    /// The interface of a service, from the dictionary that its service stores; absent when
    /// the service stores none.
    [[nodiscard]] static std::optional<InterfaceFacts> ofService(const DocumentSession &session,
                                                                 const QString &serviceID);

    /// The facts of `ofService` as the document tells them, without the session's memo.
    [[nodiscard]] static std::optional<InterfaceFacts> readOfService(const DocumentSession &session,
                                                                     const QString &serviceID);

    /// The dictionary that a new service on this interface stores under "Interface".
    [[nodiscard]] QVariantMap storageEntity() const;
    /// Where a service of this interface stands in a new service order: the lower, the higher.
    [[nodiscard]] int orderRank() const;
};

} // namespace VLANKit
