#pragma once

/// The one line drive care logs, at the system log's notice (default) level. Tests replace
/// where it goes.
namespace DriveLog {

using Sink = void (*)(bool closesWhenPulled);

/// Writes the line through the sink in force.
void write(bool closesWhenPulled);

/// Puts `sink` in place of the system's log, or the system's log back with null; answers the
/// sink it replaced.
Sink replaceSink(Sink sink);

/// The system's own log: syslog on Linux, os_log on macOS.
void toSystemLog(bool closesWhenPulled);

} // namespace DriveLog
