#include "panelwindowtest.h"

#include "panel/panelstyle.h"

#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>

void PanelWindowTest::startUnit()
{
    static const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    QCoreApplication::setOrganizationName("factorydebug-test");
    QCoreApplication::setApplicationName("panel-"
                                         + QString::number(QCoreApplication::applicationPid()));
    panel::style::apply(*qApp);
    QVERIFY(m_unit.start());
}

void PanelWindowTest::openWindow()
{
    m_window.reset(new panel::PanelWindow(m_unit.folder()));
    m_window->show();
    m_window->start();
    QTRY_VERIFY_WITH_TIMEOUT(find("usb0Plug") != nullptr, patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(find("usb0Plug")->isVisible(), patienceMs);
}

void PanelWindowTest::showTab(int index)
{
    find<QTabWidget>("tabs")->setCurrentIndex(index);
}

bool PanelWindowTest::waitForLine(const QString &pattern) const
{
    return QTest::qWaitFor([&] { return m_unit.hasLine(pattern); }, patienceMs);
}

void PanelWindowTest::tell(const QList<QStringList> &commands) const
{
    for (const QStringList &command : commands) {
        m_unit.ask(command);
    }
}

void PanelWindowTest::openMenu() const
{
    tell({{"key", "HOME"}, {"key", "FACTORY"}, {"see", "Factory", "20000"}});
}
