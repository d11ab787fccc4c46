#pragma once

#include "gesture.h"
#include "sessionfile.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QObject>

#include <optional>

class QMouseEvent;

namespace hardware
{
class Unit;
}

namespace simulator
{

class Bezel;
class HardKey;
class ScreenReader;

/// Writes down what is done to the unit, as a script that does it again: touches, be they of the
/// host's pointer or of the console's finger, hard keys, and commands that change the unit's world.
class SessionRecorder : public QObject
{
    Q_OBJECT

public:
    SessionRecorder(Bezel &bezel, const ScreenReader &screen, hardware::Unit &unit);

    /// Hears the window's touches from now on; once, when it has been shown. Graphical thread.
    void watchWindow();

    /// Begins a file, which must not exist. False with a sentence in \a error that says why it
    /// cannot. This and the following functions: any thread.
    bool start(const QString &file, QString *error);

    /// Ends it. False with a sentence in \a error when there is none, be it that it had to end.
    bool stop(QString *error);

    /// The file that is being written; empty when there is none.
    QString fileName() const;

    /// A command of the console has changed the unit's world.
    void noteCommand(const QStringList &words);

private:
    bool eventFilter(QObject *window, QEvent *event) override;
    bool noteTouch(const QMouseEvent &event);
    bool putDown(const QPoint &place);
    bool moveTo(const QPoint &place);
    bool lift();
    void noteKey(const HardKey &key);
    void noteBesideTouches(const QStringList &words);
    void add(const QStringList &words);
    void check(bool isWritten);
    double nowMs() const;

    Bezel &m_bezel;
    const ScreenReader &m_screen;
    hardware::Unit &m_unit;

    mutable QMutex m_mutex; // for all that follows
    SessionFile m_file;
    qint64 m_started = 0;             // by the unit's clock
    std::optional<Gesture> m_gesture; // while the finger is down
    QElapsedTimer m_sinceDown;
    int m_countBefore = 0;   // commands in the file when the finger went down
    bool m_isAlone = false;  // whether nothing else was done since then
    bool m_isHandled = true; // what the last touch has led to
    QElapsedTimer m_sinceTouch;
    QString m_failure;
};

} // namespace simulator
