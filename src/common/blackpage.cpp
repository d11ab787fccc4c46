#include "blackpage.h"

#include <QWidget>

void makeBlackPage(QWidget *page, const char *styleSheet)
{
    page->setAttribute(Qt::WA_StyledBackground);
    page->setStyleSheet(QString::fromLatin1(styleSheet));
}
