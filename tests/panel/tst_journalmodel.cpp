#include "panel/journalfilter.h"
#include "panel/journalmodel.h"

#include "support/testmain.h"

#include <QtTest>

using namespace panel;

/// The journal as a table, and what a person wants to see of it.
class TestJournalModel : public QObject
{
    Q_OBJECT

private slots:
    void readsWhatTheConsoleTells();
    void otherLinesAreNone_data();
    void otherLinesAreNone();
    void showsALine();
    void nobodyKnowsTheCause();
    void holdsTheNewest();
    void takesMoreThanItHolds();
    void filters_data();
    void filters();
};

namespace
{

JournalLine line(qint64 number, const QString &source, const QString &text, qint64 cause)
{
    return {number, number / 10.0, source, text, cause, "touch press 1 2"};
}

JournalLines lines(int count)
{
    JournalLines all;
    for (int number = 0; number < count; ++number) {
        all.append(line(number, "shell", QString::number(number), 1));
    }
    return all;
}

QStringList textsOf(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        texts.append(model.index(row, JournalModel::Text).data().toString());
    }
    return texts;
}

} // namespace

void TestJournalModel::readsWhatTheConsoleTells()
{
    const auto read = JournalLine::read(
        R"({"cause":{"number":9,"text":"touch press 610 295"},"line":5089,"seconds":24.069,"source":"memory","text":"map 9C000000"})");
    QVERIFY(read.has_value());
    QCOMPARE(read->number, qint64(5089));
    QCOMPARE(read->seconds, 24.069);
    QCOMPARE(read->source, QString("memory"));
    QCOMPARE(read->text, QString("map 9C000000"));
    QCOMPARE(read->cause, qint64(9));
    QCOMPARE(read->causeText, QString("touch press 610 295"));
}

void TestJournalModel::otherLinesAreNone_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("no JSON") << "12.345 shell sync";
    QTest::newRow("half of one") << R"({"line":1,"seconds":)";
    QTest::newRow("another object") << R"({"device":"unit","speed":1})";
    QTest::newRow("an array") << "[1, 2]";
}

void TestJournalModel::otherLinesAreNone()
{
    QFETCH(QString, text);
    QVERIFY(!JournalLine::read(text).has_value());
}

void TestJournalModel::showsALine()
{
    JournalModel model;
    model.append({line(123, "mcu", "beep 0", 7)});
    QStringList shown;
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column) {
        shown.append(model.index(0, column).data().toString());
        titles.append(model.headerData(column, Qt::Horizontal).toString());
    }
    QCOMPARE(titles, (QStringList{"Time", "Cause", "Source", "Line"}));
    QCOMPARE(shown, (QStringList{"12.300", "#7", "mcu", "beep 0"}));
    QCOMPARE(model.index(0, 0).data(Qt::ToolTipRole).toString(),
             QString("Follows from #7: touch press 1 2"));
}

void TestJournalModel::nobodyKnowsTheCause()
{
    JournalModel model;
    model.append({line(1, "mcu", "beep 0", 0)});
    QCOMPARE(model.index(0, JournalModel::CauseNumber).data().toString(), QString("#?"));
    QCOMPARE(model.index(0, 0).data(Qt::ToolTipRole).toString(),
             QString("Nobody knows what this follows from."));
}

void TestJournalModel::holdsTheNewest()
{
    JournalModel model;
    model.append(lines(JournalModel::mostLines));
    QCOMPARE(model.rowCount(), int(JournalModel::mostLines));
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.append({line(JournalModel::mostLines, "shell", "one", 1),
                  line(JournalModel::mostLines + 1, "shell", "two", 1)});
    QCOMPARE(model.rowCount(), int(JournalModel::mostLines));
    QCOMPARE(removed.size(), 1);
    QCOMPARE(model.line(0).text, QString("2"));
    QCOMPARE(model.line(model.rowCount() - 1).text, QString("two"));
}

void TestJournalModel::takesMoreThanItHolds()
{
    JournalModel model;
    model.append(lines(3));
    model.append(lines(JournalModel::mostLines + 5));
    QCOMPARE(model.rowCount(), int(JournalModel::mostLines));
    QCOMPARE(model.line(0).text, QString("5"));
    model.clear();
    QCOMPARE(model.rowCount(), 0);
}

void TestJournalModel::filters_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("cause");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("all") << ""
                         << "" << qint64(0) << QStringList{"sync", "beep 0", "cp a b", "reboot"};
    QTest::newRow("a source") << "shell"
                              << "" << qint64(0) << QStringList{"sync", "cp a b"};
    QTest::newRow("a text") << ""
                            << "B" << qint64(0) << QStringList{"beep 0", "cp a b", "reboot"};
    QTest::newRow("a text of the source") << ""
                                          << "mcu" << qint64(0) << QStringList{"beep 0", "reboot"};
    QTest::newRow("both") << "mcu"
                          << "boot" << qint64(0) << QStringList{"reboot"};
    QTest::newRow("a cause") << ""
                             << "" << qint64(2) << QStringList{"beep 0", "cp a b"};
    QTest::newRow("a cause before all") << "mcu"
                                        << "boot" << qint64(2) << QStringList{"beep 0", "cp a b"};
    QTest::newRow("nothing") << ""
                             << "nowhere" << qint64(0) << QStringList();
}

void TestJournalModel::filters()
{
    QFETCH(QString, source);
    QFETCH(QString, text);
    QFETCH(qint64, cause);
    JournalModel model;
    JournalFilter filter;
    filter.setSourceModel(&model);
    model.append({line(0, "shell", "sync", 1), line(1, "mcu", "beep 0", 2)});
    filter.setSource(source);
    filter.setText(text);
    filter.setCause(cause);
    model.append({line(2, "shell", "cp a b", 2), line(3, "mcu", "reboot", 3)});
    QTEST(textsOf(filter), "shown");
}

FACTORY_TEST_MAIN(TestJournalModel)
#include "tst_journalmodel.moc"
