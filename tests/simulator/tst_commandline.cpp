#include "simulator/console/commandline.h"

#include "support/testmain.h"

#include <QtTest>

using namespace simulator;

namespace
{

QMap<QString, QString> values()
{
    return {{"slot", "usb0"}, {"Key_2", "system/capture"}, {"text", "it's \"two words\" $slot"}};
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void splits_data();
    void splits();
    void refuses_data();
    void refuses();
    void joinedWordsSplitAgain_data();
    void joinedWordsSplitAgain();
    void names_data();
    void names();
};

void TestCommandLine::splits_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");

    QTest::newRow("empty") << "" << QStringList();
    QTest::newRow("blanks") << "  \t " << QStringList();
    QTest::newRow("one word") << "quit" << QStringList{"quit"};
    QTest::newRow("several blanks between")
        << " plug   usb0\t/x " << QStringList{"plug", "usb0", "/x"};
    QTest::newRow("end of a DOS line") << "quit\r" << QStringList{"quit"};
    QTest::newRow("comment") << "# a word" << QStringList();
    QTest::newRow("comment behind words") << "tap 1 2 # there" << QStringList{"tap", "1", "2"};
    QTest::newRow("# inside a word") << "a#b" << QStringList{"a#b"};
    QTest::newRow("quoted #") << "'#' \"#\"" << QStringList{"#", "#"};
    QTest::newRow("double quotes") << "see \"two words\"" << QStringList{"see", "two words"};
    QTest::newRow("single quotes") << "see 'two words'" << QStringList{"see", "two words"};
    QTest::newRow("empty quotes") << "setting key ''" << QStringList{"setting", "key", ""};
    QTest::newRow("quotes within a word") << "a' 'b\" \"c" << QStringList{"a b c"};
    QTest::newRow("other quotes inside") << "'\"' \"'\"" << QStringList{"\"", "'"};
    QTest::newRow("escaped quote") << R"("a\"b")" << QStringList{"a\"b"};
    QTest::newRow("escaped backslash") << R"("a\\b")" << QStringList{R"(a\b)"};
    QTest::newRow("line break in double quotes") << R"("a\nb")" << QStringList{"a\nb"};
    QTest::newRow("no escapes in single quotes") << R"('/\d+\n/')" << QStringList{R"(/\d+\n/)"};
    QTest::newRow("escaped blank") << R"(a\ b)" << QStringList{"a b"};
    QTest::newRow("no line break outside quotes") << R"(a\nb)" << QStringList{"anb"};
    QTest::newRow("value") << "plug $slot" << QStringList{"plug", "usb0"};
    QTest::newRow("value of a name with a digit")
        << "setting $Key_2" << QStringList{"setting", "system/capture"};
    QTest::newRow("values() within words")
        << "/media/$slot/x$slot" << QStringList{"/media/usb0/xusb0"};
    QTest::newRow("value in braces") << "${slot}x" << QStringList{"usb0x"};
    QTest::newRow("value in double quotes") << "\"$slot ${slot}2\"" << QStringList{"usb0 usb02"};
    QTest::newRow("no value in single quotes") << "'$slot ${slot}'" << QStringList{"$slot ${slot}"};
    QTest::newRow("no value behind a backslash")
        << R"(\$slot "\$slot")" << QStringList{"$slot", "$slot"};
    QTest::newRow("value stays one word, as it is")
        << "$text" << QStringList{values().value("text")};
    QTest::newRow("$ alone") << "/^a$/ $5 \"b$\" $" << QStringList{"/^a$/", "$5", "b$", "$"};
    QTest::newRow("other alphabets") << QString::fromUtf8("see \"Größe 音\"")
                                     << QStringList{"see", QString::fromUtf8("Größe 音")};
}

void TestCommandLine::splits()
{
    QFETCH(QString, line);
    QFETCH(QStringList, words);
    QStringList found;
    QString error;
    QVERIFY2(commandline::split(line, values(), &found, &error), qPrintable(error));
    QCOMPARE(found, words);
}

void TestCommandLine::refuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");

    QTest::newRow("open double quote") << "see \"two"
                                       << "the quote at column 5 is not closed";
    QTest::newRow("open single quote") << "'"
                                       << "the quote at column 1 is not closed";
    QTest::newRow("escaped end of quote") << R"(see "a\")"
                                          << "the quote at column 5 is not closed";
    QTest::newRow("no such value") << "plug $Slots"
                                   << "nothing was set for \"Slots\"; near: slot";
    QTest::newRow("no such value in quotes") << "\"${other}\""
                                             << "nothing was set for \"other\"";
    QTest::newRow("no name in braces") << "${}"
                                       << "nothing was set for \"\"";
    QTest::newRow("open brace") << "plug \"${slot\""
                                << "the brace at column 8 is not closed";
    QTest::newRow("backslash at the end") << R"(see a\)"
                                          << "nothing follows the backslash at the end";
}

void TestCommandLine::refuses()
{
    QFETCH(QString, line);
    QStringList words;
    QString error;
    QVERIFY(!commandline::split(line, values(), &words, &error));
    QTEST(error, "error");
}

void TestCommandLine::joinedWordsSplitAgain_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("plain") << QStringList{"tap", "1", "2"};
    QTest::newRow("blanks and quotes") << QStringList{"see", "it's \"so\""};
    QTest::newRow("expression") << QStringList{"expect", R"(/^mcu \w+ "x"$/)"};
    QTest::newRow("line break") << QStringList{"see", "two\nlines"};
    QTest::newRow("backslash and n") << QStringList{R"(a\nb)"};
    QTest::newRow("empty word") << QStringList{"setting", "key", ""};
    QTest::newRow("value's name") << QStringList{"see", "$slot", "${slot}"};
    QTest::newRow("comment sign") << QStringList{"see", "#1"};
}

void TestCommandLine::joinedWordsSplitAgain()
{
    QFETCH(QStringList, words);
    const QString line = commandline::join(words);
    QVERIFY2(!line.contains('\n'), qPrintable(line));
    QStringList found;
    QString error;
    QVERIFY2(commandline::split(line, values(), &found, &error), qPrintable(error));
    QCOMPARE(found, words);
}

void TestCommandLine::names_data()
{
    QTest::addColumn<bool>("isName");
    QTest::newRow("slot") << true;
    QTest::newRow("_A_9") << true;
    QTest::newRow("9A") << false;
    QTest::newRow("a-b") << false;
    QTest::newRow("a\n") << false;
    QTest::newRow("") << false;
}

void TestCommandLine::names()
{
    QTEST(commandline::isName(QTest::currentDataTag()), "isName");
}

FACTORY_TEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
