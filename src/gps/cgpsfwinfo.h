#pragma once

#include "kvwidget/kvwidget.h"

#include <QScopedPointer>

class Ui_gpsFWInfoForm;

/// What the GPS page shows: that the files are being checked, that they are valid with "Update" and
/// "Cancel", or that the receiver is being upgraded.
class CGpsFwInfo : public KvWidget
{
    Q_OBJECT

public:
    CGpsFwInfo(const QRect &rect, QWidget *parent);
    ~CGpsFwInfo() override;

    /// Connects the buttons.
    void newFwInfoPage();
    /// Shows the question for verified files, or the plain message.
    void selectSubPage(bool verified);

signals:
    /// "Cancel" was clicked.
    void showSystemInfo();
    /// "Update" was released.
    void sigUpdate();

public slots:
    void systemNewInfoSlot(QString id);

private:
    Q_DISABLE_COPY(CGpsFwInfo)

    QScopedPointer<Ui_gpsFWInfoForm> m_form;
    QWidget *m_page; // part of the class as the platform knows it, never set
};
