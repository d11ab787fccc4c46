#include "panelstyle.h"
#include "panelwindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("factorydebug"));
    QCoreApplication::setApplicationName(QStringLiteral("headunit-panel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FACTORYDEBUG_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows what a simulated head unit does, and plays the world around it."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QString usual = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QLatin1String("/factorydebug/unit");
    const QCommandLineOption unit(
        QStringLiteral("unit"),
        QStringLiteral("The unit's folder, as headunit was given. Default: %1").arg(usual),
        QStringLiteral("dir"), usual);
    parser.addOption(unit);
    parser.process(application);
    if (!parser.positionalArguments().isEmpty()) {
        parser.showHelp(2);
    }

    panel::style::apply(application);
    panel::PanelWindow window(QDir(parser.value(unit)).absolutePath());
    window.show();
    window.start();
    return QApplication::exec();
}
