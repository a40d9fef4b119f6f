#include "OrvaneApp/drive/DriveLog.h"

#include <os/log.h>

namespace DriveLog {

void toSystemLog(bool closesWhenPulled)
{
    static const os_log_t log = os_log_create("com.quillfence.orvane", "drive");
    os_log(log, "Running from a drive that can be taken away. Closes when it is pulled: %{bool}d.",
           closesWhenPulled ? 1 : 0);
}

} // namespace DriveLog
