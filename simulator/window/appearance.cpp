#include "appearance.h"

#include "colors.h"
#include "unitstyle.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>

namespace simulator
{

namespace appearance
{

namespace
{

/// Has Arial's metrics.
const QLatin1String fontFamily("Liberation Sans");
const int fontPixelSize = 16;

QFont unitFont()
{
    QFont font(fontFamily);
    font.setPixelSize(fontPixelSize);
    // What the desktop's settings would decide otherwise.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    font.setStyleStrategy(
        QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

QPalette unitPalette()
{
    QPalette palette(colors::surface, colors::background);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText}) {
        palette.setColor(role, colors::text);
        palette.setColor(QPalette::Disabled, role, colors::dimmedText);
    }
    palette.setColor(QPalette::Base, colors::background);
    palette.setColor(QPalette::Highlight, colors::accent);
    palette.setColor(QPalette::HighlightedText, colors::background);
    return palette;
}

} // namespace

void prepareEnvironment()
{
    qputenv("QT_FONT_DPI", "72");
    qputenv("QT_AUTO_SCREEN_SCALE_FACTOR", "0");
    qputenv("QT_SCALE_FACTOR", "1");
    qunsetenv("QT_SCREEN_SCALE_FACTORS");
    qunsetenv("QT_STYLE_OVERRIDE");
    qunsetenv("QT_QPA_PLATFORMTHEME");
}

bool apply(QString *error)
{
    if (!QFontDatabase().hasFamily(fontFamily)) {
        *error = QStringLiteral("The font \"%1\" is missing; the package fonts-liberation has it.")
                     .arg(fontFamily);
        return false;
    }
    QFont::insertSubstitution(QStringLiteral("Arial"), fontFamily);
    QApplication::setStyle(new UnitStyle);
    QApplication::setPalette(unitPalette());
    QApplication::setFont(unitFont());
    QApplication::setCursorFlashTime(0);
    // A finger's second touch is a touch like the first.
    QApplication::setDoubleClickInterval(0);
    return true;
}

} // namespace appearance

} // namespace simulator
