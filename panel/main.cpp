#include "panelstyle.h"
#include "panelwindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>

namespace
{

/// Ends the program when it is asked what it is, which needs no display.
void answer(int argc, char *argv[], QCommandLineParser &parser)
{
    const QCoreApplication application(argc, argv);
    // What is wrong is told by who knows Qt's own options.
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(QStringLiteral("version"))) {
        parser.showVersion();
    }
    if (parser.isSet(QStringLiteral("help"))) {
        parser.showHelp();
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setOrganizationName(QStringLiteral("factorydebug"));
    QCoreApplication::setApplicationName(QStringLiteral("headunit-panel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FACTORYDEBUG_VERSION));

    QCommandLineParser parser;
    // As Qt's own are written.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
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
    answer(argc, argv, parser);

    QApplication application(argc, argv);
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
