#include "fingerlist.h"

#include "kvappframework/sysevent.h"

#include <QCoreApplication>
#include <QScreen>

namespace
{

constexpr QPoint listCorner(0, 66);
const int middle = 300;

QStringList rowTexts(int rows)
{
    QStringList texts;
    for (int row = 0; row < rows; ++row) {
        texts.append(QString::number(row));
    }
    return texts;
}

} // namespace

FingerList::FingerList(int rows)
    : m_host(&m_unit.screen())
    , m_model(rowTexts(rows))
    , m_delegate(nullptr)
    , m_list(new ListView(&m_host))
{
    m_host.setGeometry(0, 0, 800, 480);
    m_list->setGeometry(QRect(listCorner, QSize(800, 414)));
    m_list->setModel(&m_model);
    m_list->setItemDelegate(&m_delegate);
    m_host.installEventFilter(this);
    connect(m_list, &ListView::setIndexPress, this, [this](int row, bool press) {
        m_news.append(QStringLiteral("press %1 %2").arg(row).arg(int(press)));
    });
    connect(m_list, &ListView::listClicked, this, [this](const QModelIndex &index) {
        m_news.append(QStringLiteral("click %1").arg(index.row()));
    });
    m_host.show();
    QCoreApplication::processEvents();
    connect(m_list, &ListView::scrollbarVisible, this,
            [this](bool visible) { m_news.append(QStringLiteral("needed %1").arg(int(visible))); });
}

void FingerList::press(int y)
{
    pressAt(QPoint(middle, y));
}

void FingerList::move(int y)
{
    moveTo(QPoint(middle, y));
}

void FingerList::release(int y)
{
    releaseAt(QPoint(middle, y));
}

void FingerList::pressAt(const QPoint &point)
{
    m_unit.press(listCorner + point);
}

void FingerList::moveTo(const QPoint &point)
{
    m_unit.move(listCorner + point);
}

void FingerList::releaseAt(const QPoint &point)
{
    m_unit.release(listCorner + point);
}

QImage FingerList::shown()
{
    QCoreApplication::processEvents();
    const QWidget &screen = m_unit.screen();
    return screen.screen()->grabWindow(screen.winId()).toImage();
}

QStringList FingerList::takeNews()
{
    QStringList news;
    news.swap(m_news);
    return news;
}

bool FingerList::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == kvappframework::EventType_Beep) {
        m_news.append(QStringLiteral("beep"));
    }
    return QObject::eventFilter(watched, event);
}
