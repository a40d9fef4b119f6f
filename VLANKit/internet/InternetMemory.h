#pragma once

#include "VLANKit/internet/InternetMarks.h"

#include <QList>
#include <QMap>
#include <QString>

namespace VLANKit {

class Defaults;

/// The keeper of the Internet marks in the user defaults: one pair of keys per Location, the
/// marks under "Orvane.internetMarks." and the older plain list of ticks, still written beside
/// them, under "Orvane.internet.", each followed by the Location's name verbatim.
namespace InternetMemory {

[[nodiscard]] QString marksKey(const QString &location);
[[nodiscard]] QString ticksKey(const QString &location);

/// The Location's memory brought together with the services it holds now.
[[nodiscard]] InternetMarks marks(const QString &location,
                                  const QList<InternetMarks::Candidate> &holding,
                                  const Defaults &defaults);
/// Stores the marks and their ticks; nothing for a Location without a name.
void keep(const InternetMarks &marks, const QString &location, Defaults &defaults);
/// The stored form already says what the marks say.
[[nodiscard]] bool holds(const InternetMarks &marks, const QString &location,
                         const Defaults &defaults);
void forget(const QString &location, Defaults &defaults);
/// Moves the memory to the new name; stale memory under the new name goes.
void rename(const QString &oldName, const QString &newName, Defaults &defaults);
/// Gives a copied Location its source's memory, each service under its copy's identifier.
void carry(const QString &from, const QString &to, const QMap<QString, QString> &through,
           Defaults &defaults);

} // namespace InternetMemory

} // namespace VLANKit
