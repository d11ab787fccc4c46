#include "sessionrecorder.h"

#include "hardware/unit/unit.h"
#include "simulator/console/screenreader.h"
#include "simulator/window/bezel.h"
#include "simulator/window/hardkey.h"
#include "simulator/window/screen.h"

#include <QCoreApplication>
#include <QDir>
#include <QMouseEvent>
#include <QMutexLocker>
#include <QWindow>

namespace simulator
{

namespace
{

/// Host milliseconds that a finger is down in a tap. One that stays longer does so in the recorded
/// session too.
const qint64 longestTapMs = 1000;

/// Host milliseconds after which what a touch leads to is a page's work that blocks the screen.
const qint64 longestHandlingMs = 50;

const double nanosecondsPerMs = 1e6;

bool isTouch(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseMove
        || type == QEvent::MouseButtonRelease;
}

QStringList command(const char *name, const QPoint &place)
{
    return {QString::fromLatin1(name), QString::number(place.x()), QString::number(place.y())};
}

} // namespace

SessionRecorder::SessionRecorder(Bezel &bezel, const ScreenReader &screen, hardware::Unit &unit)
    : m_bezel(bezel)
    , m_screen(screen)
    , m_unit(unit)
{
    for (const HardKey *key : {&bezel.homeKey(), &bezel.factoryKey()}) {
        connect(key, &HardKey::clicked, this, [this, key] { noteKey(*key); });
    }
}

void SessionRecorder::watchWindow()
{
    m_bezel.windowHandle()->installEventFilter(this);
}

bool SessionRecorder::start(const QString &file, QString *error)
{
    const QMutexLocker locker(&m_mutex);
    if (m_file.isOpen()) {
        *error = QStringLiteral("A session is being recorded already, in \"%1\".")
                     .arg(m_file.fileName());
        return false;
    }
    const QStringList comments(QStringLiteral("headunit %1, speed %2")
                                   .arg(QCoreApplication::applicationVersion())
                                   .arg(m_unit.clock().factor()));
    const QString name = QDir::cleanPath(QDir().absoluteFilePath(file));
    if (!m_file.open(name, comments)) {
        *error =
            QStringLiteral("The session \"%1\" cannot be recorded: %2.").arg(name, m_file.error());
        return false;
    }
    m_gesture.reset();
    m_failure.clear();
    m_started = m_unit.clock().elapsed();
    return true;
}

bool SessionRecorder::stop(QString *error)
{
    const QMutexLocker locker(&m_mutex);
    if (m_file.isOpen()) {
        m_file.close();
        return true;
    }
    *error = m_failure.isEmpty()
        ? QStringLiteral("No session is being recorded.")
        : QStringLiteral("No session is being recorded; the last one ended early: %1.")
              .arg(m_failure);
    return false;
}

QString SessionRecorder::fileName() const
{
    const QMutexLocker locker(&m_mutex);
    return m_file.isOpen() ? m_file.fileName() : QString();
}

void SessionRecorder::noteCommand(const QStringList &words)
{
    const QMutexLocker locker(&m_mutex);
    noteBesideTouches(words);
}

bool SessionRecorder::eventFilter(QObject *window, QEvent *event)
{
    if (!isTouch(event->type()) || fileName().isEmpty()
        || !noteTouch(static_cast<const QMouseEvent &>(*event))) {
        return QObject::eventFilter(window, event);
    }
    int count = 0;
    {
        const QMutexLocker locker(&m_mutex);
        m_isHandled = false;
        m_sinceTouch.start();
        count = m_file.count();
    }
    // Delivered from here, which tells when all is done that the touch leads to.
    window->event(event);
    const QMutexLocker locker(&m_mutex);
    m_isHandled = true;
    if (m_file.isOpen() && m_file.count() == count) {
        m_file.lastEndedAt(nowMs());
    }
    return true;
}

/// False for what is no touch of the screen's.
bool SessionRecorder::noteTouch(const QMouseEvent &event)
{
    const QPoint place = event.pos() - m_bezel.screenRect().topLeft();
    const bool isOnGlass = QRect(QPoint(0, 0), Screen::resolution).contains(place);
    const bool isFinger = event.button() == Qt::LeftButton;
    if (event.type() == QEvent::MouseButtonPress) {
        return isFinger && isOnGlass && putDown(place);
    }
    return event.type() == QEvent::MouseMove ? moveTo(place) : isFinger && lift();
}

bool SessionRecorder::putDown(const QPoint &place)
{
    TouchedButton button;
    button.name = m_screen.buttonAt(place, &button.area);
    const QMutexLocker locker(&m_mutex);
    m_gesture.emplace(place, button);
    m_countBefore = m_file.count();
    m_isAlone = true;
    m_sinceDown.start();
    add(command("hold", place));
    return true;
}

bool SessionRecorder::moveTo(const QPoint &place)
{
    const QMutexLocker locker(&m_mutex);
    if (m_gesture) {
        m_gesture->moveTo(place);
        add(command("hold", place));
    }
    return m_gesture.has_value();
}

bool SessionRecorder::lift()
{
    const QMutexLocker locker(&m_mutex);
    if (!m_gesture) {
        return false;
    }
    const QStringList words = m_gesture->command();
    m_gesture.reset();
    if (words.isEmpty() || !m_isAlone || m_sinceDown.elapsed() > longestTapMs) {
        add({QStringLiteral("lift")});
    } else if (m_file.isOpen()) {
        check(m_file.goBack(m_countBefore));
        add(words);
    }
    return true;
}

void SessionRecorder::noteKey(const HardKey &key)
{
    // As the unit, which takes none then.
    if (!m_bezel.screen().isBooting()) {
        noteCommand({QStringLiteral("key"), key.text()});
    }
}

void SessionRecorder::noteBesideTouches(const QStringList &words)
{
    m_isAlone = false;
    if (!m_isHandled && m_sinceTouch.elapsed() > longestHandlingMs && m_file.isOpen()) {
        check(m_file.lastIsNotWaitedFor());
    }
    add(words);
}

void SessionRecorder::add(const QStringList &words)
{
    if (m_file.isOpen()) {
        check(m_file.add(words, nowMs()));
    }
}

void SessionRecorder::check(bool isWritten)
{
    if (!isWritten && m_file.isOpen()) {
        m_failure = m_file.error();
        m_file.close();
        m_unit.journal().reportFailedWrite(m_file.fileName(), m_failure);
    }
}

double SessionRecorder::nowMs() const
{
    return double(m_unit.clock().elapsed() - m_started) / nanosecondsPerMs;
}

} // namespace simulator
