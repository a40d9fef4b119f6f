#include "OrvaneApp/drive/DriveCare.h"

#include "OrvaneApp/drive/DriveEndings.h"
#include "OrvaneApp/drive/DriveLog.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace DriveCare {

namespace {

/// Written once during start-up, before any other thread exists; read by the drive proof.
std::optional<Care> taken;

} // namespace

Endings systemEndings()
{
    return {orvane_end_on_bus_error, orvane_end_when_taken_away, DriveLog::write};
}

std::optional<Care> armFor(const std::optional<VolumeFacts> &facts, const QString &executable,
                           const Endings &endings)
{
    if (!facts || !facts->canBeTakenAway())
        return std::nullopt;
    endings.armBusError();
    const bool watched = endings.armWatch(QFile::encodeName(executable).constData()) == 0;
    // The line follows the arming, so that nothing stands before the endings.
    endings.log(watched);
    return Care{facts->volume, watched};
}

std::optional<Care> begin(const QString &bundle, const QString &executable)
{
    return armFor(VolumeFacts::read(bundle), executable, systemEndings());
}

void beginForThisApp()
{
    const std::optional<QString> bundle = bundleOfThisApp();
    const std::optional<QString> executable = executableOfThisApp();
    if (!bundle || !executable)
        return;
    taken = begin(*bundle, *executable);
}

const std::optional<Care> &current()
{
    return taken;
}

QString logLine(bool closesWhenPulled)
{
    return u"Running from a drive that can be taken away. Closes when it is pulled: "_s
           + (closesWhenPulled ? u"true"_s : u"false"_s) + u'.';
}

} // namespace DriveCare
