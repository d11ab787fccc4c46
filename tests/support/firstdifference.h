#pragma once

#include <QStringList>

/// Where two lists of lines part, with the lines before it; empty when they are the same, for
/// QCOMPARE and the like.
QString firstDifference(const QStringList &got, const QStringList &expected);
