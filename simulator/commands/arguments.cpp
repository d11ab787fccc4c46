#include "arguments.h"

#include "hardware/unit/clock.h"
#include "simulator/window/screen.h"

#include <limits>

using hardware::Clock;

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

bool readFactor(const QString &word, const QString &name, double least, double most, double *factor,
                QString *error)
{
    bool isNumber = false;
    *factor = word.toDouble(&isNumber);
    // No number is neither in the range nor outside of it.
    if (isNumber && *factor >= least && *factor <= most) {
        return true;
    }
    *error = QStringLiteral("%1 is a number from %2 to %3, not \"%4\"")
                 .arg(name, QString::number(least), QString::number(most), word);
    return false;
}

bool readSpeed(const QString &word, const QString &name, double *factor, QString *error)
{
    return readFactor(word, name, Clock::slowest, Clock::fastest, factor, error);
}

bool readWrong(const QString &word, bool *isWrong, QString *error)
{
    *isWrong = word == QLatin1String("wrong");
    if (!*isWrong && !word.isEmpty()) {
        *error = QStringLiteral("only \"wrong\" may follow here, not \"%1\"").arg(word);
        return false;
    }
    return true;
}

bool readNumberOrWrong(const QString &word, const QString &name, int least, int most, bool isWrong,
                       int *number, QString *error)
{
    if (isWrong) {
        return readNumber(word, name, std::numeric_limits<int>::min(),
                          std::numeric_limits<int>::max(), number, error);
    }
    if (readNumber(word, name, least, most, number, error)) {
        return true;
    }
    *error += QStringLiteral("; \"wrong\" behind it allows others");
    return false;
}

bool readPosition(const QString &x, const QString &y, QPoint *position, QString *error, int beyond)
{
    return readNumber(x, QStringLiteral("X"), -beyond, Screen::resolution.width() - 1 + beyond,
                      &position->rx(), error)
        && readNumber(y, QStringLiteral("Y"), -beyond, Screen::resolution.height() - 1 + beyond,
                      &position->ry(), error);
}

} // namespace simulator
