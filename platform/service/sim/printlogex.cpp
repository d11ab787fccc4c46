#include "service/printlogex.h"

#include "hardware/unit/unit.h"
#include "simlink/simulatedunit.h"

#include <QString>

#include <cstdarg>

void printLogEx(const char *level, const char *tag, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const QString text = QString::vasprintf(format, arguments);
    va_end(arguments);
    simlink::unit().journal().write(
        QStringLiteral("log"),
        QStringLiteral("%1 %2 ").arg(QLatin1String(level), QLatin1String(tag)) + text);
}
