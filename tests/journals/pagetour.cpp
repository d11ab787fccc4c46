#include "pagetour.h"

#include "factorydebug/viewonscreen.h"
#include "gps/cgpsfwinfo.h"
#include "kvwidget/popupview.h"
#include "support/packages.h"
#include "system/csysctrlpage.h"

#include <QtTest>

PageTour::PageTour(ViewOnScreen &screen, Look look)
    : m_screen(screen)
    , m_look(look)
    , m_reader(screen.unit.screen())
{
}

void PageTour::run()
{
    look(QStringLiteral("menu"));
    visit(QStringLiteral("usbtest"), [this] { visitLists(); });
    visit(QStringLiteral("usbeye"), [this] { visitEyePage(); });
    visit(QStringLiteral("vendordata"), [this] { openUpdateDialogs(); });
    visit(QStringLiteral("sysCtrl"), [this] { visitSystemPage(); });
    for (const char *page : {"ncmtest", "keycolor", "als", "pdtVer", "idPanel"}) {
        visit(QString::fromLatin1(page));
    }
    openReceiverBox();
    // Last, since the notices cover a part of the menu for a while.
    switchCapture();
}

void PageTour::press(const QString &id)
{
    QPoint place;
    QString error;
    QVERIFY2(m_reader.findButton(id, &place, &error), qPrintable(error));
    m_screen.unit.tap(place);
    QCoreApplication::processEvents();
}

void PageTour::pressText(const char *context, const char *text)
{
    press(QCoreApplication::translate(context, text));
}

void PageTour::look(const QString &state)
{
    QWidget *top = &m_screen.unit.screen();
    const auto boxes = top->findChildren<PopupView *>();
    for (PopupView *box : boxes) {
        top = box->isVisible() ? box : top;
    }
    look(state, *top);
}

void PageTour::look(const QString &state, QWidget &top)
{
    m_look(state, top);
}

/// Opens a page from the menu, looks at it and at what else it has, and leaves it.
void PageTour::visit(const QString &page, const std::function<void()> &lookAround)
{
    press(page);
    look(page);
    lookAround();
    press(QStringLiteral("return"));
}

void PageTour::visitLists()
{
    for (const int row : {107, 190, 273}) {
        m_screen.unit.tap(QPoint(200, row));
        look(QStringLiteral("usbtest, row at %1").arg(row));
        press(QStringLiteral("return"));
    }
}

void PageTour::visitEyePage()
{
    const char *const page = "UI_USBEyeTest";
    pressText(page, "Full Speed");
    look(QStringLiteral("usbeye, full speed"));
    pressText(page, "Device Mode");
    look(QStringLiteral("usbeye, device"));
    pressText(page, "Host Mode");
    pressText(page, "Use UPHY");
    look(QStringLiteral("usbeye, tuning"));
    press(QStringLiteral("decrease"));
    look(QStringLiteral("usbeye, minus zero"));
}

void PageTour::visitSystemPage()
{
    auto *page = m_screen.view->findChild<CSysCtrlPage *>();
    for (const int code : {7, 8, 9}) {
        page->doDabMsg(static_cast<unsigned char>(code));
        look(QStringLiteral("sysCtrl, tuner's code %1").arg(code));
    }
    page->setmCopyBtnState(2);
    look(QStringLiteral("sysCtrl, copying"));
}

/// While it is verified and then, on the stick of "usb0".
void PageTour::openPackage(const QStringList &options, const char *verified)
{
    makeUpdatePackage(m_screen.unit.path(QStringLiteral("/sticks/usb0/ORRERY_PACK.BIN")), options);
    m_screen.unit.plug(QStringLiteral("usb0"));
    const hardware::Journal &journal = m_screen.unit.unit().journal();
    const qint64 from = journal.end();
    m_screen.unit.tap(QPoint(200, 439));
    look(QStringLiteral("vendordata, verifying"));
    QVERIFY(journal.waitFor(hardware::JournalPattern(QLatin1String(verified)), from, 10000) >= 0);
    // The thread that verifies is journalled before the dialog hears of it.
    const QString before = QCoreApplication::translate("UserUpdateDialog", "Verifing...");
    QTRY_VERIFY(m_reader.texts().filter(before).isEmpty());
    look(QStringLiteral("vendordata, ") + QLatin1String(verified));
    press(QStringLiteral("popupview_cancel"));
    QString error;
    QVERIFY2(m_screen.unit.unit().storage().pull(QStringLiteral("usb0"), &error),
             qPrintable(error));
}

void PageTour::openUpdateDialogs()
{
    for (const int row : {107, 190, 273, 356, 439}) {
        m_screen.unit.tap(QPoint(200, row));
        look(QStringLiteral("vendordata, row at %1 without a package").arg(row));
        press(QStringLiteral("popupview_cancel"));
    }
    openPackage({QStringLiteral("--corrupt")}, "update verified 1 wrong checksum");
    openPackage({}, "update verified 0 good");
}

/// The box over the receiver's page, ahead of the upgrade that blocks everything.
void PageTour::openReceiverBox()
{
    CGpsFwInfo box(QRect(0, 0, 800, 480), m_screen.view);
    box.show();
    for (const bool verified : {false, true}) {
        box.selectSubPage(verified);
        look(verified ? QStringLiteral("gps, verified") : QStringLiteral("gps, verifying"), box);
    }
    box.systemNewInfoSlot(QStringLiteral("idUpdateBtn"));
    look(QStringLiteral("gps, updating"), box);
}

void PageTour::switchCapture()
{
    press(QStringLiteral("idCapture"));
    look(QStringLiteral("menu, capture on"));
    press(QStringLiteral("idCapture"));
    look(QStringLiteral("menu, capture off"));
}
