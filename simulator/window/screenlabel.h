#pragma once

#include <QLabel>

namespace simulator
{

/// A centred line of text on the simulator's own screens.
class ScreenLabel : public QLabel
{
    Q_OBJECT

public:
    /// \a pixelSize is the height of the font.
    ScreenLabel(const QRect &geometry, int pixelSize, const QColor &color, const QString &text,
                QWidget *parent);

    void setColor(const QColor &color);
};

} // namespace simulator
