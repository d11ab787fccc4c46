#pragma once

#include "kvwidget/baseview.h"

#include <QByteArray>
#include <QString>

class PopupView;

/// Asks whether to update the unit from the package on one storage device, shows the package's
/// versions, and hands the update over once the platform has verified the package and the
/// technician has said OK. It deletes itself then.
class UserUpdateDialog : public BaseView
{
    Q_OBJECT

public:
    enum DeviceType {
        Sd0 = 0,
        Sd1 = 1,
        Usb0 = 2,
        Usb1 = 3,
        AutoDetect = 4,
    };

    UserUpdateDialog(QRect rect, DeviceType type, QWidget *parent);

    /// The question for a device type; empty for a type that does not exist.
    QString getDisplayString(DeviceType type) const;

    /// Root of the storage to use, with a trailing slash; "/error_path/" when there is none.
    QByteArray getHwString(DeviceType type, QByteArray fileName) const;

    /// The package's versions, or that there is no package. Starts the package's verification.
    QString getVerString(DeviceType type);

public slots:
    /// The platform's answer to any verification: 0 is good.
    void ChecksumVerified(int result);
    void popupViewOkClicked(QString id);
    /// Does nothing: the pop-up has hidden itself.
    void hidePopupView(QString id);

private:
    Q_DISABLE_COPY(UserUpdateDialog)

    void setUpPopup();
    bool handOver(const QString &language) const;

    const DeviceType m_type;
    PopupView *m_popup;
    bool m_packageFound;
    QString m_text;
};
