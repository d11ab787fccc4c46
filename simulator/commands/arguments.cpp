#include "arguments.h"

#include "simulator/screen.h"

namespace simulator
{

bool readNumber(const QString &word, const QString &name, int least, int most, int *number,
                QString *error)
{
    bool isNumber = false;
    *number = word.toInt(&isNumber);
    if (isNumber && *number >= least && *number <= most) {
        return true;
    }
    *error = QStringLiteral("%1 is a whole number from %2 to %3, not \"%4\"")
                 .arg(name, QString::number(least), QString::number(most), word);
    return false;
}

bool readPosition(const QString &x, const QString &y, QPoint *position, QString *error)
{
    return readNumber(x, QStringLiteral("X"), 0, Screen::resolution.width() - 1, &position->rx(),
                      error)
        && readNumber(y, QStringLiteral("Y"), 0, Screen::resolution.height() - 1, &position->ry(),
                      error);
}

} // namespace simulator
