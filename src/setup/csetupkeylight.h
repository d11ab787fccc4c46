#pragma once

#include "kvwidget/baseview.h"

#include <QRect>
#include <QScopedPointer>

class Ui_CSetupKeyLightForm;

/// The page on which the key backlight's colour is mixed from red, green and blue. Every press, and
/// the opening, sends the whole colour to the MCU; nothing is read back or kept.
class CSetupKeyLight : public BaseView
{
    Q_OBJECT

public:
    /// \a rect is where the page's left top corner goes; its size is the form's, 800 x 480.
    CSetupKeyLight(QRect rect, QWidget *parent);
    ~CSetupKeyLight() override;

    void initButton();
    /// Shows \a value as item \a index (0 red, 1 green, 2 blue; others are not shown) and sends the
    /// page's colour.
    void setValue(int index, float value);

public slots:
    /// A button was clicked; an unknown id does nothing.
    void clickedAdjustItem(QString id);

private:
    Q_DISABLE_COPY(CSetupKeyLight)

    void step(int index, int &intensity, bool increase);
    void sendColor() const;

    QScopedPointer<Ui_CSetupKeyLightForm> ui;
    int red; ///< 0 to 100, like the other two
    int green;
    int blue;
};
