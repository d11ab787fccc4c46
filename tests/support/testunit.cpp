#include "testunit.h"

#include "dab/sim/simdabmodule.h"
#include "kvappframework/sim/simmodulemanager.h"
#include "service/sim/simmediaplaymodule.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>
#include <QWindow>

namespace
{

bool openOrDie(hardware::Unit &unit)
{
    QString error;
    if (!unit.open(&error)) {
        qFatal("The test's unit cannot be opened: %s", qPrintable(error));
    }
    return true;
}

} // namespace

TestUnit::TestUnit(double timeFactor)
    : m_unit(m_folder.filePath(QStringLiteral("unit")), timeFactor)
    , m_open(openOrDie(m_unit))
    , m_gate(m_unit)
    , m_link(m_unit)
    , m_framework((m_screen.resize(800, 480), &m_screen))
{
    m_framework.modules().add(QStringLiteral("dab"), QSharedPointer<SimDabModule>::create());
    m_framework.modules().add(QStringLiteral("mediaplay"),
                              QSharedPointer<SimMediaplayModule>::create());
    m_screen.show();
    if (!QTest::qWaitForWindowExposed(&m_screen)) {
        qFatal("The test's screen does not appear.");
    }
}

QString TestUnit::path(const QString &unitPath) const
{
    return m_unit.folder().path(unitPath);
}

QStringList TestUnit::journal(const QString &pattern) const
{
    return m_unit.journal().lines(pattern);
}

void TestUnit::plug(const QString &slot)
{
    QString error;
    if (!m_unit.storage().plug(slot, QString(), &error)) {
        QFAIL(qPrintable(error));
    }
}

void TestUnit::press(const QPoint &point)
{
    QTest::mousePress(m_screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
}

void TestUnit::move(const QPoint &point)
{
    QTest::mouseMove(m_screen.windowHandle(), point);
}

void TestUnit::release(const QPoint &point)
{
    QTest::mouseRelease(m_screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
}

void TestUnit::tap(const QPoint &point)
{
    press(point);
    release(point);
}

void TestUnit::tap(const QWidget *widget)
{
    tap(widget->mapTo(&m_screen, widget->rect().center()));
}

void writeFile(const QString &path, const QByteArray &content)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
