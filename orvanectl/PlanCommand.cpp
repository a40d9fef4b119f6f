#include "orvanectl/Changes.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Output.h"
#include "orvanectl/ProjectPlan.h"

using namespace Qt::StringLiterals;

namespace Orvanectl {

int planProject(const Invocation &invocation, const VLANKit::Platform &platform)
{
    const ProjectPlan made = ProjectPlan::make(invocation, platform);
    if (invocation.json)
        writeJson(made.json(false));
    else
        writeLines(QStringList{made.heading()} + summaries(made.plan));
    return 0;
}

} // namespace Orvanectl
