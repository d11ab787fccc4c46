#pragma once

#include "gate/gateprobe/gateprobe.h"

#include <QByteArray>
#include <QString>

/// The ways in which the probe was compiled and linked, as names for data rows.
const char *const probeModules[] = {"gateprobe", "gateprobe-hardened", "gateprobe-largefile",
                                    "gateprobe-symbolic"};

/// The probe of that module, loaded as a plug-in is; ends the test program when it cannot be.
const GateProbe &probeOf(const QByteArray &module);

/// Adds the columns module (QByteArray) and call (int, index of the call) with a row for each call
/// of each module.
void addProbeRows();
