#pragma once

#include "kvwidget/baseview.h"

#include <QtTest>

/// Does what the page's button of that id would do.
void clickAdjustItem(BaseView *page, const QString &id);

/// The line that the page of that class logs for the button.
QString loggedItem(const char *page, const char *id);

/// Test data "id".
void addIds(const QVector<const char *> &ids);
