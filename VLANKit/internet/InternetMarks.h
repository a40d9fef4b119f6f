#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <optional>

namespace VLANKit {

/// The remembered Internet ticks of one Location. A tick remembers, beside the service
/// identifier, which VLAN it was on (tag and device), so that it follows its VLAN when the
/// service is rebuilt under a new identifier. A pure value: the stored form is kept by
/// `InternetMemory`.
struct InternetMarks
{
    /// One remembered answer.
    struct Mark
    {
        QString serviceID;
        /// Absent for a service that is no VLAN.
        std::optional<qint64> tag{};
        /// The adapter: for a VLAN its parent's kernel name, for an adapter its own.
        std::optional<QString> device{};
        bool internet = false;

        /// "id" and "internet"; "tag" and "device" only when present.
        [[nodiscard]] QVariantMap stored() const;
        /// A mark from its stored map: "id" a non-empty string and "internet" a boolean, else
        /// none. A missing or mistyped "tag" or "device" leaves that field absent.
        [[nodiscard]] static std::optional<Mark> fromStored(const QVariant &value);

        friend bool operator==(const Mark &, const Mark &) = default;
    };

    /// One service of the Location as it is now, offered to the rules.
    struct Candidate
    {
        QString serviceID;
        std::optional<qint64> tag{};
        std::optional<QString> device{};
        /// The answer that a service with no memory takes.
        bool guess = false;

        friend bool operator==(const Candidate &, const Candidate &) = default;
    };

    /// One per service that has an answer, present services first.
    QList<Mark> marks;
    /// The services that the Location holds now; a mark outside this set is kept but doesn't
    /// count.
    QSet<QString> held;

    /// Brings memory and the present together. `remembered` is absent when the Location never
    /// stored marks; `tickedBefore` is the older plain list of ticks, absent when never stored.
    [[nodiscard]] static InternetMarks reconciled(const std::optional<QList<Mark>> &remembered,
                                                  const std::optional<QSet<QString>> &tickedBefore,
                                                  const QList<Candidate> &candidates);

    /// The services held now whose mark is ticked.
    [[nodiscard]] QSet<QString> internetServiceIDs() const;
    /// The copy after the engineer's ticks: `ticked` is the whole set ticked now.
    [[nodiscard]] InternetMarks marking(const QSet<QString> &ticked) const;

    /// The stored form of the marks, in order; `held` is not stored.
    [[nodiscard]] QList<QVariantMap> stored() const;
    /// Absent when the value is absent or no list, which tells a Location that never stored
    /// marks from one that stored none; else the entries that make a mark, in order.
    [[nodiscard]] static std::optional<QList<Mark>>
    marksFromStored(const std::optional<QVariant> &value);

    friend bool operator==(const InternetMarks &, const InternetMarks &) = default;
};

} // namespace VLANKit
