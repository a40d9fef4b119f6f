#include "VLANKit/store/LocationNames.h"

#include "VLANKit/core/TextRules.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace VLANKit::LocationNames {

std::optional<LocationRecord> location(const QString &name, const QList<LocationRecord> &among)
{
    for (const LocationRecord &record : among) {
        if (canonicallyEqual(record.name, name))
            return record;
    }
    QList<LocationRecord> matches;
    for (const LocationRecord &record : among) {
        if (caseBlindEqual(record.name, name))
            matches.append(record);
    }
    // Two that differ only in case can't be told apart: the person has to say which.
    if (matches.size() > 1) {
        QStringList candidates;
        for (const LocationRecord &match : std::as_const(matches))
            candidates.append(u'\'' + match.name + u'\'');
        throw VLANError::operationFailed(u"'"_s + name + u"' could be "_s
                                         + candidates.join(u" and "_s)
                                         + u". Give the name exactly as it is written."_s);
    }
    if (matches.isEmpty())
        return std::nullopt;
    return matches.first();
}

VLANError notFound(const QString &name, const QList<LocationRecord> &records)
{
    QStringList known;
    known.reserve(records.size());
    for (const LocationRecord &record : records)
        known.append(record.name);
    return VLANError::locationNotFound(name, known);
}

QString trimmed(const QString &name)
{
    QString result = trimWhitespaceAndNewlines(name);
    if (result.isEmpty())
        throw VLANError::operationFailed(u"A Location needs a name."_s);
    return result;
}

void checkFree(const QString &name, const QList<LocationRecord> &records,
               const std::optional<QString> &ownSetID)
{
    for (const LocationRecord &record : records) {
        if (record.setID != ownSetID && caseBlindEqual(record.name, name)) {
            throw VLANError::operationFailed(u"A Location named '"_s + name
                                             + u"' already exists."_s);
        }
    }
}

} // namespace VLANKit::LocationNames
