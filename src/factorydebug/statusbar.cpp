#include "statusbar.h"

#include "ui_statusbar.h"

#include "common/trace.h"

#include "kvwidget/kviconbutton.h"

#include <QLabel>
#include <QPainter>

StatusBar::StatusBar(QWidget *parent)
    : KvWidget(parent)
    , ui(new UI_StatusBar)
{
    setGeometry(QRect(QPoint(0, 0), QPoint(799, 65)));
    ui->setupUi(this);
    connect(ui->returnButton, &KvIconButton::btnClicked, this, &StatusBar::buttonClicked);
    connect(ui->exitButton, &KvIconButton::btnClicked, this, &StatusBar::buttonClicked);
    interPrimary();
}

StatusBar::~StatusBar() = default;

void StatusBar::interPrimary()
{
    FACTORY_TRACE << "interPrimary";
    ui->titleLabel->setText(tr("Factory"));
    ui->returnButton->hide();
    ui->exitButton->show();
}

void StatusBar::interSecondary(QString title)
{
    FACTORY_TRACE << "interSecondary" << title;
    ui->titleLabel->setText(title);
    ui->returnButton->show();
    ui->exitButton->hide();
}

void StatusBar::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(0, 0, width(), height(), QColor(51, 51, 53, 255));
}
