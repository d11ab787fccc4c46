#pragma once

#include "hardware/unit/cause.h"

#include <QApplication>

namespace simulator
{

class StallMeter;

/// The program's application object: knows what each event follows from that the graphical thread
/// gets, and has a meter measure how long it takes for it.
class UnitApplication : public QApplication
{
    Q_OBJECT

public:
    UnitApplication(int &argc, char **argv);

    /// Null for none.
    void setStallMeter(StallMeter *meter);

    bool notify(QObject *receiver, QEvent *event) override;

signals:
    /// A finger is about to come down.
    void touchBegins();

private:
    bool deliver(QObject *receiver, QEvent *event);
    bool notifyWindow(QObject *receiver, QEvent *event);

    StallMeter *m_stallMeter = nullptr;
    bool m_delivers = false;
    hardware::Cause m_touch; // the one that goes on
};

} // namespace simulator
