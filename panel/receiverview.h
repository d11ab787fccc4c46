#pragma once

#include "upgradeprogress.h"

#include <QElapsedTimer>
#include <QVector>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace panel
{

class UnitClient;

/// What the GPS receiver does: its stage on the way through an upgrade, and how far that is.
class ReceiverView : public QWidget
{
    Q_OBJECT

public:
    explicit ReceiverView(UnitClient &client, QWidget *parent = nullptr);

private:
    QLayout *makeStages();
    void showState();
    void findPackages();
    void showStage(const QString &stage);
    void showProgress();

    UnitClient &m_client;
    UpgradeProgress m_progress;
    QElapsedTimer m_time;
    QLabel *m_state;
    QVector<QLabel *> m_stages;
    QProgressBar *m_bar;
    QLabel *m_rate;
};

} // namespace panel
