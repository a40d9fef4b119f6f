#pragma once

#include <QString>

#include <cstdint>

/// The framework's constants that the store compares with or hands over, under their own names.
/// Their values are the words the system stores, so that both backends speak the same words.
namespace VLANKit {

// SCError codes.
inline constexpr int kSCStatusOK = 0;
inline constexpr int kSCStatusFailed = 1001;
inline constexpr int kSCStatusInvalidArgument = 1002;
inline constexpr int kSCStatusAccessError = 1003;
inline constexpr int kSCStatusNoKey = 1004;
inline constexpr int kSCStatusKeyExists = 1005;
inline constexpr int kSCStatusLocked = 1006;
inline constexpr int kSCStatusNeedLock = 1007;
inline constexpr int kSCStatusNoPrefsSession = 3001;
inline constexpr int kSCStatusPrefsBusy = 3002;
inline constexpr int kSCStatusNoConfigFile = 3003;
inline constexpr int kSCStatusNoLink = 3004;
inline constexpr int kSCStatusStale = 3005;
inline constexpr int kSCStatusMaxLink = 3006;

// Authorization statuses and flags.
inline constexpr std::int32_t errAuthorizationSuccess = 0;
inline constexpr std::int32_t errAuthorizationInvalidRef = -60002;
inline constexpr std::int32_t errAuthorizationDenied = -60005;
inline constexpr std::int32_t errAuthorizationCanceled = -60006;
inline constexpr std::int32_t errAuthorizationInternal = -60008;
inline constexpr std::uint32_t kAuthorizationFlagDefaults = 0;
inline constexpr std::uint32_t kAuthorizationFlagInteractionAllowed = 1U << 0;
inline constexpr std::uint32_t kAuthorizationFlagExtendRights = 1U << 1;
inline constexpr std::uint32_t kAuthorizationFlagPreAuthorize = 1U << 4;

// Protocol types.
inline const QString kSCNetworkProtocolTypeDNS = QStringLiteral("DNS");
inline const QString kSCNetworkProtocolTypeIPv4 = QStringLiteral("IPv4");
inline const QString kSCNetworkProtocolTypeIPv6 = QStringLiteral("IPv6");
inline const QString kSCNetworkProtocolTypeProxies = QStringLiteral("Proxies");
inline const QString kSCNetworkProtocolTypeSMB = QStringLiteral("SMB");

// Interface types.
inline const QString kSCNetworkInterfaceTypeEthernet = QStringLiteral("Ethernet");
inline const QString kSCNetworkInterfaceTypeIEEE80211 = QStringLiteral("IEEE80211");
inline const QString kSCNetworkInterfaceTypeFireWire = QStringLiteral("FireWire");
inline const QString kSCNetworkInterfaceTypeVLAN = QStringLiteral("VLAN");
inline const QString kSCNetworkInterfaceTypeBond = QStringLiteral("Bond");
inline const QString kSCNetworkInterfaceTypeBridge = QStringLiteral("Bridge");
inline const QString kSCNetworkInterfaceTypePPP = QStringLiteral("PPP");
inline const QString kSCNetworkInterfaceTypeVPN = QStringLiteral("VPN");
inline const QString kSCNetworkInterfaceTypeIPSec = QStringLiteral("IPSec");

// Property keys.
inline const QString kSCPropNetIPv4ConfigMethod = QStringLiteral("ConfigMethod");
inline const QString kSCPropNetIPv4Addresses = QStringLiteral("Addresses");
inline const QString kSCPropNetIPv4SubnetMasks = QStringLiteral("SubnetMasks");
inline const QString kSCPropNetIPv4Router = QStringLiteral("Router");
inline const QString kSCPropNetIPv6ConfigMethod = QStringLiteral("ConfigMethod");
inline const QString kSCPropNetDNSServerAddresses = QStringLiteral("ServerAddresses");
inline const QString kSCPropNetDNSSearchDomains = QStringLiteral("SearchDomains");
inline const QString kSCPropNetEthernetMTU = QStringLiteral("MTU");
inline const QString kSCPropNetEthernetMediaSubType = QStringLiteral("MediaSubType");
inline const QString kSCPropNetEthernetMediaOptions = QStringLiteral("MediaOptions");

// Method values.
inline const QString kSCValNetIPv4ConfigMethodDHCP = QStringLiteral("DHCP");
inline const QString kSCValNetIPv4ConfigMethodManual = QStringLiteral("Manual");
inline const QString kSCValNetIPv4ConfigMethodLinkLocal = QStringLiteral("LinkLocal");
inline const QString kSCValNetIPv6ConfigMethodAutomatic = QStringLiteral("Automatic");
inline const QString kSCValNetIPv6ConfigMethodLinkLocal = QStringLiteral("LinkLocal");
inline const QString kSCValNetIPv6ConfigMethodManual = QStringLiteral("Manual");

} // namespace VLANKit
