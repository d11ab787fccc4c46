#include "formhost.h"

#include "simulator/window/appearance.h"

#include <QPointer>
#include <QtTest>

void applyUnitsAppearance()
{
    QString error;
    QVERIFY2(simulator::appearance::apply(&error), qPrintable(error));
}

FormHost::FormHost(TestUnit &unit, const QSize &size)
    : m_unit(unit)
    , m_host(new QWidget(&unit.screen()))
{
    m_host->resize(size);
    m_host->show();
}

void FormHost::checkGoesWith(QObject *page, const QVector<const char *> &names) const
{
    QVector<QPointer<QWidget>> widgets;
    for (const char *name : names) {
        widgets.append(find<QWidget>(name));
    }
    delete page;
    for (const auto &widget : qAsConst(widgets)) {
        QVERIFY(widget && !widget->isVisible());
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const auto &widget : qAsConst(widgets)) {
        QVERIFY(!widget);
    }
    QVERIFY(m_host->findChildren<QWidget *>().isEmpty());
}
