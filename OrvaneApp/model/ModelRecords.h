#pragma once

#include "VLANKit/values/Plan.h"

#include <QString>
#include <QUuid>

#include <memory>
#include <optional>

class ServiceEdit;

/// The tab on show.
enum class AppTab { current, add };

/// The outcome of the last action. Each result has a new `id`, so the same text shows again.
struct BuildResult
{
    QUuid id = QUuid::createUuid();
    bool succeeded = false;
    QString message;

    friend bool operator==(const BuildResult &, const BuildResult &) = default;
};

/// A plan waiting for the user's confirmation.
struct PendingPlan
{
    QUuid id = QUuid::createUuid();
    VLANKit::Plan plan;

    friend bool operator==(const PendingPlan &, const PendingPlan &) = default;
};

/// What a new Location starts from: a copy of a named Location, or its adapters only.
struct LocationStart
{
    enum class Kind { copy, adaptersOnly };

    Kind kind = Kind::adaptersOnly;
    /// The Location copied; empty for `adaptersOnly`.
    QString location;

    [[nodiscard]] static LocationStart adaptersOnly() { return {}; }
    [[nodiscard]] static LocationStart copy(const QString &location)
    {
        return {Kind::copy, location};
    }

    friend bool operator==(const LocationStart &, const LocationStart &) = default;
};

/// One line of the confirmation of a recommended order. Ranks count from 1.
struct OrderLine
{
    qint64 rank = 0;
    QString name;
    /// The old rank; absent when the service keeps its rank or had none.
    std::optional<qint64> was;

    friend bool operator==(const OrderLine &, const OrderLine &) = default;
};

/// A VLAN of this Mac as the Add tab lists it, every value as displayed.
struct ExistingVLAN
{
    QString id;
    QString tag;
    QString name;
    bool inLocation = false;
    bool isOn = false;
    QString mode;
    bool isManual = false;
    QString address;
    QString subnetMask;
    QString router;
    QString dns;

    friend bool operator==(const ExistingVLAN &, const ExistingVLAN &) = default;
};

/// The line that says how many VLANs outrank the internet, and whether that is a warning.
struct RankingLine
{
    QString text;
    bool warns = false;

    friend bool operator==(const RankingLine &, const RankingLine &) = default;
};

/// One entry of the picker of the adapter to build on.
struct AdapterChoice
{
    QString bsdName;
    QString label;

    friend bool operator==(const AdapterChoice &, const AdapterChoice &) = default;
};

/// A dirty row that can't be saved, and why.
struct RowProblem
{
    std::shared_ptr<ServiceEdit> row;
    QString message;

    friend bool operator==(const RowProblem &, const RowProblem &) = default;
};

/// The one line on the state of all edits; `warns` when it tells a problem.
struct EditStatus
{
    QString text;
    bool warns = false;

    friend bool operator==(const EditStatus &, const EditStatus &) = default;
};
