#pragma once

#include "kvwidget/baseview.h"

#include <QRect>
#include <QScopedPointer>

class Ui_CSetupAlsForm;

/// The page of the ambient light sensor: its reading live, the two thresholds between day and night
/// mode with their plus and minus buttons, and the switch for automatic detection.
class CSetupALSTest : public BaseView
{
    Q_OBJECT

public:
    /// \a rect is where the page's left top corner goes; its size is the form's, 800 x 480.
    CSetupALSTest(QRect rect, QWidget *parent);
    ~CSetupALSTest() override;

    void initButton();
    /// Shows a threshold and hands it to the sensor service: \a index 1 is day, 2 night, any other
    /// does nothing.
    void setValue(int index, int value);

public slots:
    /// The sensor has a new reading.
    void sensorValueSlot(int value);
    /// The switch was flipped to \a state.
    void slotBtnReleased(QString id, bool state);
    /// A button was clicked; an unknown id does nothing.
    void clickedAdjustItem(QString id);

private:
    Q_DISABLE_COPY(CSetupALSTest)

    void stepDay(bool increase);
    void stepNight(bool increase);

    QScopedPointer<Ui_CSetupAlsForm> ui;
    int spare;          ///< part of the class as the platform knows it, never read
    int dayThreshold;   ///< a reading above it is day
    int nightThreshold; ///< a reading below it is night
};
