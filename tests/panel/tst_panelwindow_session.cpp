#include "panelwindowtest.h"

#include "support/testmain.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QTreeView>

#include <fcntl.h>
#include <unistd.h>

/// What the panel tells of the unit's conversations.
class TestPanelWindowSession : public PanelWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase() { startUnit(); }
    void init() { openWindow(); }
    void tellsWhatAMessageMeans();
    void showsTheBytesOnTheLine();

private:
    /// To the receiver, as if a program of the unit had done it.
    void say(const char *text);
};

void TestPanelWindowSession::tellsWhatAMessageMeans()
{
    showTab(3);
    for (const QStringList &command : {QStringList{"key", "FACTORY"},
                                       {"see", "Factory", "20000"},
                                       {"press", "keycolor"},
                                       {"press", "briinc"}}) {
        m_unit.ask(command);
    }
    QVERIFY(waitForLine("/^mcu FF 66 06 15 84 FE 33 32 32 FF$/"));
    const QAbstractItemModel *model = find<QTreeView>("values")->model();
    const auto message = [model] {
        return model
            ->match(model->index(0, 1), Qt::DisplayRole, "FF 66 06 15 84 FE 33 32 32 FF", 1,
                    Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    };
    QTRY_VERIFY_WITH_TIMEOUT(message().isValid(), patienceMs);
    const QString meaning = message().siblingAtColumn(2).data().toString();
    QVERIFY2(meaning.startsWith("key light: red 51, green 50, blue 50; from touch press"),
             qPrintable(meaning));
}

void TestPanelWindowSession::showsTheBytesOnTheLine()
{
    showTab(1);
    const auto *bytes = find<QPlainTextEdit>("wireBytes");
    click("wire");
    QTRY_COMPARE_WITH_TIMEOUT(m_unit.ask({"wire"}), QStringList("on"), patienceMs);
    say("$PDTINFO,123456789\r\n");
    QTRY_VERIFY_WITH_TIMEOUT(
        bytes->toPlainText().endsWith(
            " →  24 50 44 54 49 4E 46 4F 2C 31 32 33 34 35 36 37\n             38 39 0D 0A"),
        patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(find<QCheckBox>("wire")->isChecked(), patienceMs);
    click("wire");
    QTRY_COMPARE_WITH_TIMEOUT(m_unit.ask({"wire"}), QStringList("off"), patienceMs);
}

void TestPanelWindowSession::say(const char *text)
{
    const QByteArray port = QFile::encodeName(m_unit.folder() + "/dev/ttyS3");
    const int file = ::open(port.constData(), O_WRONLY | O_NOCTTY);
    QVERIFY(file >= 0);
    const auto length = ssize_t(qstrlen(text));
    QCOMPARE(::write(file, text, std::size_t(length)), length);
    ::close(file);
}

FACTORY_TEST_MAIN(TestPanelWindowSession)
#include "tst_panelwindow_session.moc"
