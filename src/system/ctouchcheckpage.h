#pragma once

#include <QList>
#include <QPoint>
#include <QPointer>
#include <QWidget>

class KvIconButton;
class QPainter;

/// Checks the touch screen: five marks with their coordinates, and a red cross that follows the
/// finger. Covers the whole display and stays until its owner deletes it.
class CTouchCheckPage : public QWidget
{
    Q_OBJECT

public:
    explicit CTouchCheckPage(QWidget *parent);
    ~CTouchCheckPage() override;

    /// Draws a cross of 31 x 31 pixels and the coordinates of its centre in the painter's pen; the
    /// text's baseline begins at \a labelPosition.
    void drawCrossHair(QPoint &centre, QPoint &labelPosition, QPainter &painter);

signals:
    /// The page wants to be closed.
    void sigExitPage();

public slots:
    void backBtnClickSlot(QString id);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CTouchCheckPage)

    void initBackButton(QWidget *parent);
    void initMarks();
    void followFinger(const QMouseEvent *event);

    // The parent that both have may delete it first.
    QPointer<KvIconButton> m_backButton;
    QList<QPoint> m_referencePoints;
    QList<QPoint> m_labelPositions;
    QPoint m_touchPoint;
};
