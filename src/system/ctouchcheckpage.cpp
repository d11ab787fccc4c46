#include "ctouchcheckpage.h"

#include "common/textonimage.h"

#include "kvappframework/uimanager.h"
#include "kvwidget/kviconbutton.h"

#include <QMouseEvent>
#include <QPainter>

namespace
{

/// A mark, and where its coordinates are written.
struct Mark
{
    QPoint centre;
    QPoint label;
};

constexpr Mark marks[] = {
    {QPoint(30, 30), QPoint(15, 55)},     {QPoint(770, 30), QPoint(750, 55)},
    {QPoint(770, 450), QPoint(750, 435)}, {QPoint(30, 450), QPoint(15, 435)},
    {QPoint(400, 240), QPoint(385, 265)},
};

constexpr QPoint touchLabel(300, 240);
constexpr int armLength = 15;

} // namespace

CTouchCheckPage::CTouchCheckPage(QWidget *parent)
    : QWidget(parent)
    , m_touchPoint(0, 0)
{
    setGeometry(kvappframework::UIManager::getDeskTopRect());
    initBackButton(parent);
    initMarks();
    m_touchPoint = QPoint(400, 240);
    QFont labelFont;
    labelFont.setPixelSize(12);
    setFont(labelFont);
}

CTouchCheckPage::~CTouchCheckPage()
{
    delete m_backButton;
}

void CTouchCheckPage::initBackButton(QWidget *parent)
{
    m_backButton = new KvIconButton(parent);
    m_backButton->setMinimumSize(80, 65);
    m_backButton->setGeometry(0, 0, 80, 65);
    m_backButton->setNormalImage(QPixmap(QStringLiteral(":/images/btn_back_n.png")));
    m_backButton->setPressImage(QPixmap(QStringLiteral(":/images/btn_back_p.png")));
    m_backButton->setShowMode(textOnImage);
    m_backButton->setButtonID(QStringLiteral("idBackBtn"));
    // Nothing shows it again.
    m_backButton->hide();
    connect(m_backButton.data(), &KvIconButton::btnReleased, this,
            &CTouchCheckPage::backBtnClickSlot);
}

void CTouchCheckPage::initMarks()
{
    for (const Mark &mark : marks) {
        m_referencePoints.append(mark.centre);
        m_labelPositions.append(mark.label);
    }
}

void CTouchCheckPage::drawCrossHair(QPoint &centre, QPoint &labelPosition, QPainter &painter)
{
    const int x = centre.x();
    const int y = centre.y();
    const QString text = QStringLiteral("(%1,%2)").arg(x).arg(y);
    painter.drawLine(x - armLength, y, x + armLength, y);
    painter.drawLine(x, y - armLength, x, y + armLength);
    painter.drawText(QPointF(labelPosition), text);
}

void CTouchCheckPage::backBtnClickSlot(QString id)
{
    Q_UNUSED(id);
    emit sigExitPage();
}

void CTouchCheckPage::mousePressEvent(QMouseEvent *event)
{
    followFinger(event);
}

void CTouchCheckPage::mouseMoveEvent(QMouseEvent *event)
{
    followFinger(event);
}

void CTouchCheckPage::mouseReleaseEvent(QMouseEvent *event)
{
    Q_UNUSED(event);
}

void CTouchCheckPage::followFinger(const QMouseEvent *event)
{
    m_touchPoint = QPoint(qRound(event->localPos().x()), qRound(event->localPos().y()));
    update();
}

void CTouchCheckPage::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(0, 0, width(), height(), QColor(255, 255, 255));
    QPen pen(QColor(0, 0, 0), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(pen);
    painter.drawPoint(0, 0);
    for (int i = 0; i < m_referencePoints.size(); ++i) {
        drawCrossHair(m_referencePoints[i], m_labelPositions[i], painter);
    }
    pen.setColor(QColor(255, 0, 0));
    painter.setPen(pen);
    QPoint label = touchLabel;
    drawCrossHair(m_touchPoint, label, painter);
    painter.end();
}
