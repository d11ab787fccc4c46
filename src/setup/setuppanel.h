#pragma once

#include "kvwidget/baseview.h"
#include "service/vendordatacontrol.h"

#include <QRect>
#include <QScopedPointer>

class Ui_CSetupPanelForm;

/// The page on which the panel's brightness, contrast, hue and saturation are stepped. Each step is
/// applied at once, shown and kept in the vendor data; opening the page keeps what it finds.
class CSetupPanelForm : public BaseView
{
    Q_OBJECT

public:
    /// \a rect is where the page's left top corner goes; its size is the form's, 800 x 420.
    CSetupPanelForm(QRect rect, QWidget *parent);
    ~CSetupPanelForm() override;

    void initButton();
    /// Shows the value of item \a index (0 brightness, 1 contrast, 2 hue, 3 saturation) and keeps
    /// it in the vendor data: whole, or for the saturation in hundredths, cut off toward zero. A
    /// value with another index is kept as the brightness and not shown.
    void setValue(int index, float value);

public slots:
    /// Schedules the page's deletion.
    void clickedReturn();
    /// The same, and asks for the activity "setup" to be closed.
    void clickedExit();
    /// A button was clicked; an unknown id does nothing.
    void clickedAdjustItem(QString id);

private:
    Q_DISABLE_COPY(CSetupPanelForm)

    void keepValue(VendorDataControl::VendorPos position, int value);
    void stepInteger(int index, bool increase);
    void stepSaturation(bool increase);

    QScopedPointer<Ui_CSetupPanelForm> ui;
    float saturation;
};
