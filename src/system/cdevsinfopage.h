#pragma once

#include "kvwidget/kvwidget.h"

#include <QScopedPointer>

class QLabel;
class Ui_CDevsInfoForm;

/// Shows the versions of the GPS receiver and of the Bluetooth module and the light sensor's
/// identifier, as they are when the page is made.
class CDevsInfoPage : public KvWidget
{
    Q_OBJECT

public:
    CDevsInfoPage(QRect rect, KvWidget *parent);
    ~CDevsInfoPage() override;

private:
    Q_DISABLE_COPY(CDevsInfoPage)

    void showGpsVersion();
    void showBluetoothVersion();
    void showAlsProduct();

    QScopedPointer<Ui_CDevsInfoForm> ui;
};
