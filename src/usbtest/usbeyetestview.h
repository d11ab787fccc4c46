#pragma once

#include <QList>
#include <QObject>
#include <QScopedPointer>

class QRadioButton;
class UI_USBEyeTest;

/// The USB eye-diagram page: puts a port into a test mode for an oscilloscope, and tunes its PHY.
/// It is no widget: its form's widgets lie on the host. Every register access blocks, and so does
/// the construction, for half a second.
class USBEyeTestView : public QObject
{
    Q_OBJECT

public:
    /// \a parent, which must be visible, becomes the form's host.
    explicit USBEyeTestView(QWidget *parent);
    /// Takes the form off the host; the hardware stays as it was set.
    ~USBEyeTestView() override;

    /// Shows the edited value in the form's label.
    void refreshUphy();
    /// Shows the controls of the present mode.
    void refreshMode();
    /// Takes the form's state over.
    void readParameter();
    /// Opens the port's PHY to changes of its disconnect value.
    void openIICDebug();
    void fullToHigh(int port);
    void highToFull(int port);

public slots:
    void switchToHostMode();
    void switchToDeviceMode();
    /// Not 0 is PHY tuning, 0 the setting of test modes.
    void modeChange(int state);
    void uphyAddClicked();
    void uphyDecClicked();
    void readBtnClicked();
    void writeBtnClicked();
    /// For the two speed buttons; ignored from any other sender.
    void speedClicked();
    void TEST_EYE();
    void TEST_J();
    void TEST_K();
    void TEST_SE0();

private:
    Q_DISABLE_COPY(USBEyeTestView)

    void connectForm();
    void startLogoTest();
    void writeSwing();
    void writeDisconnect();
    void writeTestMode();

    bool isUPHY;
    int usbPort;       // 0 or 1
    int usbSpeed;      // 0 is high, 1 full
    int testPattern;   // index in patterns
    int parameterKind; // 0 is swing, 1 disconnect
    int usbUphyData;
    QList<QRadioButton *> patterns;
    QScopedPointer<UI_USBEyeTest> ui;
};
