#include "mcumessage.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace panel
{

namespace
{

QString said(const char *text)
{
    return QCoreApplication::translate("panel::McuMessage", text);
}

/// The bytes around a colour, and around nothing, are the plug-in's: what each of them means is
/// known to the microcontroller alone.
QString colorMeaning(const QString &text)
{
    static const QRegularExpression color(QStringLiteral("^FF 66 06 15 84 FE (..) (..) (..) FF$"));
    const QRegularExpressionMatch match = color.match(text);
    if (!match.hasMatch()) {
        return QString();
    }
    QString meaning = said("key light: red %1, green %2, blue %3");
    for (int part = 1; part <= 3; ++part) {
        meaning = meaning.arg(match.captured(part).toInt(nullptr, 16));
    }
    return meaning;
}

} // namespace

QString mcuMeaning(const QString &text)
{
    if (text == QLatin1String("FF 66 05 1B 8E 05 00 00 FF")) {
        return said("the user software is to be updated");
    }
    if (text == QLatin1String("reboot")) {
        return said("restarts the unit");
    }
    if (text == QLatin1String("update ready 1")) {
        return said("an update may begin at any moment");
    }
    if (text == QLatin1String("update ready 0")) {
        return said("no update is near any more");
    }
    return text.startsWith(QLatin1String("beep ")) ? said("a tone") : colorMeaning(text);
}

} // namespace panel
