#pragma once

#include "support/runcheck.h"
#include "support/testunit.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QtTest>

/// The page's widget of that name; ends the test program when there is none.
template <typename Widget> Widget *widgetOf(const QWidget *page, const char *name)
{
    auto *found = page->findChild<Widget *>(QLatin1String(name));
    if (found == nullptr) {
        qFatal("The page has no %s.", name);
    }
    return found;
}

/// A page of the plug-in on a unit's screen, in the rectangle that the main view gives to pages.
template <typename Page> class PageOnScreen
{
public:
    PageOnScreen()
    {
        // The unit's font, by whose metrics texts fit or do not.
        QApplication::setFont(QFont(QStringLiteral("Liberation Sans")));
    }
    ~PageOnScreen() { delete page.data(); }
    Q_DISABLE_COPY(PageOnScreen)

    /// Makes and shows the page; what it does meanwhile is news.
    void open()
    {
        m_seen = unit.unit().journal().end();
        page = new Page(QRect(QPoint(0, 66), QPoint(799, 477)),
                        unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
        page->show();
    }

    /// Taps the middle of the page's widget of that name.
    void tap(const char *name) { unit.tap(widget<QWidget>(name)); }

    template <typename Widget> Widget *widget(const char *name) const
    {
        return widgetOf<Widget>(page, name);
    }

    QString text(const char *label) const { return widget<QLabel>(label)->text(); }

    /// The journal's matching lines since the last call, or since the opening.
    QStringList news(const QString &pattern = QString())
    {
        const qint64 from = m_seen;
        m_seen = unit.unit().journal().end();
        return unit.unit().journal().lines(pattern, from);
    }

    TestUnit unit;
    QPointer<Page> page;

private:
    qint64 m_seen = 0;
};

/// Whether the whole of a label's text lies inside it.
inline bool isTextInside(const QLabel *label)
{
    const QRect text = label->fontMetrics().boundingRect(label->text());
    const int advance = label->fontMetrics().horizontalAdvance(label->text());
    return advance <= label->contentsRect().width()
        && text.height() <= label->contentsRect().height();
}
