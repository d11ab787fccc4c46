#pragma once

#include "kvwidget/baseview.h"

#include <QtTest>

#include <cstddef>

/// One row of a page on which buttons step a value down and up: its subject, and the names and
/// ids on it.
struct AdjustRow
{
    const char *subject;
    const char *decrease;
    const char *decreaseId;
    const char *valueLabel;
    const char *increase;
    const char *increaseId;
    int start; // What a new unit has.
};

/// Does what the page's button of that id would do.
void clickAdjustItem(BaseView *page, const QString &id);

/// The line that the page of that class logs for the button.
QString loggedItem(const char *page, const char *id);

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
