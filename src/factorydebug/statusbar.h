#pragma once

#include "kvwidget/kvwidget.h"

#include <QScopedPointer>

class UI_StatusBar;

/// The strip across the top of the main view, 800 x 66: on the menu its title and the exit button,
/// on a page the page's title and the return button.
class StatusBar : public KvWidget
{
    Q_OBJECT

public:
    explicit StatusBar(QWidget *parent);
    ~StatusBar() override;

public slots:
    /// Shows the menu's title and the exit button.
    void interPrimary();
    /// Shows \a title, which the caller has translated, and the return button.
    void interSecondary(QString title);

signals:
    /// A button was clicked: "return" or "exit".
    void buttonClicked(QString id);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(StatusBar)

    QScopedPointer<UI_StatusBar> ui;
};
