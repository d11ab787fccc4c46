#pragma once

#include <QImage>
#include <QWidget>

namespace panel
{

class UnitClient;

/// What the unit's screen shows, as a picture that is asked for again and again while this can be
/// seen; touches of the picture are touches of the screen.
class GlassView : public QWidget
{
    Q_OBJECT

public:
    explicit GlassView(UnitClient &client, QWidget *parent = nullptr);

    const QImage &screen() const { return m_screen; }

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QRect picture() const;
    QPoint onScreen(const QPoint &place) const;
    void touch(const QString &verb, const QPoint &place);

    UnitClient &m_client;
    QImage m_screen;
    QPoint m_finger;
};

} // namespace panel
