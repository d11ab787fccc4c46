#pragma once

#include "kvwidget/baseview.h"

class CGpsFwInfo;

/// The GPS receiver's firmware upgrade, a window of its own over everything: finds the two package
/// files on the mounted storage, has them checked, and on "Update" sends them to the receiver and
/// restarts the unit. Deletes itself when there is nothing to do, and on "Cancel".
class CGpsComPage : public BaseView
{
    Q_OBJECT

public:
    explicit CGpsComPage(QWidget *parent);
    ~CGpsComPage() override;

    /// Looks for both files anew.
    void checkUdiskFileState();
    /// Full path of a file in the first mount root that holds it; empty when none does.
    QString checkUpdateFileExist(QString fileName);
    /// \a state true: an update can not begin at any moment.
    void setSystemVerPageState(bool state);

    /// The checking of both files, for a worker: reports to the page that was made last, by
    /// sigCheckSoftResult(). Takes a second and more.
    static void threadPoolCallback(int argument);

signals:
    void sigExitVersionPage(bool exit);
    /// The files have been checked: 0 when they are valid, 1 when not.
    void sigCheckSoftResult(int state);

public slots:
    /// Closes the page.
    void returnSlot();
    /// Closes the page and the activity "setup".
    void exitSlot();
    void showSystemNewFwInfoSlot();
    /// Upgrades the receiver and restarts the unit, however that went. Blocks for minutes.
    void updateSlot();
    void updateUdiskStateSlot(QString rootPath);
    void softCheckResultSlot(int state);

private:
    Q_DISABLE_COPY(CGpsComPage)

    static CGpsComPage *staticWinPtr;

    CGpsFwInfo *fwInfo;
    QString bootloaderPath;
    QString firmwarePath;
};
