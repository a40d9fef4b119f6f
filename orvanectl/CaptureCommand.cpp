#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/machine/MachineIdentity.h"
#include "VLANKit/project/ProfileIO.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Output.h"
#include "orvanectl/Sessions.h"

#include <QFileInfo>
#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace Orvanectl {

namespace {

/// The project that OUT holds now, whose claims a capture keeps. A file that is there and holds
/// no project is somebody's other file: it is refused rather than written over.
std::optional<Profile> projectSavedOver(const QString &path)
{
    if (!QFileInfo::exists(path))
        return std::nullopt;
    try {
        return ProfileIO::read(path);
    } catch (const VLANError &) {
        throw VLANError::operationFailed(u"Nothing was written: "_s
                                         + curlyQuoted(QFileInfo(path).fileName())
                                         + u" is there already and holds no project that can be "
                                           u"read, so name another file."_s);
    }
}

} // namespace

int captureProject(const Invocation &invocation, const Platform &platform)
{
    const QString path = invocation.arguments.first();
    const auto store = readingStore(platform, invocation.value(u"--location"_s));
    const QString location = locationName(*store);
    const auto over = projectSavedOver(path);
    // Saving over a project keeps the claims of the other machines; this one claims nothing.
    const Profile project =
        store->capture(baseNameDroppingLastExtension(QFileInfo(path).fileName()))
            .saving(over, MachineIdentity::current(platform.machineFacts()), QString());
    ProfileIO::write(project, path);

    const qsizetype claims = project.assignments ? project.assignments->size() : 0;
    if (invocation.json) {
        QJsonArray entries;
        for (const ProfileEntry &entry : project.entries)
            entries.append(QJsonObject{{u"tag"_s, entry.tag},
                                       {u"name"_s, entry.name},
                                       {u"ip"_s, entry.ip.summary()},
                                       {u"on"_s, entry.enabled}});
        writeJson({{u"file"_s, path},
                   {u"project"_s, project.name},
                   {u"location"_s, location},
                   {u"capturedFrom"_s, jsonText(project.capturedFrom)},
                   {u"entries"_s, entries},
                   {u"claimsKept"_s, claims}});
        return 0;
    }
    QStringList lines{
        u"Captured "_s + counted(project.entries.size(), u"VLAN"_s) + u" of Location "_s
        + curlyQuoted(location) + u" into "_s + curlyQuoted(QFileInfo(path).fileName())
        + (claims > 0 ? u", keeping the file\u2019s "_s + counted(claims, u"claim"_s) : QString())
        + u'.'};
    if (!project.entries.isEmpty()) {
        QList<QStringList> rows{{u"TAG"_s, u"NAME"_s, u"IP"_s, u"ON"_s}};
        for (const ProfileEntry &entry : project.entries)
            rows.append({QString::number(entry.tag), entry.name, entry.ip.summary(),
                         entry.enabled ? u"on"_s : u"off"_s});
        lines += table(rows);
    }
    writeLines(lines);
    return 0;
}

} // namespace Orvanectl
