#pragma once

#include <QString>
#include <QStringList>

/// Empty when \a lines are those of the reference <name>.txt beside this file, or of docs/<name>
/// where that ends with ".md"; or the first difference, for QVERIFY2 and the like. The lines are
/// then left among the build's files, from where "./test --accept-journals" takes them over.
QString listComplaint(const QString &name, const QStringList &lines);
