#include "listreference.h"
#include "pagetour.h"

#include "factorydebug/factorydebugproperty.h"
#include "factorydebug/viewonscreen.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

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
        return QChar(0xAB) + QString::fromUtf8(text) + QChar(0xBB);
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

QStringList readAllPages(ViewOnScreen &screen)
{
    const simulator::ScreenReader reader(screen.unit.screen());
    QStringList lines;
    PageTour(screen, [&](const QString &state, const QWidget &) {
        QStringList texts = reader.texts();
        texts.sort();
        texts.removeDuplicates();
        for (const QString &text : qAsConst(texts)) {
            lines.append(state + QStringLiteral(": ") + text);
        }
    }).run();
    return lines;
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
