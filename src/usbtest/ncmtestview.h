#pragma once

#include <QList>
#include <QObject>
#include <QScopedPointer>

class KvLockButton;
class UI_NcmTest;

namespace kvplfctrl
{
class KVPlatformControl;
}

/// The NCM test page: starts and stops the platform's throughput tests by latching buttons, of
/// which at most one is down. It is no widget: its form's widgets lie on the host.
class NCMTestView : public QObject
{
    Q_OBJECT

public:
    /// \a parent, which must be visible, becomes the form's host.
    explicit NCMTestView(QWidget *parent);
    /// Takes the form off the host; a running test goes on.
    ~NCMTestView() override;

    void initWidget();
    /// Releases every test button but the client button with that id; nothing for any other id.
    void resetClientBtn(QString id);
    /// The same for the server buttons' ids.
    void resetServerBtn(QString id);

public slots:
    void clickedSpeedOff();
    void clickedNcmOn();
    void clickedClient(QString id);
    void clickedServer(QString id);

private:
    Q_DISABLE_COPY(NCMTestView)

    QList<KvLockButton *> clientButtons() const;
    QList<KvLockButton *> serverButtons() const;
    void releaseOthers(const QList<KvLockButton *> &pressedAmong, const QString &id);

    QScopedPointer<UI_NcmTest> ui;
    kvplfctrl::KVPlatformControl *platformControl;
    int result; // of the last test operation; nothing looks at it
    int state;  // part of the class as the platform knows it, never used, like the text
    char text[2000];
};
