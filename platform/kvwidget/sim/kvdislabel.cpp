#include "kvwidget/kvdislabel.h"

#include "kvpainting.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace
{

constexpr int smallestText = 12;

}

KvDisLabel::KvDisLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void KvDisLabel::setAdaptiveFontSize(const bool &adaptive)
{
    m_adaptiveFontSize = adaptive;
    updateGeometry();
    update();
}

QFont KvDisLabel::shownFont() const
{
    if (!m_adaptiveFontSize) {
        return font();
    }
    const QSize area(textArea().width(), QWIDGETSIZE_MAX);
    return kvpainting::fittedFont(font(), QFontInfo(font()).pixelSize(), smallestText, text(),
                                  area);
}

QSize KvDisLabel::minimumSizeHint() const
{
    if (!m_adaptiveFontSize) {
        return QLabel::minimumSizeHint();
    }
    QFont smallest = font();
    smallest.setPixelSize(qMin(QFontInfo(font()).pixelSize(), smallestText));
    const QSize around = size() - textArea().size();
    return QFontMetrics(smallest).size(0, text()) + around;
}

void KvDisLabel::paintEvent(QPaintEvent *event)
{
    if (!m_adaptiveFontSize) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    painter.setFont(shownFont());
    const Qt::Alignment visual = QStyle::visualAlignment(layoutDirection(), alignment());
    kvpainting::drawLines(painter, textArea(), int(visual), text());
}

QRect KvDisLabel::textArea() const
{
    QRect area = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    // Where no indent is set, a label with a frame keeps half an "x" from it.
    const int framed =
        frameWidth() ? fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2 - margin() : 0;
    const int indented = qMax(0, indent() < 0 ? framed : indent());
    if (alignment() & Qt::AlignLeft) {
        area.setLeft(area.left() + indented);
    }
    if (alignment() & Qt::AlignRight) {
        area.setRight(area.right() - indented);
    }
    return area;
}
