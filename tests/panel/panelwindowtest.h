#pragma once

#include "panelunit.h"

#include "panel/panelwindow.h"

#include <QtTest>

/// The panel in the hands of a person, with a unit in a program of its own.
class PanelWindowTest : public QObject
{
protected:
    /// With settings of the test's own.
    void startUnit();
    /// Waits until it shows the unit.
    void openWindow();

    template <typename Type = QWidget> Type *find(const char *name) const
    {
        return m_window->findChild<Type *>(name);
    }
    void click(const char *name) { QTest::mouseClick(find(name), Qt::LeftButton); }
    void showTab(int index);
    bool waitForLine(const QString &pattern) const;
    void tell(const QList<QStringList> &commands) const;
    /// Goes to the menu, whatever is open.
    void openMenu() const;

    PanelUnit m_unit;
    QScopedPointer<panel::PanelWindow> m_window;
};
