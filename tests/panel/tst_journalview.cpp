#include "panel/journalmodel.h"
#include "panel/journalview.h"
#include "panel/unitclient.h"

#include "support/testmain.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

using namespace panel;

/// What a person sees and chooses of a journal, whose lines the test makes up.
class TestJournalView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void offersTheSourcesInTheirOrder();
    void showsOneSource();
    void showsLinesWithAText();
    void aClickShowsAllOfTheCause();
    void aLineWithoutACauseSaysSo();
    void aUnitThatStartsAnewIsBegunAnew();

private:
    template <typename Type> Type *find(const char *name) const
    {
        return m_view->findChild<Type *>(name);
    }
    QStringList shown() const;
    void clickRow(int row);
    QString cause() const { return find<QLabel>("journalCause")->text(); }

    QTemporaryDir m_folder;
    QScopedPointer<UnitClient> m_client;
    QScopedPointer<JournalView> m_view;
};

void TestJournalView::init()
{
    m_view.reset();
    m_client.reset(new UnitClient(m_folder.path()));
    m_view.reset(new JournalView(*m_client));
    m_view->resize(900, 400);
    m_view->show();
    emit m_client->journalGrew({{0, 0.1, "touch", "press 1 2", 1, "touch press 1 2"},
                                {1, 0.2, "shell", "cp a b", 1, "touch press 1 2"},
                                {2, 0.3, "als", "reading 7", 0, QString()},
                                {3, 0.4, "shell", "sync", 2, "console als 9"}});
}

QStringList TestJournalView::shown() const
{
    const QAbstractItemModel *model = find<QTableView>("journal")->model();
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row) {
        texts.append(model->index(row, JournalModel::Text).data().toString());
    }
    return texts;
}

void TestJournalView::clickRow(int row)
{
    auto *table = find<QTableView>("journal");
    const QRect place = table->visualRect(table->model()->index(row, JournalModel::Text));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
}

void TestJournalView::offersTheSourcesInTheirOrder()
{
    emit m_client->journalGrew({{4, 0.5, "mcu", "FF", 0, QString()}});
    const auto *sources = find<QComboBox>("journalSource");
    QStringList offered;
    for (int index = 0; index < sources->count(); ++index) {
        offered.append(sources->itemText(index));
    }
    QCOMPARE(offered, (QStringList{"All sources", "als", "mcu", "shell", "touch"}));
}

void TestJournalView::showsOneSource()
{
    auto *sources = find<QComboBox>("journalSource");
    QTest::keyClicks(sources, "s");
    QCOMPARE(sources->currentText(), QString("shell"));
    QCOMPARE(shown(), (QStringList{"cp a b", "sync"}));
    emit m_client->journalGrew({{4, 0.5, "als", "not of the shell", 0, QString()},
                                {5, 0.6, "shell", "rm b", 2, "console als 9"}});
    QCOMPARE(shown(), (QStringList{"cp a b", "sync", "rm b"}));
    QTest::keyClick(sources, Qt::Key_Home);
    QCOMPARE(shown(),
             (QStringList{"press 1 2", "cp a b", "reading 7", "sync", "not of the shell", "rm b"}));
}

void TestJournalView::showsLinesWithAText()
{
    auto *text = find<QLineEdit>("journalText");
    QTest::keyClicks(text, "PRESS");
    QCOMPARE(shown(), QStringList("press 1 2"));
    text->clear();
    QCOMPARE(shown().size(), 4);
}

void TestJournalView::aClickShowsAllOfTheCause()
{
    auto *all = find<QPushButton>("journalAll");
    QVERIFY(!all->isEnabled());
    clickRow(1);
    QCOMPARE(shown(), (QStringList{"press 1 2", "cp a b"}));
    QCOMPARE(cause(), QString("All of #1: touch press 1 2"));
    QCOMPARE(find<QTableView>("journal")->currentIndex().row(), 1);
    QVERIFY(!find<QAbstractButton>("journalFollow")->isChecked());
    QTest::mouseClick(all, Qt::LeftButton);
    QCOMPARE(shown().size(), 4);
    QCOMPARE(cause(), QString("Click a line for its cause"));
    QVERIFY(!all->isEnabled());
    QVERIFY(find<QAbstractButton>("journalFollow")->isChecked());
}

void TestJournalView::aLineWithoutACauseSaysSo()
{
    clickRow(2);
    QCOMPARE(cause(), QString("Nobody knows what this line follows from."));
    QCOMPARE(shown().size(), 4);
    QVERIFY(!find<QPushButton>("journalAll")->isEnabled());
}

void TestJournalView::aUnitThatStartsAnewIsBegunAnew()
{
    clickRow(3);
    QCOMPARE(shown(), QStringList("sync"));
    emit m_client->journalRestarted();
    QCOMPARE(shown(), QStringList());
    QCOMPARE(cause(), QString("Click a line for its cause"));
    emit m_client->journalGrew({{0, 0.1, "unit", "booted", 1, "unit booted"}});
    QCOMPARE(shown(), QStringList("booted"));
}

FACTORY_TEST_MAIN(TestJournalView)
#include "tst_journalview.moc"
