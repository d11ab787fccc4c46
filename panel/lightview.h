#pragma once

#include <QTimer>
#include <QWidget>

class QCheckBox;
class QLabel;
class QSlider;
class QSpinBox;

namespace panel
{

class LivePlot;
class UnitClient;

/// The light that falls on the unit, over the last minute with both thresholds, and the light that
/// it gives.
class LightView : public QWidget
{
    Q_OBJECT

public:
    explicit LightView(UnitClient &client, QWidget *parent = nullptr);

private:
    QLayout *makeTools();
    void showState();
    void plotReading();
    void report(int reading);

    UnitClient &m_client;
    LivePlot *m_plot;
    QSlider *m_slider;
    QSpinBox *m_reading;
    QCheckBox *m_curve;
    QLabel *m_mode;
    QLabel *m_panel;
    QLabel *m_key;
    QLabel *m_keySwatch;
    QTimer m_pace;
};

} // namespace panel
