#include "orvanectl/ProjectPlan.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/project/ProfileIO.h"
#include "orvanectl/Changes.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Output.h"
#include "orvanectl/Sessions.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace Orvanectl {

QString ProjectPlan::fileName() const
{
    return curlyQuoted(QFileInfo(path).fileName());
}

QString ProjectPlan::heading() const
{
    const QString where = adapter + (host ? u" as host "_s + trimSpacesAndTabs(*host) : QString())
                          + u" in Location "_s + curlyQuoted(location);
    if (plan.isEmpty())
        return u"Nothing to do: "_s + where + u" already holds what "_s + fileName()
               + u" asks for."_s;
    return counted(plan.changes.size(), u"change"_s) + u" to build "_s + fileName() + u" on "_s
           + where + u':';
}

QJsonObject ProjectPlan::json(bool made) const
{
    return {{u"file"_s, path},
            {u"project"_s, project.name},
            {u"adapter"_s, adapter},
            {u"location"_s, location},
            {u"host"_s, jsonText(host ? std::optional(trimSpacesAndTabs(*host)) : std::nullopt)},
            {u"changes"_s, changesJson(plan, made)}};
}

ProjectPlan ProjectPlan::make(const Invocation &invocation, const Platform &platform)
{
    ProjectPlan made;
    made.path = invocation.arguments.first();
    made.adapter = *invocation.value(u"--on"_s);
    made.host = invocation.value(u"--host"_s);
    if (made.host && !parseOctet(trimSpacesAndTabs(*made.host)))
        throw UsageError(curlyQuoted(u"--host"_s)
                             + u" takes this machine's host octet, a number from 0 to 255, not "_s
                             + curlyQuoted(*made.host) + u"."_s,
                         invocation.syntax);

    made.project = ProfileIO::read(made.path);
    const auto store = readingStore(platform, invocation.value(u"--location"_s));
    made.location = locationName(*store);
    // The plan itself never looks at the adapter; a name that isn't there is better said now
    // than at the first change that builds on it.
    (void)store->requireAdapter(made.adapter);
    made.plan = store->planApply(made.host ? made.project.rehosted(*made.host) : made.project,
                                 made.adapter);
    return made;
}

} // namespace Orvanectl
