#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/machine/MachineIdentity.h"
#include "VLANKit/project/ProfileIO.h"
#include "orvanectl/Changes.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Confirmation.h"
#include "orvanectl/Output.h"
#include "orvanectl/ProjectPlan.h"
#include "orvanectl/Sessions.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace Orvanectl {

namespace {

/// This machine's claim of the host octet, as `--claim` records it in the project file.
struct Claim
{
    MachineIdentity machine;
    QString host;
    /// The file with the claim; absent when the file holds it already.
    std::optional<Profile> recorded;

    [[nodiscard]] QString preview(const QString &fileName) const
    {
        return u"This machine, "_s + curlyQuoted(machine.name) + u", claims host "_s + host
               + u" in "_s + fileName
               + (recorded ? u"."_s : u", which the file already records."_s);
    }
    [[nodiscard]] QJsonObject json() const
    {
        return {{u"host"_s, host},
                {u"machine"_s, machine.name},
                {u"machineID"_s,
                 jsonText(machine.id.isEmpty() ? std::nullopt : std::optional(machine.id))},
                {u"written"_s, recorded.has_value()}};
    }
};

/// Refused, with nothing written, when another machine holds the octet.
Claim claimFor(const ProjectPlan &made, const Platform &platform)
{
    Claim claim{MachineIdentity::current(platform.machineFacts()), trimSpacesAndTabs(*made.host),
                std::nullopt};
    if (const auto holder = made.project.otherMachine(*made.host, claim.machine))
        throw VLANError::operationFailed(u"Nothing was changed: host "_s + claim.host + u" in "_s
                                         + made.fileName() + u" is claimed by "_s
                                         + curlyQuoted(holder->machine)
                                         + u", so choose another with --host."_s);
    const Profile recorded = made.project.recording(claim.machine, *made.host);
    if (recorded != made.project)
        claim.recorded = recorded;
    return claim;
}

QString question(const ProjectPlan &made, const std::optional<Claim> &claim)
{
    const bool recording = claim && claim->recorded;
    if (made.plan.isEmpty())
        return u"Record host "_s + claim->host + u" for this machine in "_s + made.fileName()
               + u'?';
    return u"Make "_s + (made.plan.changes.size() == 1 ? u"this change"_s : u"these changes"_s)
           + (recording ? u", and record host "_s + claim->host + u" for this machine in "_s
                              + made.fileName()
                        : QString())
           + u'?';
}

} // namespace

int applyProject(const Invocation &invocation, const Platform &platform)
{
    const bool claiming = invocation.has(u"--claim"_s);
    if (claiming && !invocation.value(u"--host"_s))
        throw UsageError(curlyQuoted(u"--claim"_s)
                             + u" needs --host N: the octet that this machine takes."_s,
                         invocation.syntax);
    const ProjectPlan made = ProjectPlan::make(invocation, platform);
    const std::optional<Claim> claim =
        claiming ? std::optional(claimFor(made, platform)) : std::nullopt;
    const bool writesFile = claim && claim->recorded;

    QStringList preview = QStringList{made.heading()} + summaries(made.plan);
    if (claim)
        preview.append(claim->preview(made.fileName()));
    const bool nothingToDo = made.plan.isEmpty() && !writesFile;
    const bool asking = !nothingToDo && !invocation.has(u"--yes"_s);
    // With --json, standard output holds the one document; the preview is for the person asked.
    if (!invocation.json)
        writeLines(preview);
    else if (asking)
        writeError(preview.join(u'\n') + u'\n');

    if (asking)
        confirm(question(made, claim));
    // The system first: a claim is recorded only for a build that landed.
    if (!made.plan.isEmpty()) {
        WritingSession session(platform, invocation.value(u"--location"_s));
        session.store().execute(made.plan);
    }
    // What was built is said before the file is written, whose failure would end the command.
    if (!invocation.json)
        writeLines(completedSentences(made.plan));
    if (writesFile)
        ProfileIO::write(*claim->recorded, made.path);

    if (invocation.json) {
        QJsonObject document = made.json(true);
        document.insert(u"claim"_s, claim ? QJsonValue(claim->json()) : QJsonValue());
        writeJson(document);
    } else if (writesFile) {
        writeLines({u"Recorded host "_s + claim->host + u" for "_s
                    + curlyQuoted(claim->machine.name) + u" in "_s + made.fileName() + u'.'});
    }
    return 0;
}

} // namespace Orvanectl
