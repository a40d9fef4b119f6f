#include "VLANKit/internet/InternetMemory.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/files/Defaults.h"

using namespace Qt::StringLiterals;

namespace VLANKit::InternetMemory {

namespace {

std::optional<QList<InternetMarks::Mark>> storedMarks(const QString &location,
                                                      const Defaults &defaults)
{
    return InternetMarks::marksFromStored(defaults.value(marksKey(location)));
}

std::optional<QSet<QString>> storedTicks(const QString &location, const Defaults &defaults)
{
    const auto ticks = defaults.stringList(ticksKey(location));
    if (!ticks)
        return std::nullopt;
    return QSet<QString>(ticks->cbegin(), ticks->cend());
}

QList<QVariantMap> storedForm(const QList<InternetMarks::Mark> &marks)
{
    return InternetMarks{marks, {}}.stored();
}

void moveKey(const QString &from, const QString &to, Defaults &defaults)
{
    if (const auto value = defaults.value(from))
        defaults.setValue(to, *value);
    else
        defaults.remove(to);
    defaults.remove(from);
}

} // namespace

QString marksKey(const QString &location)
{
    return u"Orvane.internetMarks."_s + location;
}

QString ticksKey(const QString &location)
{
    return u"Orvane.internet."_s + location;
}

InternetMarks marks(const QString &location, const QList<InternetMarks::Candidate> &holding,
                    const Defaults &defaults)
{
    return InternetMarks::reconciled(storedMarks(location, defaults),
                                     storedTicks(location, defaults), holding);
}

void keep(const InternetMarks &marks, const QString &location, Defaults &defaults)
{
    if (location.isEmpty())
        return;
    const QSet<QString> ids = marks.internetServiceIDs();
    QStringList ticks(ids.cbegin(), ids.cend());
    sortCanonically(ticks);
    defaults.setMapList(marksKey(location), marks.stored());
    defaults.setStringList(ticksKey(location), ticks);
}

bool holds(const InternetMarks &marks, const QString &location, const Defaults &defaults)
{
    const auto stored = storedMarks(location, defaults);
    const auto ticks = storedTicks(location, defaults);
    return stored && *stored == marks.marks && ticks && *ticks == marks.internetServiceIDs();
}

void forget(const QString &location, Defaults &defaults)
{
    defaults.remove(marksKey(location));
    defaults.remove(ticksKey(location));
}

void rename(const QString &oldName, const QString &newName, Defaults &defaults)
{
    // Moving a key onto itself would end by removing it.
    if (oldName == newName)
        return;
    moveKey(marksKey(oldName), marksKey(newName), defaults);
    moveKey(ticksKey(oldName), ticksKey(newName), defaults);
}

void carry(const QString &from, const QString &to, const QMap<QString, QString> &through,
           Defaults &defaults)
{
    forget(to, defaults);
    if (const auto ticks = defaults.stringList(ticksKey(from))) {
        QStringList carried;
        for (const QString &serviceID : *ticks) {
            if (const auto copy = through.constFind(serviceID); copy != through.constEnd())
                carried.append(*copy);
        }
        defaults.setStringList(ticksKey(to), carried);
    }
    const auto marks = storedMarks(from, defaults);
    if (!marks)
        return;
    QList<InternetMarks::Mark> carried;
    for (InternetMarks::Mark mark : *marks) {
        if (const auto copy = through.constFind(mark.serviceID); copy != through.constEnd()) {
            mark.serviceID = *copy;
            carried.append(mark);
        } else if (mark.device) {
            // A VLAN's mark may still find its service by tag and device.
            carried.append(mark);
        }
    }
    defaults.setMapList(marksKey(to), storedForm(carried));
}

} // namespace VLANKit::InternetMemory
