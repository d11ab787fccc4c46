#pragma once

#include <QList>

class QWidget;

/// What the forms of pages that are no widgets do with their widgets on the host.
namespace formwidgets
{

/// The host is visible already, and shows nothing by itself that is added to it.
void show(const QList<QWidget *> &widgets);

/// Hides them now and deletes them with the event loop's next turn.
void dismiss(const QList<QWidget *> &widgets);

} // namespace formwidgets
