#pragma once

#include <QRasterWindow>

class QMouseEvent;
class QWheelEvent;

namespace simulator
{

class Bezel;

/// The window on the host's display: shows the bezel's picture at the size that the user gives it,
/// in its proportions, and hands on to the bezel's own window, in its pixels, what the user does.
/// That window has one size and is shown nowhere. Graphical thread only.
class HostWindow : public QRasterWindow
{
    Q_OBJECT

public:
    static constexpr double smallestScale = 0.5;
    static constexpr double largestScale = 4;

    /// \a bezel must not have been shown yet; when it is, no display hears of it.
    explicit HostWindow(Bezel &bezel);

    /// Opens, once the bezel has been shown, at \a scale times its size, or as large as the
    /// display has room for.
    void open(double scale);

    /// Where the picture lies in the window; it has a pixel at least.
    QRect pictureRect() const;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void paintNow();
    void handOn(const QMouseEvent &event);
    void handOn(const QWheelEvent &event);
    QPoint onBezel(const QPoint &position) const;

    Bezel &m_bezel;
};

} // namespace simulator
