#include "listreference.h"

#include "factorydebug/factorydebugproperty.h"
#include "factorydebug/viewonscreen.h"
#include "gps/cgpsfwinfo.h"
#include "simulator/console/screenreader.h"
#include "support/testmain.h"
#include "support/tracecapture.h"
#include "support/updatepackages.h"
#include "system/csysctrlpage.h"

#include <QSet>
#include <QTranslator>
#include <QtTest>

/// Every text that a person reads passes the translator, in the context that it should have, and
/// nothing else does. "./test --accept-journals" renews the list of them.
class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void everyTextIsMarked();
};

namespace
{

QString marked(const char *text)
{
    return QChar(0xAB) + QString::fromUtf8(text) + QChar(0xBB);
}

/// Puts every text into guillemets, and remembers where it came from.
class MarkingTranslator : public QTranslator
{
public:
    MarkingTranslator() { QCoreApplication::installTranslator(this); }
    ~MarkingTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }

    QString translate(const char *context, const char *text, const char *, int) const override
    {
        m_asked.insert(
            QStringLiteral("%1: %2").arg(QLatin1String(context), QString::fromUtf8(text)));
        return marked(text);
    }

    QStringList asked() const
    {
        QStringList all = m_asked.values();
        all.sort();
        return all;
    }

private:
    mutable QSet<QString> m_asked;
};

bool isMarked(const QString &line)
{
    return line.contains(QChar(0xAB));
}

/// A technician who writes down what the screen shows.
class Reader
{
public:
    explicit Reader(ViewOnScreen &screen)
        : m_screen(screen)
        , m_reader(screen.unit.screen())
    {
    }

    void press(const QString &id)
    {
        QPoint place;
        QString error;
        QVERIFY2(m_reader.findButton(id, &place, &error), qPrintable(error));
        m_screen.unit.tap(place);
        QCoreApplication::processEvents();
    }

    void writeDown(const QString &where)
    {
        QStringList texts = m_reader.texts();
        texts.sort();
        texts.removeDuplicates();
        for (const QString &text : qAsConst(texts)) {
            m_lines.append(where + QStringLiteral(": ") + text);
        }
    }

    /// Opens a page from the menu, writes it down, does what else is to be seen, and leaves it.
    void visit(
        const QString &page, const std::function<void()> &look = [] {})
    {
        press(page);
        writeDown(page);
        look();
        press(QStringLiteral("return"));
    }

    const QStringList &lines() const { return m_lines; }

private:
    ViewOnScreen &m_screen;
    const simulator::ScreenReader m_reader;
    QStringList m_lines;
};

void readEyePage(Reader &reader)
{
    reader.press(marked("Full Speed"));
    reader.writeDown(QStringLiteral("usbeye, full speed"));
    reader.press(marked("Device Mode"));
    reader.writeDown(QStringLiteral("usbeye, device"));
    reader.press(marked("Host Mode"));
    reader.press(marked("Use UPHY"));
    reader.writeDown(QStringLiteral("usbeye, tuning"));
    reader.press(QStringLiteral("decrease"));
    reader.writeDown(QStringLiteral("usbeye, minus zero"));
}

void readSystemPage(ViewOnScreen &screen, Reader &reader)
{
    auto *page = screen.view->findChild<CSysCtrlPage *>();
    for (const int code : {7, 8, 9}) {
        page->doDabMsg(static_cast<unsigned char>(code));
        reader.writeDown(QStringLiteral("sysCtrl, tuner's code %1").arg(code));
    }
    page->setmCopyBtnState(2);
    reader.writeDown(QStringLiteral("sysCtrl, copying"));
}

/// While it is verified and then, on the stick of "usb0".
void readPackage(ViewOnScreen &screen, Reader &reader, const QStringList &options,
                 const char *verified)
{
    makeUpdatePackage(screen.unit.path(QStringLiteral("/sticks/usb0/ORRERY_PACK.BIN")), options);
    screen.unit.plug(QStringLiteral("usb0"));
    const hardware::Journal &journal = screen.unit.unit().journal();
    const qint64 from = journal.end();
    screen.unit.tap(QPoint(200, 439));
    reader.writeDown(QStringLiteral("vendordata, verifying"));
    QVERIFY(journal.waitFor(hardware::JournalPattern(QLatin1String(verified)), from, 10000) >= 0);
    QCoreApplication::processEvents();
    reader.writeDown(QStringLiteral("vendordata, ") + QLatin1String(verified));
    reader.press(QStringLiteral("popupview_cancel"));
    QString error;
    QVERIFY2(screen.unit.unit().storage().pull(QStringLiteral("usb0"), &error), qPrintable(error));
}

/// The box over the receiver's page, ahead of the upgrade that blocks everything.
void readReceiverBox(ViewOnScreen &screen, Reader &reader)
{
    CGpsFwInfo box(QRect(0, 0, 800, 480), screen.view);
    box.show();
    for (const bool verified : {false, true}) {
        box.selectSubPage(verified);
        reader.writeDown(verified ? QStringLiteral("gps, verified")
                                  : QStringLiteral("gps, verifying"));
    }
    box.systemNewInfoSlot(QStringLiteral("idUpdateBtn"));
    reader.writeDown(QStringLiteral("gps, updating"));
}

void readUpdateDialog(ViewOnScreen &screen, Reader &reader)
{
    screen.unit.tap(QPoint(200, 439));
    reader.writeDown(QStringLiteral("vendordata, without a package"));
    reader.press(QStringLiteral("popupview_cancel"));
    readPackage(screen, reader, {QStringLiteral("--corrupt")}, "update verified 1 wrong checksum");
    readPackage(screen, reader, {}, "update verified 0 good");
}

QStringList readAllPages(ViewOnScreen &screen)
{
    Reader reader(screen);
    reader.writeDown(QStringLiteral("menu"));
    reader.visit(QStringLiteral("usbtest"), [&] {
        for (const int row : {107, 190, 273}) {
            screen.unit.tap(QPoint(200, row));
            reader.writeDown(QStringLiteral("usbtest, row at %1").arg(row));
            reader.press(QStringLiteral("return"));
        }
    });
    reader.visit(QStringLiteral("usbeye"), [&] { readEyePage(reader); });
    reader.visit(QStringLiteral("vendordata"), [&] { readUpdateDialog(screen, reader); });
    reader.visit(QStringLiteral("sysCtrl"), [&] { readSystemPage(screen, reader); });
    for (const char *page : {"ncmtest", "keycolor", "als", "pdtVer", "idPanel"}) {
        reader.visit(QString::fromLatin1(page));
    }
    readReceiverBox(screen, reader);
    // Last, since the notices cover a part of the menu for a while.
    reader.press(QStringLiteral("idCapture"));
    reader.writeDown(QStringLiteral("menu, capture on"));
    reader.press(QStringLiteral("idCapture"));
    reader.writeDown(QStringLiteral("menu, capture off"));
    return reader.lines();
}

} // namespace

void TestTranslations::everyTextIsMarked()
{
    const MarkingTranslator translator;
    const TraceCapture traces;
    ViewOnScreen screen;
    QStringList lines = readAllPages(screen);
    QStringList modules;
    lines.append(QStringLiteral("the activity: ") + FactoryDebugProperty(modules).getDispString());
    lines.append(translator.asked());
    lines.replaceInStrings(QStringLiteral("\n"), QStringLiteral("\\n"));

    const QStringList said =
        screen.unit.unit().journal().lines(QString(), 0, hardware::Journal::Everything)
        + traces.texts();
    for (const QString &line : said) {
        // The bar's title, and the rows that lists paint, are texts that are also traced.
        QVERIFY2(!isMarked(line) || line.startsWith(QLatin1String("interSecondary"))
                     || line.contains(QLatin1String("role: 25"))
                     || line.startsWith(QLatin1String("title: ")),
                 qPrintable(line));
    }

    const QString complaint = listComplaint(QStringLiteral("texts"), lines);
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

FACTORY_TEST_MAIN(TestTranslations)
#include "tst_translations.moc"
