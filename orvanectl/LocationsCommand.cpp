#include "VLANKit/Platform.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Output.h"
#include "orvanectl/Sessions.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace Orvanectl {

int listLocations(const Invocation &invocation, const Platform &platform)
{
    const auto store = readingStore(platform, std::nullopt);
    const QList<LocationRecord> locations = store->locations();

    if (invocation.json) {
        QJsonArray array;
        for (const LocationRecord &location : locations)
            array.append(QJsonObject{{u"name"_s, location.name},
                                     {u"setID"_s, location.setID},
                                     {u"inUse"_s, location.isCurrent},
                                     {u"services"_s, location.serviceCount},
                                     {u"vlanServices"_s, location.vlanServiceCount}});
        writeJson({{u"locations"_s, array}});
        return 0;
    }
    if (locations.isEmpty()) {
        writeLines({u"No Locations."_s});
        return 0;
    }
    QList<QStringList> rows;
    for (const LocationRecord &location : locations)
        rows.append({location.isCurrent ? u"*"_s : u" "_s, location.name,
                     counted(location.serviceCount, u"service"_s) + u", "_s
                         + QString::number(location.vlanServiceCount) + u" on VLANs"_s});
    writeLines(table(rows));
    return 0;
}

} // namespace Orvanectl
