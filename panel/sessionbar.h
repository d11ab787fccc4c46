#pragma once

#include "journalline.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace panel
{

class UnitClient;

/// The unit as a whole: whether one is there, how fast it runs, what blocks its screen; recording,
/// replaying, reports and restarts.
class SessionBar : public QWidget
{
    Q_OBJECT

public:
    explicit SessionBar(UnitClient &client, QWidget *parent = nullptr);

private:
    QPushButton *addButton(const QString &name, const QString &text, const QString &help);
    void makeSpeed();
    void showState();
    void showBusy(double seconds);
    void takeLines(const JournalLines &lines);
    void recordOrStop();
    void replay();
    void report();
    void resetToFactory();

    UnitClient &m_client;
    QLabel *m_busy;
    QComboBox *m_speed;
    QPushButton *m_record;
    bool m_isRecording = false;
    QString m_lastTouch;
};

} // namespace panel
