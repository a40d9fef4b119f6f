#pragma once

#include "VLANKit/values/ServiceRecord.h"

#include <QList>

/// The widths and heights of the service order sheet: five fixed columns, two measured from the
/// services on show, and a list that shows a cut row once it scrolls.
struct ServiceOrderLayout
{
    static constexpr int rowHeight = 24;
    static constexpr int listInset = 8;
    static constexpr int rankWidth = 26;
    static constexpr int internetWidth = 62;
    static constexpr int interfaceWidth = 90;
    /// Between the columns of a row.
    static constexpr int spacing = 10;
    /// At each side of the sheet's title, its button line and its list.
    static constexpr int padding = 20;
    /// The pixel size the rows are set at, and measured in.
    static constexpr int fontSize = 12;

    enum Column { rank, internet, service, interface, address, columnCount };

    int serviceWidth = 220;
    int addressWidth = 60;

    /// The widest service name plus 64, and at least 220; the widest address summary plus 4,
    /// and at least 60; each text measured in the rows' face and rounded up.
    [[nodiscard]] static ServiceOrderLayout
    measuring(const QList<VLANKit::ServiceRecord> &services);
    /// The height of the list for a count of rows: one row at least, and half a row past the
    /// eighteenth at most, so that a long list shows a cut row and tells the eye it scrolls.
    [[nodiscard]] static int listHeight(qsizetype rows);

    [[nodiscard]] int width(Column column) const;
    /// All five columns with the spacing between them.
    [[nodiscard]] int rowWidth() const;
    /// The columns, the list's insets and the padding of the sheet, and at least 560.
    [[nodiscard]] int sheetWidth() const;
};
