#pragma once

#include <QCoreApplication>
#include <QList>

class KvIconButton;
class QBoxLayout;
class QCheckBox;
class QGroupBox;
class QLabel;
class QRadioButton;
class QWidget;

/// The widgets of the USB eye-diagram page, laid on a host of 800 x 480.
class UI_USBEyeTest
{
    Q_DECLARE_TR_FUNCTIONS(UI_USBEyeTest)

public:
    UI_USBEyeTest();

    /// Gives \a host its size and shows the widgets on it.
    void setupUi(QWidget *host);
    void retranslateUi();

    /// Shows the edited value, as large as it fits.
    void showValue(const QString &text);

    /// All of them, those in a group behind the group.
    QList<QWidget *> widgets() const;

    QGroupBox *portGroup;
    QRadioButton *port0;
    QRadioButton *port1;
    QGroupBox *speedGroup;
    QRadioButton *highSpeed;
    QRadioButton *fullSpeed;
    QGroupBox *phyGroup;
    QRadioButton *swing;
    QRadioButton *disconnectLevel;
    KvIconButton *decrease;
    QLabel *value;
    KvIconButton *increase;
    QGroupBox *patternGroup;
    QRadioButton *eyeDiagram;
    QRadioButton *testJ;
    QRadioButton *testK;
    QRadioButton *se0;
    QRadioButton *none;
    QCheckBox *usePhy;
    KvIconButton *read;
    KvIconButton *write;
    QGroupBox *roleGroup;
    QRadioButton *hostMode;
    QRadioButton *deviceMode;

private:
    void setupPortGroup(QWidget *host);
    void setupSpeedGroup(QWidget *host);
    void setupPhyGroup(QWidget *host);
    void setupPatternGroup(QWidget *host);
    void setupActions(QWidget *host);
    void setupRoleGroup(QWidget *host);
};
