#include "OrvaneApp/drive/DriveCare.h"
#include "OrvaneApp/drive/DriveLog.h"

#include <syslog.h>

namespace DriveLog {

void toSystemLog(bool closesWhenPulled)
{
    syslog(LOG_USER | LOG_NOTICE, "%s", DriveCare::logLine(closesWhenPulled).toUtf8().constData());
}

} // namespace DriveLog
