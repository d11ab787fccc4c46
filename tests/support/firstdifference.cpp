#include "firstdifference.h"

QString firstDifference(const QStringList &got, const QStringList &expected)
{
    if (got == expected) {
        return QString();
    }
    int index = 0;
    while (index < got.size() && index < expected.size() && got.at(index) == expected.at(index)) {
        ++index;
    }
    const QString end = QStringLiteral("(the end)");
    const QString before =
        QStringList(got.mid(qMax(0, index - 3), qMin(3, index))).join(QStringLiteral("\n  "));
    return QStringLiteral("line %1 is\n  %2\nand not\n  %3\nbehind\n  %4")
        .arg(index + 1)
        .arg(got.value(index, end), expected.value(index, end), before);
}
