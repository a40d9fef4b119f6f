#include "OrvaneApp/surfaces/ServiceOrderLayout.h"

#include "OrvaneApp/model/Theme.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace {

constexpr int leastServiceWidth = 220;
/// Room beside the name for its pill and its risk mark.
constexpr int serviceRoom = 64;
constexpr int leastAddressWidth = 60;
constexpr int addressRoom = 4;
constexpr int leastSheetWidth = 560;
constexpr double fewestRows = 1;
constexpr double mostRows = 18.5;

} // namespace

ServiceOrderLayout ServiceOrderLayout::measuring(const QList<VLANKit::ServiceRecord> &services)
{
    const QFontMetricsF metrics(Theme::font(fontSize));
    int widestName = 0;
    int widestAddress = 0;
    for (const VLANKit::ServiceRecord &service : services) {
        widestName = std::max(widestName, int(std::ceil(metrics.horizontalAdvance(service.name))));
        widestAddress = std::max(widestAddress,
                                 int(std::ceil(metrics.horizontalAdvance(service.ip.summary()))));
    }
    ServiceOrderLayout layout;
    layout.serviceWidth = std::max(leastServiceWidth, widestName + serviceRoom);
    layout.addressWidth = std::max(leastAddressWidth, widestAddress + addressRoom);
    return layout;
}

int ServiceOrderLayout::listHeight(qsizetype rows)
{
    const double counted = std::clamp(double(rows), fewestRows, mostRows);
    return int(std::lround(rowHeight * counted));
}

int ServiceOrderLayout::width(Column column) const
{
    switch (column) {
    case rank:
        return rankWidth;
    case internet:
        return internetWidth;
    case service:
        return serviceWidth;
    case interface:
        return interfaceWidth;
    case address:
        return addressWidth;
    case columnCount:
        break;
    }
    return 0;
}

int ServiceOrderLayout::rowWidth() const
{
    int total = 0;
    for (int column = 0; column < columnCount; ++column)
        total += width(Column(column));
    return total + (columnCount - 1) * spacing;
}

int ServiceOrderLayout::sheetWidth() const
{
    return std::max(leastSheetWidth, rowWidth() + 2 * listInset + 2 * padding);
}
