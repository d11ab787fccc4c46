#pragma once

#include "support/testunit.h"

#include <QScopedPointer>
#include <QVector>

/// Gives the test program the unit's look: which texts fit is a matter of the unit's font.
void applyUnitsAppearance();

/// A visible host, on the whole of the unit's screen, for a page that lays its form on it.
class FormHost
{
public:
    explicit FormHost(TestUnit &unit, const QSize &size = QSize(800, 480));
    Q_DISABLE_COPY(FormHost)

    QWidget *host() const { return m_host.data(); }

    /// The form's widget of that name; ends the test program when there is none.
    template <typename Widget> Widget *find(const char *name) const
    {
        auto *found = m_host->findChild<Widget *>(QLatin1String(name));
        if (found == nullptr) {
            qFatal("The page has no %s.", name);
        }
        return found;
    }

    /// That deleting the page hides the form's widgets, of which some are named, and that none of
    /// them is left on the host a little later.
    void checkGoesWith(QObject *page, const QVector<const char *> &names) const;

protected:
    TestUnit &m_unit;

private:
    QScopedPointer<QWidget> m_host;
};
