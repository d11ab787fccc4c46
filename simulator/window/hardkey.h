#pragma once

#include <QAbstractButton>
#include <QColor>

namespace simulator
{

/// A key on the unit's bezel, beside the screen.
class HardKey final : public QAbstractButton
{
    Q_OBJECT

public:
    HardKey(const QString &label, QWidget *parent);

    QSize sizeHint() const override;

    /// The light behind the label; black is none, and then the label is seen as it is printed.
    void setLight(const QColor &light);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_light = Qt::black;
};

} // namespace simulator
