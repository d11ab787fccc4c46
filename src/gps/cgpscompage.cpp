#include "cgpscompage.h"

#include "kvappframework/uimanager.h"

CGpsComPage::CGpsComPage(QWidget *parent)
    : BaseView(QStringLiteral("setup system version"), parent)
{
    setGeometry(kvappframework::UIManager::getDeskTopRect());
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("background-color:rgba(0, 0, 0, 255);"));
}

void CGpsComPage::mouseReleaseEvent(QMouseEvent *event)
{
    Q_UNUSED(event);
    deleteLater();
}
