#include "simulator/framework/language.h"

#include "drawntexts.h"

#include "factorydebug/viewonscreen.h"
#include "journals/pagetour.h"
#include "simulator/window/appearance.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QPainter>
#include <QtTest>
#include <QXmlStreamReader>

/// What every page, list and dialog looks like in each of the unit's languages: no text is too long
/// for its place, where it would be cut, shortened or drawn in tiny letters. What has no room when
/// it is 40 % longer than in English is listed in "pseudo-narrow.txt". All pictures are kept.
class TestLanguage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void languages();
    void everyTextHasRoom_data();
    void everyTextHasRoom();
    void everyTranslationIsSeen();

private:
    QHash<QString, QStringList> m_texts; // what was drawn, by the language
};

namespace
{

/// In pixels; the letters of no English text are smaller.
const int smallestText = 16;

/// Those of the German catalogue that no page draws: titles of what is no window, rows that the
/// page hides, what only the framework asks for.
const QSet<QString> unseen = {QStringLiteral("Formular"), QStringLiteral("Rechtslenker"),
                              QStringLiteral("Dimmer"), QStringLiteral("FactoryDebug")};

/// Why the text is too long for its place; empty when it is not.
QString complaint(const DrawnText &text)
{
    const QString pixels = QStringLiteral("place fixed, %1 px of %2");
    const QRect kept = (text.seen & text.ink).boundingRect();
    if (text.text.endsWith(QChar(0x2026))) {
        return QStringLiteral("place fixed, ends in an ellipsis");
    }
    if (text.pixelSize < smallestText) {
        return QStringLiteral("place fixed, in letters of %1 px").arg(text.pixelSize);
    }
    if (kept.height() < text.ink.height()) {
        return pixels.arg(kept.height()).arg(text.ink.height()) + QStringLiteral(" high");
    }
    return kept.width() < text.ink.width() ? pixels.arg(kept.width()).arg(text.ink.width())
                                           : QString();
}

/// Looks at all states in a language, and keeps a picture of each, in which what has no room is
/// framed.
class LanguageTour
{
public:
    explicit LanguageTour(const QString &language)
        : m_pictures(QStringLiteral(LANGUAGES "/") + language)
    {
        m_pictures.removeRecursively();
        m_pictures.mkpath(QStringLiteral("."));
        ViewOnScreen screen;
        PageTour(screen, [&](const QString &state, QWidget &top) {
            look(state, top, screen.unit.screen());
        }).run();
    }

    const QStringList &texts() const { return m_texts; }
    const QStringList &complaints() const { return m_complaints; }

private:
    void look(const QString &state, QWidget &top, QWidget &screen)
    {
        QImage picture = screen.grab().toImage();
        QPainter frames(&picture);
        frames.setPen(Qt::yellow);
        const QPoint corner = top.mapTo(&screen, QPoint());
        const QList<DrawnText> drawn = drawnTexts(top);
        for (const DrawnText &text : drawn) {
            m_texts.append(text.text);
            const QString wrong = complaint(text);
            if (!wrong.isEmpty()) {
                frames.drawRect(text.ink.translated(corner).adjusted(-2, -2, 1, 1));
                complain(state, text.text + QStringLiteral(": ") + wrong);
            }
        }
        frames.end();
        QString name = state;
        name.replace(QRegularExpression(QStringLiteral("\\W+")), QStringLiteral("-"));
        QVERIFY(picture.save(m_pictures.filePath(name + QStringLiteral(".png"))));
    }

    /// Once for each text, although many states show the same.
    void complain(const QString &state, const QString &wrong)
    {
        if (!m_known.contains(wrong)) {
            m_known.insert(wrong);
            m_complaints.append(state + QStringLiteral(": ") + wrong);
        }
    }

    QDir m_pictures;
    QStringList m_texts;
    QStringList m_complaints;
    QSet<QString> m_known;
};

/// The lines of a text file but for its comments.
QStringList listIn(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return QStringList();
    }
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeAll(QString());
    return lines.filter(QRegularExpression(QStringLiteral("^[^#]")));
}

/// The lines of all of a catalogue's translations.
QStringList translations(const QString &catalogue)
{
    QFile file(catalogue);
    QStringList lines;
    if (file.open(QIODevice::ReadOnly)) {
        QXmlStreamReader reader(&file);
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement
                && reader.name() == QLatin1String("translation")) {
                lines += reader.readElementText().split(QLatin1Char('\n'));
            }
        }
    }
    return lines;
}

/// Of those that are not among others.
void warn(const char *wrong, const QStringList &lines, const QStringList &others)
{
    for (const QString &line : lines) {
        if (!others.contains(line)) {
            qWarning("%s: %s", wrong, qPrintable(line));
        }
    }
}

} // namespace

void TestLanguage::initTestCase()
{
    QString error;
    QVERIFY2(simulator::appearance::apply(&error), qPrintable(error));
}

void TestLanguage::languages()
{
    QCOMPARE(simulator::Language::names(), QStringList({"de", "en", "pseudo"}));
}

void TestLanguage::everyTextHasRoom_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names = simulator::Language::names();
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TestLanguage::everyTextHasRoom()
{
    QFETCH(QString, name);
    const simulator::Language language(name);
    const TraceCapture traces;
    const LanguageTour tour(name);
    m_texts.insert(name, tour.texts());

    const QStringList known = listIn(QStringLiteral(PICTURES "/%1-narrow.txt").arg(name));
    warn("too long for its place", tour.complaints(), known);
    warn("has room now", known, tour.complaints());
    QVERIFY2(tour.complaints() == known,
             qPrintable(QStringLiteral("framed in the pictures in " LANGUAGES "/") + name));
}

/// So no page is left out.
void TestLanguage::everyTranslationIsSeen()
{
    if (!m_texts.contains(QStringLiteral("de"))) {
        QSKIP("German was not looked at");
    }
    const QString seen = m_texts.value(QStringLiteral("de")).join(QLatin1Char('\n'));
    QSet<QString> missing;
    const QStringList lines = translations(QStringLiteral(GERMAN_CATALOGUE));
    for (const QString &line : lines) {
        if (!seen.contains(line.trimmed())) {
            missing.insert(line);
        }
    }
    QVERIFY(lines.size() > 100);
    QCOMPARE(missing, unseen);
}

FACTORY_TEST_MAIN(TestLanguage)
#include "tst_language.moc"
