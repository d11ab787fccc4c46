#pragma once

#include <QImage>
#include <QMutex>
#include <QWidget>

namespace simulator
{

class Backlight;
class HardKey;
class ModeIndicator;
class Screen;

/// The simulated unit as it is seen: its screen in a plain frame with the hard keys HOME and
/// FACTORY, which are no part of the screen. It has one size; a HostWindow shows it at any.
class Bezel : public QWidget
{
    Q_OBJECT

public:
    Bezel();

    Screen &screen();
    HardKey &homeKey();
    HardKey &factoryKey();
    Backlight &backlight();
    ModeIndicator &modeIndicator();

    /// What the window showed when it was last painted, with nothing that was asked for but not
    /// painted yet, as Format_RGB32. Any thread, also while the graphical thread is blocked.
    QImage lastFrame() const;

    /// Paints what was asked for, so that the frame has it. Graphical thread.
    void paintPending();

    /// Where the screen lies in such a frame.
    QRect screenRect() const;

signals:
    /// There is a new frame.
    void painted();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void keepFrame();

    Screen *m_screen;
    Backlight *m_backlight;
    HardKey *m_homeKey;
    HardKey *m_factoryKey;
    ModeIndicator *m_modeIndicator;
    mutable QMutex m_frameMutex;
    QImage m_frame;
};

/// A picture of a window, of which nothing can be seen through, as Format_RGB32. Of 32 bits a pixel
/// it is not converted: Qt 5.15 splits a conversion among threads, and the semaphore by which it
/// waits for them may still be written to when its place on the stack is somebody else's.
QImage withoutOpacity(QImage image);

} // namespace simulator
