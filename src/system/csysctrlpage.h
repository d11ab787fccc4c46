#pragma once

#include "kvwidget/kvwidget.h"

#include <QPointer>
#include <QScopedPointer>
#include <QString>

class CTouchCheckPage;
class DabModule;
class Ui_CSysCtrlForm;

/// The system control page: certification switch, GPS reset, log copy, DAB firmware update, and the
/// way to the touch check.
class CSysCtrlPage : public KvWidget
{
    Q_OBJECT

public:
    CSysCtrlPage(QRect rect, KvWidget *parent);
    ~CSysCtrlPage() override;

    /// The log-copy button's face: 1 is ready, 2 is copying, anything else is disabled.
    void setmCopyBtnState(int state);

    /// Copies logs and crash dump to the storage with that mount root and blocks meanwhile. 1 if
    /// the copy commands ran, whatever came of them, else 0.
    int checkOutSystemLog2UDisk(const char *rootPath);

signals:
    /// The screen is to be dimmed: the unit is about to restart.
    void sigShowMaskBg();

public slots:
    void boolBtnReleasedSlot(QString id, bool state);
    void btnReleasedSlot(QString id);
    /// Takes a status code of the DAB service, whose thread waits meanwhile.
    void doDabMsg(unsigned char code);
    /// The USB storage's mount root has become \a path, which is empty when there is none.
    void uDevRootPathSlot(QString path);
    void exitTouchPageSlot();

private:
    Q_DISABLE_COPY(CSysCtrlPage)

    void connectButtons();
    void showCertification();
    void initDab();
    void initStorage();
    void setDabFace(const QString &text, bool disabled);
    void showDabRunning(DabModule *dab);
    void showDabEnd(const QString &outcome);
    void resetGps();
    void copyLogs();
    void updateDab();
    void openTouchPage();

    QScopedPointer<Ui_CSysCtrlForm> ui;
    QString rootPath;
    // The page may be deleted by whoever owns the screen.
    QPointer<CTouchCheckPage> touchPage;
};
