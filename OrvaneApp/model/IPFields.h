#pragma once

#include <QString>

/// The address fields of a row as typed, kept aside while the row isn't Manual.
struct IPFields
{
    QString address;
    QString subnetMask;
    QString router;
    QString dns;

    friend bool operator==(const IPFields &, const IPFields &) = default;
};
