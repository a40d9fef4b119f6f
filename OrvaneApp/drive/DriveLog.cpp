#include "OrvaneApp/drive/DriveLog.h"

namespace DriveLog {

namespace {

Sink replacement = nullptr;

} // namespace

void write(bool closesWhenPulled)
{
    (replacement != nullptr ? replacement : toSystemLog)(closesWhenPulled);
}

Sink replaceSink(Sink sink)
{
    const Sink before = replacement;
    replacement = sink;
    return before;
}

} // namespace DriveLog
