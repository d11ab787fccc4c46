#include "simulator/console/completion.h"

#include "support/testmain.h"

#include <QtTest>

using namespace simulator;

class TestCompletion : public QObject
{
    Q_OBJECT

private slots:
    void completes_data();
    void completes();
};

void TestCompletion::completes_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("verb") << "shot" << QStringList{"shot", "shot-anew", "shot-window"};
    QTest::newRow("verb, blanks ahead") << "  rebo" << QStringList{"reboot"};
    QTest::newRow("no verb") << "dance" << QStringList();
    QTest::newRow("button") << "press id" << QStringList{"idCapture", "idPanel"};
    QTest::newRow("any button but one to be quoted")
        << "visible " << QStringList{"idCapture", "idPanel", "return"};
    QTest::newRow("no button there") << "press return " << QStringList{"nowait"};
    QTest::newRow("behind words with blanks") << "press 'a b' n" << QStringList{"nowait"};
    QTest::newRow("key") << "key " << QStringList{"FACTORY", "HOME"};
    QTest::newRow("switch") << "write-protect usb0 " << QStringList{"off", "on"};
    QTest::newRow("option") << "journal -" << QStringList{"--all"};
    QTest::newRow("verb to explain") << "help ke" << QStringList{"key", "keylight"};
    QTest::newRow("verb that is to fail") << "fails pul" << QStringList{"pull"};
    QTest::newRow("free word") << "plug " << QStringList();
    QTest::newRow("behind an unknown verb") << "dance " << QStringList();
    QTest::newRow("open quote") << "press 'a " << QStringList();
}

void TestCompletion::completes()
{
    QFETCH(QString, line);
    const auto buttons = [] {
        return QStringList{"return", "idPanel", "idCapture", "idCapture", "with blank"};
    };
    QTEST(completions(line, buttons), "words");
}

FACTORY_TEST_GUILESS_MAIN(TestCompletion)
#include "tst_completion.moc"
