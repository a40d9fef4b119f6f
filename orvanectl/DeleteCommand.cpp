#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "orvanectl/Changes.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Confirmation.h"
#include "orvanectl/Output.h"
#include "orvanectl/Sessions.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace Orvanectl {

namespace {

QList<qint64> tagsOf(const Invocation &invocation)
{
    QList<qint64> tags;
    for (const QString &argument : invocation.arguments) {
        const auto tag = parseInteger(trimSpacesAndTabs(argument));
        if (!tag)
            throw UsageError(curlyQuoted(argument)
                                 + u" is no VLAN tag: a tag is a whole number, such as 1010."_s,
                             invocation.syntax);
        tags.append(*tag);
    }
    return tags;
}

QString nothingToDo(const QList<qint64> &tags, const std::optional<QString> &adapter)
{
    QStringList numbers;
    for (qint64 tag : tags)
        numbers.append(QString::number(tag));
    return u"Nothing to do: no VLAN"_s + (adapter ? u" on "_s + *adapter : QString())
           + (tags.size() == 1 ? u" has the tag "_s : u" has any of the tags "_s)
           + numbers.join(u", "_s) + u'.';
}

} // namespace

int deleteVLANs(const Invocation &invocation, const Platform &platform)
{
    const QList<qint64> tags = tagsOf(invocation);
    const std::optional<QString> adapter = invocation.value(u"--on"_s);
    const Plan plan = readingStore(platform, std::nullopt)->planDelete(tags, adapter);

    const QStringList preview =
        QStringList{plan.isEmpty() ? nothingToDo(tags, adapter)
                                   : counted(plan.changes.size(), u"VLAN"_s)
                                         + u" to delete, each with its services in every "
                                           u"Location:"_s}
        + summaries(plan);
    const bool asking = !plan.isEmpty() && !invocation.has(u"--yes"_s);
    if (!invocation.json)
        writeLines(preview);
    else if (asking)
        writeError(preview.join(u'\n') + u'\n');

    if (!plan.isEmpty()) {
        if (asking)
            confirm(plan.changes.size() == 1 ? u"Delete this VLAN?"_s : u"Delete these VLANs?"_s);
        WritingSession session(platform, std::nullopt);
        session.store().execute(plan);
    }

    if (invocation.json) {
        QJsonArray tagArray;
        for (qint64 tag : tags)
            tagArray.append(tag);
        writeJson({{u"tags"_s, tagArray},
                   {u"adapter"_s, jsonText(adapter)},
                   {u"changes"_s, changesJson(plan, true)}});
        return 0;
    }
    writeLines(completedSentences(plan));
    return 0;
}

} // namespace Orvanectl
