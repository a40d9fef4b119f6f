#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace VLANKit {

class Defaults;

/// The rule by which a VLAN's tag becomes its IPv4 address on this machine: four octets as the
/// engineer typed them, and a mask. An empty third octet lets each tag supply its own. Fields
/// keep what was typed; validity is asked of the plan, never enforced on it.
struct AddressPlan
{
    QString octet1 = QStringLiteral("192");
    QString octet2 = QStringLiteral("168");
    /// Blank: each tag supplies the third octet.
    QString octet3;
    /// This machine's octet.
    QString host;
    /// Nothing here validates it.
    QString subnetMask = QStringLiteral("255.255.255.0");

    /// The plan the program starts with when nothing usable is stored.
    [[nodiscard]] static AddressPlan starting() { return {}; }
    /// Splits a dotted prefix into the first three octets; nothing is validated.
    [[nodiscard]] static AddressPlan fromPrefix(const QString &prefix, const QString &host);

    /// "octet1.octet2[.octet3]", each as typed; `octet3` only when it isn't empty as it stands.
    [[nodiscard]] QString prefix() const;
    [[nodiscard]] static std::optional<qint64> thirdOctetForTag(qint64 tag);
    [[nodiscard]] static bool usesFallbackForTag(qint64 tag);
    [[nodiscard]] bool isUsable() const;
    /// Whether a third octet was typed, valid or not.
    [[nodiscard]] bool pinsSubnet() const;
    [[nodiscard]] std::optional<QString> addressForTag(std::optional<qint64> tag) const;
    /// What a tag will get, also while the plan is unfinished: "192.168.—.N".
    [[nodiscard]] QString exampleForTag(qint64 tag) const;

    /// The stored JSON form: the five keys, compact.
    [[nodiscard]] QByteArray encoded() const;
    /// Reads the stored JSON form, the older "prefix" form included. Absent when it is no
    /// JSON object or a key holds something other than a string.
    [[nodiscard]] static std::optional<AddressPlan> decoded(const QByteArray &json);

    /// The remembered plan; an old stored form is written back in the current one at once.
    [[nodiscard]] static AddressPlan load(Defaults &defaults);
    void save(Defaults &defaults) const;

    friend bool operator==(const AddressPlan &, const AddressPlan &) = default;
};

} // namespace VLANKit
