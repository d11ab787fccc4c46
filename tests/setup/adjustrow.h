#pragma once

#include "support/runcheck.h"
#include "support/testunit.h"

#include "kvwidget/baseview.h"

#include <QtTest>

#include <cstddef>

/// One row of a page on which buttons step a value down and up: its subject, and the names and
/// texts on it.
struct AdjustRow
{
    const char *subject;
    const char *nameLabel;
    const char *name;
    const char *decrease;
    const char *decreaseId;
    const char *valueLabel;
    const char *increase;
    const char *increaseId;
    int start; // What a new unit has.
};

/// The page's own geometry, too: the form resizes what was given a rectangle before.
void checkForm(const BaseView *page, const QRect &geometry, const QString &title,
               const QRect &layoutGeometry);

/// A style sheet of the page's own makes all of it black.
void checkOwnBlackStyle(const BaseView *page);

/// That the page, on the unit's screen, is black at those points of it.
void checkIsBlack(TestUnit &unit, const BaseView *page, const QVector<QPoint> &points);

void checkNameLabel(const BaseView *page, const char *label, const char *text,
                    const QString &styleSheet);

/// The style sheet of a name label that is not styled by its own object name.
extern const QString plainNameStyle;

/// A row's name label, and what its two buttons have on every page.
void checkRow(const BaseView *page, const AdjustRow &row, const QString &nameStyle);

/// A row's value label where it grows with its text.
void checkGrowingValue(const BaseView *page, const AdjustRow &row);

/// That both of a row's buttons have that size and no other.
void checkFixedButtons(const BaseView *page, const AdjustRow &row, const QSize &size);

/// Where a widget's middle is.
QPoint middleOf(const BaseView *page, const char *widget);

/// That a row stands in line with \a first, and its buttons with one another.
void checkAlignment(const BaseView *page, const AdjustRow &row, const AdjustRow &first);

/// The same, and the values in line as well.
void checkAlignmentWithValue(const BaseView *page, const AdjustRow &row, const AdjustRow &first);

/// That a button is to be seen, otherwise while it is pressed, and after that as before.
void checkShowsAndPresses(TestUnit &unit, const BaseView *page, const char *button);

/// Does what the page's button of that id would do.
void clickAdjustItem(BaseView *page, const QString &id);

/// Test data "id".
void addIds(const QVector<const char *> &ids);

/// Test data "index" of the first \a count rows.
template <typename Row, std::size_t size>
void addIndexes(const Row (&rows)[size], int count = int(size))
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < count; ++index) {
        QTest::newRow(rows[index].subject) << index;
    }
}
