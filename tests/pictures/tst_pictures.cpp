#include "picturecomparison.h"

#include "scenarios/headunitrun.h"
#include "support/packages.h"
#include "support/testmain.h"

#include <QDir>
#include <QPainter>
#include <QRawFont>
#include <QtEndian>
#include <QtTest>

/// What is seen of every page, list, dialog and state, as the glass shows it, against pictures that
/// somebody has looked at. "./test --accept-pictures" renews them.
class TestPictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sessions_data();
    void sessions();
    void everyReferenceIsMade();

private:
    PictureComparison m_comparison{{QStringLiteral(PICTURES), QStringLiteral(HANDBOOK_PICTURES)},
                                   QStringLiteral(DIFFERENCES)};
    int m_complete = 0;
};

namespace
{

/// The screen's fonts, as the package fonts-liberation of Debian 12 has them.
struct FontFile
{
    const char *name;
    bool isBold;
    quint32 checksum;
};

const FontFile fontFiles[] = {
    {"LiberationSans-Regular.ttf", false, 0x9199c761},
    {"LiberationSans-Bold.ttf", true, 0x6aa1e380},
};

QFont screenFont(bool isBold)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(28);
    font.setBold(isBold);
    font.setHintingPreference(QFont::PreferVerticalHinting);
    font.setStyleStrategy(
        QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

/// The checksum over the whole file that a font has in its table "head".
quint32 fontChecksum(const QFont &font)
{
    const QByteArray head = QRawFont::fromFont(font).fontTable("head");
    return head.size() < 12 ? 0 : qFromBigEndian<quint32>(head.constData() + 8);
}

/// Some text as FreeType, below Qt, draws it.
QImage textSample()
{
    QImage sample(430, 80, QImage::Format_RGB32);
    sample.fill(QColor(11, 12, 13));
    QPainter painter(&sample);
    painter.setPen(QColor(240, 240, 240));
    for (const bool isBold : {false, true}) {
        painter.setFont(screenFont(isBold));
        painter.drawText(10, isBold ? 70 : 30, QStringLiteral("Set Test Mode (0,1.99) -0x7f"));
    }
    return sample;
}

/// A good package for the user update on usb0, a corrupt one on usb1.
void addUpdatePackages(const HeadunitRun &run)
{
    makeUpdatePackage(run.path(QStringLiteral("/sticks/usb0/ORRERY_PACK.BIN")));
    makeUpdatePackage(run.path(QStringLiteral("/sticks/usb1/ORRERY_PACK.BIN")),
                      {QStringLiteral("--corrupt")});
}

/// Logs to copy, and a sync that takes a second of the host's time, in which a picture of the
/// blocked screen is taken.
void addLogs(const HeadunitRun &run)
{
    run.write(QStringLiteral("/media/flash/userdata/log_service/a.log"), "a");
    const QString sync = QStringLiteral("/bin/sync");
    run.write(sync, "#!/bin/sh\nsleep 1\n");
    QVERIFY(QFile::setPermissions(run.path(sync),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void addGpsPackages(const HeadunitRun &run)
{
    const QString stick = run.path(QStringLiteral("/sticks/usb0"));
    for (const char *name : {"/gps_bootloader.pkg", "/gps_firmware.pkg"}) {
        makeGpsPackage(stick + QLatin1String(name));
    }
}

struct Session
{
    const char *script;
    double speed;
    void (*prepare)(const HeadunitRun &run); ///< null where the unit of the factory will do
    const char *language = "en";
};

const Session allSessions[] = {
    {"menu", 4.0, nullptr},          {"usb-test", 1.0, nullptr},
    {"usb-eye", 3.0, nullptr},       {"ncm", 1.0, nullptr},
    {"adjustment", 1.0, nullptr},    {"vendor-data", 3.0, addUpdatePackages},
    {"product", 1.0, nullptr},       {"system-control", 1.0, addLogs},
    {"certification", 1.0, nullptr}, {"gps-update", 3.0, addGpsPackages},
    {"german", 1.0, nullptr, "de"},
};

} // namespace

void TestPictures::initTestCase()
{
#ifdef __arm__
    QSKIP("FreeType rounds some pixels of a text otherwise on this processor.");
#endif
    for (const FontFile &file : fontFiles) {
        const quint32 checksum = fontChecksum(screenFont(file.isBold));
        QVERIFY2(checksum == file.checksum,
                 qPrintable(QStringLiteral("The references are drawn with a %1 of checksum %2; "
                                           "here the font's is %3.")
                                .arg(QLatin1String(file.name))
                                .arg(file.checksum, 8, 16, QLatin1Char('0'))
                                .arg(checksum, 8, 16, QLatin1Char('0'))));
    }
    const QTemporaryDir folder;
    const QString sample = folder.filePath(QStringLiteral("text.png"));
    QVERIFY(textSample().save(sample));
    const QString complaint = m_comparison.complaint(sample);
    QVERIFY2(complaint.isEmpty(),
             qPrintable(QStringLiteral("Qt %1 with the FreeType of this host draws text unlike the "
                                       "references: %2")
                            .arg(QLatin1String(qVersion()), complaint)));
}

void TestPictures::sessions_data()
{
    QTest::addColumn<int>("number");
    for (int number = 0; number < int(std::size(allSessions)); ++number) {
        QTest::newRow(allSessions[number].script) << number;
    }
}

void TestPictures::sessions()
{
    QFETCH(int, number);
    const Session &session = allSessions[number];
    HeadunitRun run;
    if (session.prepare != nullptr) {
        session.prepare(run);
    }
    const QString end = run.scenario(QStringLiteral(PICTURES "/%1.txt").arg(session.script),
                                     session.speed, QLatin1String(session.language));

    // Also of a session that has failed: its pictures may show why.
    const QDir pictures(run.pictures());
    const QStringList names = pictures.entryList(QDir::Files);
    int different = 0;
    for (const QString &name : names) {
        const QString complaint = m_comparison.complaint(pictures.filePath(name));
        if (!complaint.isEmpty()) {
            qWarning("%s", qPrintable(complaint));
            ++different;
        }
    }
    QVERIFY2(end.isEmpty(), qPrintable(end));
    ++m_complete;
    QVERIFY2(different == 0,
             qPrintable(QStringLiteral("%1 pictures are not as their references; they are in %2")
                            .arg(different)
                            .arg(QStringLiteral(DIFFERENCES))));
}

void TestPictures::everyReferenceIsMade()
{
    if (m_complete < int(std::size(allSessions))) {
        QSKIP("not all sessions were run to their end");
    }
    const QStringList unmade = m_comparison.unmade();
    QVERIFY2(unmade.isEmpty(),
             qPrintable(QStringLiteral("no session makes ") + unmade.join(QStringLiteral(", "))));
}

/// Whatever the host and whoever started the program prefer.
static bool pinEnvironment()
{
    for (const char *variable : {"FONTCONFIG_FILE", "FONTCONFIG_PATH", "FREETYPE_PROPERTIES"}) {
        qunsetenv(variable);
    }
    return qputenv("LC_ALL", "C") && qputenv("QT_QPA_PLATFORM", "offscreen")
        && qputenv("QT_FONT_DPI", "72") && qputenv("QT_SCALE_FACTOR", "1");
}

static const bool isEnvironmentPinned = pinEnvironment(); // ahead of Qt's application
FACTORY_TEST_MAIN(TestPictures)
#include "tst_pictures.moc"
