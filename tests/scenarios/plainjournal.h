#pragma once

#include <QStringList>

/// The lines of a journal's file that are to be the same in every run of a session: without times,
/// and without what devices on other threads say at a time of their own, and what the window system
/// paints, or the console reads, as often as it sees fit. What nobody knows the cause of has a
/// mark.
QStringList plainJournal(const QString &text);
