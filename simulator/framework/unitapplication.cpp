#include "unitapplication.h"

#include "stallmeter.h"

#include "hardware/unit/latercause.h"
#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

#include <QEvent>
#include <QThread>

using hardware::Cause;
using hardware::CauseScope;

namespace simulator
{

UnitApplication::UnitApplication(int &argc, char **argv)
    : QApplication(argc, argv)
{
}

void UnitApplication::setStallMeter(StallMeter *meter)
{
    m_stallMeter = meter;
}

bool UnitApplication::notify(QObject *receiver, QEvent *event)
{
    if (QThread::currentThread() != thread() || m_stallMeter == nullptr || m_delivers) {
        return deliver(receiver, event);
    }
    m_delivers = true;
    m_stallMeter->begin();
    const bool taken = deliver(receiver, event);
    // The event may have ended the meter with the unit.
    if (m_stallMeter != nullptr) {
        m_stallMeter->end();
    }
    m_delivers = false;
    return taken;
}

bool UnitApplication::deliver(QObject *receiver, QEvent *event)
{
    if (event->type() == QEvent::DeferredDelete) {
        const CauseScope scope(hardware::causeOfDeletion(*receiver));
        return QApplication::notify(receiver, event);
    }
    if (event->type() >= QEvent::User) {
        const Cause cause = hardware::causeOfPosted(*event);
        const CauseScope scope(cause.isKnown() ? cause : Cause::current());
        return QApplication::notify(receiver, event);
    }
    // A window without widgets shows the unit, and hands touches on to the one that has them.
    return receiver->isWindowType() && receiver->inherits("QWidgetWindow")
        ? notifyWindow(receiver, event)
        : QApplication::notify(receiver, event);
}

/// A touch is one cause from the finger's coming to its going, of the console's finger and of the
/// host's pointer alike: both come to the window first.
bool UnitApplication::notifyWindow(QObject *receiver, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        emit touchBegins();
        m_touch = Cause::begun();
        break;
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        break;
    default:
        return QApplication::notify(receiver, event);
    }
    const CauseScope scope(m_touch);
    if (event->type() != QEvent::MouseButtonRelease) {
        return QApplication::notify(receiver, event);
    }
    const bool taken = QApplication::notify(receiver, event);
    // What comes later is no longer a part of the touch.
    if (unitlink::isLinked() && unitlink::unit().journal().number(m_touch) > 0) {
        unitlink::tellOfTouch(QStringLiteral("handled"));
    }
    m_touch = Cause();
    return taken;
}

} // namespace simulator
