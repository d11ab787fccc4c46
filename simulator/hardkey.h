#pragma once

#include <QAbstractButton>

namespace simulator
{

/// A key on the unit's bezel, beside the screen.
class HardKey final : public QAbstractButton
{
    Q_OBJECT

public:
    HardKey(const QString &label, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace simulator
