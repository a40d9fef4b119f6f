#include "OrvaneApp/model/IPFields.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/project/AddressPlan.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

IPConfig IPFields::manual(const QString &address, const QString &subnetMask, const QString &router)
{
    IPConfig ip;
    ip.mode = IPMode::manual;
    ip.address = trimSpacesAndTabs(address);
    ip.subnetMask = trimSpacesAndTabs(subnetMask);
    const QString trimmedRouter = trimSpacesAndTabs(router);
    if (!trimmedRouter.isEmpty())
        ip.router = trimmedRouter;
    return ip;
}

QString IPFields::planMask(const AddressPlan &plan)
{
    return plan.subnetMask.isEmpty() ? u"255.255.255.0"_s : plan.subnetMask;
}
