#include "screen.h"

#include "bootscreen.h"
#include "homescreen.h"

#include <QPainter>

namespace simulator
{

Screen::Screen(QWidget *parent)
    : QWidget(parent)
    , m_homeScreen(new HomeScreen(this))
    , m_bootScreen(new BootScreen(this))
{
    setFixedSize(resolution);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_homeScreen->setGeometry(rect());
    m_bootScreen->setGeometry(rect());
    m_bootScreen->hide();
}

HomeScreen &Screen::homeScreen()
{
    return *m_homeScreen;
}

void Screen::setBooting(bool booting)
{
    m_bootScreen->raise();
    m_bootScreen->setVisible(booting);
}

bool Screen::isBooting() const
{
    return !m_bootScreen->isHidden();
}

void Screen::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace simulator
