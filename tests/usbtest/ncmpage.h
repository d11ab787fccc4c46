#pragma once

#include "usbtest/ncmtestview.h"

#include "formhost.h"

#include "kvwidget/kvlockbutton.h"

#include <QLabel>
#include <QtTest>

const double ncmSpeed = 10;

struct Button
{
    const char *name;
    const char *id;
    const char *call; ///< as the journal has it
};

const Button testButtons[] = {
    {"clientUdp50", "C_UPD50", "ncm start udp client 50"},
    {"clientUdp100", "C_UPD100", "ncm start udp client 100"},
    {"clientTcp", "C_TCP", "ncm start tcp client"},
    {"clientStop", "C_STOP", "ncm stop"},
    {"serverUdp", "S_UDP", "ncm start udp server"},
    {"serverTcp", "S_TCP", "ncm start tcp server"},
    {"serverStop", "S_STOP", "ncm stop"},
};

/// The page on a visible host that fills the unit's screen. Fails the test that lacks the one
/// warning which a page gives for its notice's style sheet.
class NcmPage : public FormHost
{
public:
    explicit NcmPage(TestUnit &unit)
        : FormHost(unit)
    {
        // Qt names the label by its address.
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral(
                                 "^Could not parse stylesheet of object QLabel\\(0x[0-9a-f]+")));
        m_view = new NCMTestView(host());
    }

    NCMTestView *view() { return m_view; }

    void tap(const char *name) { m_unit.tap(find<QWidget>(name)); }

    /// Ids of the test buttons that are down.
    QStringList down() const
    {
        QStringList ids;
        for (const Button &button : testButtons) {
            if (find<KvLockButton>(button.name)->isDown()) {
                ids.append(QLatin1String(button.id));
            }
        }
        return ids;
    }

private:
    NCMTestView *m_view;
};
