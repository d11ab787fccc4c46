#include "ui_statusbar.h"

#include "common/textonimage.h"

#include "kvwidget/kviconbutton.h"

#include <QLabel>

UI_StatusBar::UI_StatusBar()
    : host(nullptr)
    , returnButton(nullptr)
    , titleLabel(nullptr)
    , exitButton(nullptr)
{
}

void UI_StatusBar::setupUi(QWidget *hostWidget)
{
    host = hostWidget;
    host->setGeometry(QRect(QPoint(0, 0), QPoint(799, 65)));
    setupReturnButton();
    setupTitleLabel();
    setupExitButton();
}

void UI_StatusBar::setupReturnButton()
{
    returnButton = new KvIconButton(host);
    returnButton->setMinimumSize(80, 65);
    returnButton->setGeometry(QRect(QPoint(0, 0), QPoint(79, 64)));
    returnButton->setNormalImage(QPixmap(QStringLiteral(":/images/btn_back_n.png")));
    returnButton->setPressImage(QPixmap(QStringLiteral(":/images/btn_back_p.png")));
    returnButton->setShowMode(textOnImage);
    returnButton->setButtonID(QStringLiteral("return"));
    returnButton->hide();
}

void UI_StatusBar::setupTitleLabel()
{
    titleLabel = new QLabel(host);
    titleLabel->setGeometry(QRect(QPoint(95, 0), QPoint(594, 65)));
    titleLabel->setStyleSheet(QStringLiteral("color:rgb(189, 189, 189);font-size:32px"));
    titleLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void UI_StatusBar::setupExitButton()
{
    exitButton = new KvIconButton(host);
    exitButton->setMinimumSize(80, 65);
    exitButton->setGeometry(QRect(QPoint(720, 0), QPoint(799, 64)));
    exitButton->setNormalImage(QPixmap(QStringLiteral(":/images/btn_exit_n.png")));
    exitButton->setPressImage(QPixmap(QStringLiteral(":/images/btn_exit_p.png")));
    // Set twice, as it always was; the second id is the one that counts.
    exitButton->setButtonID(QStringLiteral("return"));
    exitButton->setButtonID(QStringLiteral("exit"));
}
