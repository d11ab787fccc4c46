#pragma once

#include <QCoreApplication>
#include <QList>

class KvLockButton;
class QGroupBox;
class QLabel;
class QTextBrowser;
class QWidget;

/// The widgets of the NCM test page, laid on the main view.
class UI_NcmTest
{
    Q_DECLARE_TR_FUNCTIONS(UI_NcmTest)

public:
    UI_NcmTest();

    /// Shows the widgets on \a host.
    void setupUi(QWidget *host);
    void retranslateUi();

    /// All of them, those in a group behind the group.
    QList<QWidget *> widgets() const;

    QLabel *notice;
    QGroupBox *speedGroup;
    KvLockButton *speed;
    QGroupBox *ncmGroup;
    KvLockButton *ncm;
    QGroupBox *clientGroup;
    KvLockButton *clientUdp100;
    KvLockButton *clientTcp;
    KvLockButton *clientStop;
    KvLockButton *clientUdp50;
    QGroupBox *serverGroup;
    KvLockButton *serverUdp;
    KvLockButton *serverTcp;
    KvLockButton *serverStop;
    QTextBrowser *output;

private:
    void setupNotice(QWidget *host);
    void setupSwitches(QWidget *host);
    void setupClientGroup(QWidget *host);
    void setupServerGroup(QWidget *host);
    void setupOutput(QWidget *host);
};
