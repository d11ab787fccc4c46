#include "simulator/console/verbs.h"

#include "simulator/console/commandline.h"

#include "support/testmain.h"

#include <QtTest>

using namespace simulator;

class TestVerbs : public QObject
{
    Q_OBJECT

private slots:
    void listsGroups();
    void explainsOne();
    void everyVerb_data();
    void everyVerb();
    void groupsStandTogether();
};

namespace
{

const Verb longVerb{"Paint", "paint-everything", "COLOR [LAYERS]",
                    "Paints all that can be painted with that colour, in so many layers, or in one "
                    "if it is not said.",
                    "paint-everything 'dark blue' 2"};
const Verb shortVerb{"Paint", "wash", "", "Washes it off.", "wash"};
const Verb otherVerb{"Walk", "go", "PLACE", "Goes there.", "go home"};

} // namespace

void TestVerbs::listsGroups()
{
    QCOMPARE(helpOnAll({longVerb, shortVerb, otherVerb}),
             (QStringList{
                 "Paint, for example: paint-everything 'dark blue' 2",
                 "  paint-everything COLOR [LAYERS]",
                 "                            Paints all that can be painted with that colour, in",
                 "                            so many layers, or in one if it is not said.",
                 "  wash                      Washes it off.", "", "Walk, for example: go home",
                 "  go PLACE                  Goes there.", "",
                 "\"help COMMAND\" has an example of each."}));
}

void TestVerbs::explainsOne()
{
    QCOMPARE(helpOn(longVerb),
             (QStringList{
                 "paint-everything COLOR [LAYERS]",
                 "  Paints all that can be painted with that colour, in so many layers, or in one",
                 "  if it is not said.", "For example: paint-everything 'dark blue' 2"}));
}

void TestVerbs::everyVerb_data()
{
    QTest::addColumn<int>("row");
    const QList<Verb> verbs = verbTable();
    for (int row = 0; row < verbs.size(); ++row) {
        QTest::newRow(qPrintable(verbs.at(row).name)) << row;
    }
}

/// Has sentences, an example that calls it by its own usage, and fits on a terminal.
void TestVerbs::everyVerb()
{
    QFETCH(int, row);
    const Verb verb = verbTable().at(row);
    QVERIFY(verb.help.endsWith('.'));
    QStringList words;
    QString error;
    QVERIFY(commandline::split(verb.example, {}, &words, &error));
    QCOMPARE(words.takeFirst(), verb.name);
    const QStringList usage = verb.usage.split(' ', Qt::SkipEmptyParts);
    const int optional = usage.filter(QRegularExpression("^\\[")).size();
    QVERIFY2(words.size() >= usage.size() - optional
                 && (words.size() <= usage.size() || verb.usage.endsWith("...")),
             qPrintable(verb.example));
    const QStringList lines = helpOn(verb) + helpOnAll({verb});
    for (const QString &line : lines) {
        QVERIFY2(line.size() <= 80, qPrintable(line));
    }
}

void TestVerbs::groupsStandTogether()
{
    QStringList groups;
    const QList<Verb> verbs = verbTable();
    for (const Verb &verb : verbs) {
        if (groups.isEmpty() || groups.last() != verb.group) {
            groups.append(verb.group);
        }
    }
    QCOMPARE(groups,
             (QStringList{"Touch", "Look", "Journal", "World", "Unit", "Faults", "Scripts"}));
}

FACTORY_TEST_GUILESS_MAIN(TestVerbs)
#include "tst_verbs.moc"
