#pragma once

#include "VLANKit/platform/PlatformAnswers.h"
#include "VLANKit/platform/PlatformConstants.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// One interface that the machine has, or had: what its driver and the kernel would tell.
struct HardwareInterface
{
    /// One media subtype on offer, with the option sets that the driver takes with it.
    struct MediaOffer
    {
        QString subType;
        QList<QStringList> options;
        friend bool operator==(const MediaOffer &, const MediaOffer &) = default;
    };

    QString bsdName;
    /// The system's type word: "Ethernet", "IEEE80211" or "FireWire".
    QString type = kSCNetworkInterfaceTypeEthernet;
    QString displayName;
    /// Six bytes written "3c:a6:f6:4e:21:0a"; empty when nobody said.
    QString hardwareAddress;
    bool vlanCapable = false;
    bool builtIn = false;
    bool linkUp = false;
    /// Absent when the driver tells nothing of its frame sizes.
    std::optional<InterfaceMTU> mtu;
    /// Empty when the driver tells nothing of its media.
    QList<MediaOffer> media;
    std::optional<QString> activeSubType;
    QStringList activeOptions;

    /// The word under which a set keeps this kind of interface's settings.
    [[nodiscard]] static QString settingsEntity(const QString &type);

    friend bool operator==(const HardwareInterface &, const HardwareInterface &) = default;
};

} // namespace VLANKit
