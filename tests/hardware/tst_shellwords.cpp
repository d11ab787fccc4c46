#include "hardware/shell/shellwords.h"

#include "support/testmain.h"

#include <QtTest>

using hardware::ShellLetter;
using hardware::ShellWord;
using hardware::ShellWords;

class tst_ShellWords : public QObject
{
    Q_OBJECT

private slots:
    void words_data();
    void words();
    void lettersKnowWhereTheyAreWritten();
};

/// The words, separated by "|", with "?" for what only the shell knows and "@" for "$UNIT".
static QByteArray shown(const QByteArray &command)
{
    QByteArrayList words;
    const ShellWords parsed(command);
    for (const ShellWord &word : parsed.all()) {
        words.append(ShellWords::text(word)
                         .replace(ShellWords::Computed, '?')
                         .replace(ShellWords::UnitFolder, '@'));
    }
    return words.join('|');
}

void tst_ShellWords::words_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("words");

    const auto row = [](const char *name, const char *command, const char *words) {
        QTest::newRow(name) << QByteArray(command) << QByteArray(words);
    };
    row("nothing", "", "");
    row("blanks only", " \t\n", "");
    row("plain", "cp -rf a  b", "cp|-rf|a|b");
    row("operators", "a>b<c|d;e&f", "a|b|c|d|e|f");
    row("lines", "a\nb", "a|b");
    row("descriptors", "a 2>&1", "a|2|1");
    row("single quotes", "'a b'c", "a bc");
    row("double quotes", "\"a b\"c", "a bc");
    row("quote in quotes", "\"a'b\" 'c\"d'", "a'b|c\"d");
    row("no escape in single quotes", R"('a\' b)", "a\\|b");
    row("escaped blank", R"(a\ b)", "a b");
    row("escaped quote", R"(a\"b c)", "a\"b|c");
    row("escapes in double quotes", R"("a\"b\$c\d")", "a\"b$c\\d");
    row("continued line", "a\\\nb", "ab");
    row("empty word", "'' a", "a");
    row("comment", "a # don't\nb", "a|b");
    row("no comment inside a word", "a#b c", "a#b|c");
    row("variable", "$HOME/x", "?/x");
    row("variable ends", "$a.b", "?.b");
    row("variable in double quotes", "\"$a b\"", "? b");
    row("no variable in single quotes", "'$a'", "$a");
    row("braces", "${HOME}x", "?x");
    row("braces with a default", "${a:-/dev/x}", "?/dev/x");
    row("special parameters", "$? $1 $$x", "?|?|?x");
    row("a dollar of its own", "a$ b", "a$|b");
    row("the unit's folder", "\"$UNIT\"/a ${UNIT}/b", "@/a|@/b");
    row("not the unit's folder", "$UNITS/a ${UNIT:-b}", "?/a|?b");
    row("home", "~/x a~b", "?/x|a~b");
    row("command in a command", "a $(b c) d", "a|b|c|?|d");
    row("command in double quotes", "\"x $(b \"c d\") y\"", "b|c d|x ? y");
    row("command in backquotes", "a `b c`d", "a|b|c|?d");
    row("nested brackets", "$(a (b) c) d", "a|b|c|?|d");
    row("subshell", "(a b);c", "a|b|c");
    row("unfinished quote", "a 'b c", "a|b c");
    row("unfinished command", "a $(b", "a|b|?");
    row("unfinished braces", "${a", "?");
    row("ends in an escape", "a\\", "a\\");
}

void tst_ShellWords::words()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, words);

    QCOMPARE(shown(command), words);
}

void tst_ShellWords::lettersKnowWhereTheyAreWritten()
{
    const ShellWords parsed(QByteArray(R"(a'/'"b"\c)"));
    const ShellWord word = parsed.all().at(0);
    QCOMPARE(word.size(), 4);
    const int at[] = {0, 2, 5, 7};
    const int length[] = {1, 1, 1, 2};
    const ShellLetter::Quote quote[] = {ShellLetter::Unquoted, ShellLetter::InSingle,
                                        ShellLetter::InDouble, ShellLetter::Unquoted};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(word.at(i).at, at[i]);
        QCOMPARE(word.at(i).length, length[i]);
        QCOMPARE(int(word.at(i).quote), int(quote[i]));
        QCOMPARE(word.at(i).isEscaped(), i == 3);
    }
}

FACTORY_TEST_GUILESS_MAIN(tst_ShellWords)
#include "tst_shellwords.moc"
