#pragma once

// The two endings of drive care. They are plain functions with C linkage because what matters
// is that the system itself ends the process: no routine of the application stands between
// the event and the exit.
extern "C" {

/// Arms the watch on the file at `path` (zero-terminated): when its volume goes, the process
/// ends with status 0. Answers 0 when the watch is armed, -1 when it is not.
int orvane_end_when_taken_away(const char *path);

/// A bus error, raised when a page of the program can no longer be read, ends the process
/// with status 10.
void orvane_end_on_bus_error(void);
}
