#include "service/printlogex.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

#include <QString>

#include <cstdarg>

void printLogEx(const char *level, const char *tag, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const QString text = QString::vasprintf(format, arguments);
    va_end(arguments);
    unitlink::unit().journal().write(
        QStringLiteral("log"),
        QStringLiteral("%1 %2 ").arg(QLatin1String(level), QLatin1String(tag)) + text);
}
