#include "formwidgets.h"

#include <QWidget>

void formwidgets::show(const QList<QWidget *> &widgets)
{
    for (QWidget *widget : widgets) {
        widget->show();
    }
}

void formwidgets::dismiss(const QList<QWidget *> &widgets)
{
    for (QWidget *widget : widgets) {
        widget->hide();
        widget->deleteLater();
    }
}
