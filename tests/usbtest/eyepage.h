#pragma once

#include "usbtest/usbeyetestview.h"

#include "formhost.h"

#include <QLabel>
#include <QtTest>

const double eyeSpeed = 100;
const quint32 telling = 0xA5A5A5A5;
const quint32 swingRegister = 0x9C000190;

/// The page on a visible host that fills the unit's screen.
class EyePage : public FormHost
{
public:
    explicit EyePage(TestUnit &unit)
        : FormHost(unit, QSize(700, 400)) // the form gives it another
    {
        m_view = new USBEyeTestView(host());
    }

    USBEyeTestView *view() { return m_view; }

    bool isVisible(const char *name) const { return find<QWidget>(name)->isVisible(); }
    bool isChecked(const char *name) const { return find<QAbstractButton>(name)->isChecked(); }
    QString value() const { return find<QLabel>("value")->text(); }

    /// Touches a button; check boxes and radio buttons on their mark.
    void tap(const char *name)
    {
        const auto *widget = find<QWidget>(name);
        QVERIFY2(widget->isVisible() && widget->isEnabled(), name);
        const bool hasMark = qobject_cast<const QAbstractButton *>(widget) != nullptr;
        const QPoint place = hasMark ? QPoint(24, widget->height() / 2) : widget->rect().center();
        m_unit.tap(widget->mapTo(&m_unit.screen(), place));
    }

private:
    USBEyeTestView *m_view;
};

inline QStringList writes(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("/^memory write /"));
}

/// Fills the named registers with a value that no page writes, so that every write is seen.
inline void fill(TestUnit &unit)
{
    unit.unit().memory().fill(telling);
}

inline QStringList since(const TestUnit &unit, int count)
{
    return unit.journal().mid(count);
}
