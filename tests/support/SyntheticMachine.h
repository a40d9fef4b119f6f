#pragma once

#include <QString>

/// A machine written for a test or a benchmark: Ethernet (en0) and a USB trunk (en5) named
/// DONGLE, with `vlanCount` VLANs on the trunk, tags 1 upwards, each with a manual service in
/// the one Location, "Show". Written as the system writes its files, in `folder`.
void writeSyntheticMachine(const QString &folder, int vlanCount);
