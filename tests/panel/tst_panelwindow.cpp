#include "panelwindowtest.h"

#include "panel/liveplot.h"
#include "panel/memoryview.h"
#include "support/testmain.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QSettings>
#include <QTableView>
#include <QTabWidget>
#include <QTreeView>
#include <QtTest>

#include <algorithm>

using panel::PanelWindow;

/// The panel in the hands of a person, with a unit in a program of its own.
class TestPanelWindow : public PanelWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase() { startUnit(); }
    void init() { openWindow(); }
    void waitsForAUnit();
    void plugsAndPulls();
    void aDroppedFolderIsPlugged();
    void putsPackages();
    void touchesTheScreen();
    void setsTheLight();
    void changesARegister();
    void changesAValue();
    void plotsWhatTheLineCarries();
    void letsThingsFail();
    void setsTheSpeed();
    void aLineShowsItsCause();
    void whoReadsIsLeftThere();
    void whatFailsIsSaid();
    void aUnitThatGoesIsGreyAndComesBack();
    void theLayoutIsRemembered();
    void aWindowThatEndsIsHiddenFirst();

private:
    /// The place of a text in a table or tree, for clicks.
    bool edit(QAbstractItemView *view, const QModelIndex &index, const QString &text);
};

namespace
{

/// Whether what is hidden is still in a whole window.
class HideWatch : public QObject
{
public:
    bool wasHidden = false;
    bool wasInWindow = false;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide) {
            wasHidden = true;
            wasInWindow =
                qobject_cast<PanelWindow *>(static_cast<QWidget *>(watched)->window()) != nullptr;
        }
        return false;
    }
};

} // namespace

bool TestPanelWindow::edit(QAbstractItemView *view, const QModelIndex &index, const QString &text)
{
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      view->visualRect(index).center());
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                       view->visualRect(index).center());
    auto *editor = view->viewport()->findChild<QLineEdit *>();
    if (editor == nullptr) {
        return false;
    }
    editor->setText(text);
    QTest::keyClick(editor, Qt::Key_Return);
    return true;
}

void TestPanelWindow::waitsForAUnit()
{
    QTemporaryDir folder;
    PanelWindow window(folder.path());
    window.show();
    window.start();
    auto *hint = window.findChild<QLabel *>("hint");
    QVERIFY(hint->isVisible());
    QVERIFY2(hint->text().contains("./run --unit " + folder.path()), qPrintable(hint->text()));
}

void TestPanelWindow::plugsAndPulls()
{
    QVERIFY(find("usb0Folder")->isEnabled());
    click("usb0Plug");
    QVERIFY(waitForLine("/^storage plug usb0 /"));
    QTRY_COMPARE_WITH_TIMEOUT(find<QAbstractButton>("usb0Plug")->text(), QString("Pull"),
                              patienceMs);
    QVERIFY(!find("usb0Folder")->isEnabled());
    QCOMPARE(find<QLabel>("usb0Files")->text(), QString("no files"));
    click("usb0Plug");
    QVERIFY(waitForLine("/^storage pull usb0 /"));
    QTRY_COMPARE_WITH_TIMEOUT(find<QAbstractButton>("usb0Plug")->text(), QString("Plug"),
                              patienceMs);
}

void TestPanelWindow::aDroppedFolderIsPlugged()
{
    QTemporaryDir stick;
    for (const char *name : {"a", "b", "c", "d"}) {
        QFile file(stick.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
    }
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(stick.path())});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(find("sd1"), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(find("sd1"), &drop);
    QVERIFY(waitForLine("/^storage plug sd1 /"));
    QTRY_COMPARE_WITH_TIMEOUT(find<QLabel>("sd1Files")->text(),
                              QString("a  1 bytes\nb  1 bytes\nand 2 more"), patienceMs);
    // A file is no stick, and none goes into a slot that has one.
    QDragEnterEvent second({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(find("sd1"), &second);
    QVERIFY(!second.isAccepted());
    data.setUrls({QUrl::fromLocalFile(stick.filePath("a"))});
    QDragEnterEvent file({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(find("sd0"), &file);
    QVERIFY(!file.isAccepted());
    click("sd1Plug");
    QTRY_COMPARE_WITH_TIMEOUT(find<QAbstractButton>("sd1Plug")->text(), QString("Plug"),
                              patienceMs);
}

void TestPanelWindow::putsPackages()
{
    auto *menu = find<QMenu>("sd0Packages");
    QTimer::singleShot(0, menu, [menu] {
        QTRY_VERIFY(menu->isVisible());
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(menu->actions().at(0)).center());
    });
    click("sd0Put");
    QVERIFY(waitForLine("storage package sd0 gps"));
    click("sd0Plug");
    QTRY_COMPARE_WITH_TIMEOUT(find<QLabel>("sd0Files")->text(),
                              QString("gps_bootloader.pkg  4.91 KiB\ngps_firmware.pkg  58.63 KiB"),
                              patienceMs);
    click("sd0Plug");
    QTRY_COMPARE_WITH_TIMEOUT(find<QAbstractButton>("sd0Plug")->text(), QString("Plug"),
                              patienceMs);
}

void TestPanelWindow::touchesTheScreen()
{
    click("keyFACTORY");
    QVERIFY(waitForLine("framework started factorydebug"));
    m_unit.ask({"visible", "keycolor"});
    QWidget *glass = find("glass");
    // The middle of "KeyColor", on a picture that lies in the middle of its widget.
    const QSize size = QSize(800, 480).scaled(glass->size(), Qt::KeepAspectRatio);
    const QPoint origin((glass->width() - size.width()) / 2, (glass->height() - size.height()) / 2);
    const QPoint place = origin + QPoint(170, 200) * size.width() / 800;
    QTest::mouseClick(glass, Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(waitForLine("touch keycolor btnClicked"));
    const QStringList press = m_unit.ask({"journal", "--all", "/^touch press/"});
    const QStringList words = press.last().simplified().split(' ');
    QVERIFY2(qAbs(words.at(3).toInt() - 170) <= 2 && qAbs(words.at(4).toInt() - 200) <= 2,
             qPrintable(press.last()));
}

void TestPanelWindow::setsTheLight()
{
    showTab(0);
    auto *slider = find("lightSlider");
    QTest::mouseClick(slider, Qt::LeftButton, Qt::NoModifier,
                      QPoint(slider->width() - 4, slider->height() / 2));
    QVERIFY(waitForLine("/^als reading [1-9]/"));
    click("lightCurve");
    QVERIFY(waitForLine("als curve 4 60"));
    QTRY_VERIFY_WITH_TIMEOUT(find<QAbstractButton>("lightCurve")->isChecked(), patienceMs);
    click("lightCurve");
    QVERIFY(waitForLine("als curve ends"));
    QTRY_VERIFY_WITH_TIMEOUT(find<QLabel>("lightMode")->text().endsWith(", automatic"), patienceMs);
}

void TestPanelWindow::changesARegister()
{
    showTab(2);
    auto *table = find<QTableView>("registers");
    const auto row = [table] {
        return table->model()
            ->match(table->model()->index(0, 0), Qt::DisplayRole, "phySwing", 1, Qt::MatchExactly)
            .value(0)
            .row();
    };
    QTRY_VERIFY_WITH_TIMEOUT(table->model()->rowCount() > 5, patienceMs);
    const auto text = [&](int column) {
        return table->model()->index(row(), column).data().toString();
    };
    QCOMPARE(text(1), QString("7F7F4040"));
    QVERIFY(edit(table, table->model()->index(row(), 1), "7F7F4045"));
    QTRY_COMPARE_WITH_TIMEOUT(text(1), QString("7F7F4045"), patienceMs);
    QCOMPARE(text(2), QString("7F7F4040"));
    const QModelIndex value = table->model()->index(row(), 1);
    QVERIFY(value.data(Qt::BackgroundRole).isValid());
    QTRY_VERIFY_WITH_TIMEOUT(!value.data(Qt::BackgroundRole).isValid(), patienceMs);
    auto *ports = find<QTableView>("ports");
    QTRY_COMPARE_WITH_TIMEOUT(ports->model()->index(0, 3).data().toString(), QString("+5"),
                              patienceMs);
}

void TestPanelWindow::changesAValue()
{
    showTab(3);
    auto *tree = find<QTreeView>("values");
    const auto find = [tree](const QString &name) {
        return tree->model()
            ->match(tree->model()->index(0, 0), Qt::DisplayRole, name, 1,
                    Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    };
    QTRY_VERIFY_WITH_TIMEOUT(find("gps").isValid(), patienceMs);
    QVERIFY(edit(tree, find("gps").siblingAtColumn(1), "GNSS 9"));
    QTRY_COMPARE_WITH_TIMEOUT(m_unit.ask({"version", "gps"}), QStringList("GNSS 9"), patienceMs);
    QVERIFY(edit(tree, find("2 panelBrightness").siblingAtColumn(1), "0D 00 00 00"));
    QTRY_COMPARE_WITH_TIMEOUT(m_unit.ask({"vendor", "2"}), QStringList("0D 00 00 00"), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(find("2 panelBrightness").siblingAtColumn(2).data().toString(),
                              QString("13"), patienceMs);
}

void TestPanelWindow::plotsWhatTheLineCarries()
{
    const auto *plot = m_window->findChild<panel::MemoryView *>()->findChild<panel::LivePlot *>();
    const auto running = [plot] {
        QVector<double> values;
        const QVector<QPointF> points = plot->points("throughput");
        for (const QPointF &point : points) {
            if (point.y() > 0) {
                values.append(point.y());
            }
        }
        std::sort(values.begin(), values.end());
        return values;
    };
    openMenu();
    tell({{"speed", "1"}, {"press", "ncmtest"}, {"press", "C_UPD50"}});
    QTRY_VERIFY_WITH_TIMEOUT(running().size() >= 5, patienceMs);
    tell({{"press", "C_STOP"}, {"key", "HOME"}, {"speed", "5"}});
    // Not twice the 50 Mbit/s that the button says; a busy host may carry less.
    const double middle = running().at(running().size() / 2);
    QVERIFY2(middle < 60, qPrintable(QString::number(middle)));
}

void TestPanelWindow::letsThingsFail()
{
    showTab(4);
    auto *table = find<QTableView>("faults");
    QTRY_VERIFY_WITH_TIMEOUT(table->model()->rowCount() >= 20, patienceMs);
    const QModelIndex row =
        table->model()->match(table->model()->index(0, 1), Qt::DisplayRole, "mute", 1).value(0);
    table->scrollTo(row);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier,
                      table->visualRect(row).center());
    QCOMPARE(find<QLineEdit>("faultWords")->text(), QString("dab mute"));
    click("faultAdd");
    QTRY_COMPARE_WITH_TIMEOUT(find<QLabel>("faultsPresent")->text(),
                              QString("What fails: dab mute"), patienceMs);
    click("faultNone");
    QTRY_COMPARE_WITH_TIMEOUT(find<QLabel>("faultsPresent")->text(), QString("Nothing fails."),
                              patienceMs);
}

void TestPanelWindow::setsTheSpeed()
{
    auto *speed = find<QComboBox>("speed");
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentText(), QString("5"), patienceMs);
    speed->setFocus();
    speed->setEditText("8");
    QTest::keyClick(speed, Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(m_unit.ask({"speed"}), QStringList("8"), patienceMs);
}

void TestPanelWindow::aLineShowsItsCause()
{
    m_unit.ask({"plug", "sd0"});
    m_unit.ask({"pull", "sd0"});
    auto *table = find<QTableView>("journal");
    const auto rowOf = [table](const QString &text) {
        return table->model()
            ->match(table->model()->index(0, 3), Qt::DisplayRole, text, 1, Qt::MatchStartsWith)
            .value(0);
    };
    QTRY_VERIFY_WITH_TIMEOUT(rowOf("pull sd0").isValid(), patienceMs);
    QTest::qWait(50);
    const QModelIndex pulled = rowOf("pull sd0");
    table->scrollTo(pulled);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier,
                      table->visualRect(pulled).center());
    QTRY_VERIFY(!rowOf("plug sd0").isValid());
    QVERIFY(rowOf("pull sd0").isValid());
    QVERIFY2(find<QLabel>("journalCause")->text().endsWith("console pull sd0"),
             qPrintable(find<QLabel>("journalCause")->text()));
    click("journalAll");
    QVERIFY(rowOf("plug sd0").isValid());
}

void TestPanelWindow::whoReadsIsLeftThere()
{
    m_unit.ask({"repeat", "60", "als 9"});
    auto *table = find<QTableView>("journal");
    QScrollBar *bar = table->verticalScrollBar();
    QTRY_VERIFY_WITH_TIMEOUT(bar->maximum() > 0 && bar->value() == bar->maximum(), patienceMs);
    bar->triggerAction(QScrollBar::SliderToMinimum);
    QTRY_COMPARE(find<QAbstractButton>("journalFollow")->isChecked(), false);
    const int maximum = bar->maximum();
    m_unit.ask({"repeat", "5", "als 10"});
    QTRY_VERIFY_WITH_TIMEOUT(bar->maximum() > maximum, patienceMs);
    QCOMPARE(bar->value(), 0);
    click("journalFollow");
    QCOMPARE(bar->value(), bar->maximum());
}

void TestPanelWindow::whatFailsIsSaid()
{
    showTab(4);
    auto *words = find<QLineEdit>("faultWords");
    words->setText("dab burn");
    QTest::keyClick(words, Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(find<QLabel>("failure")->text().startsWith("fault dab burn: "),
                             patienceMs);
    // Until something else is done.
    click("faultNone");
    QTRY_COMPARE_WITH_TIMEOUT(find<QLabel>("failure")->text(), QString("fault none: done"),
                              patienceMs);
}

void TestPanelWindow::aUnitThatGoesIsGreyAndComesBack()
{
    m_unit.kill();
    QTRY_VERIFY_WITH_TIMEOUT(!find("usb0Plug")->isEnabled(), patienceMs);
    QVERIFY2(find<QLabel>("failure")->text().contains("has gone"),
             qPrintable(find<QLabel>("failure")->text()));
    QVERIFY(find("usb0Plug")->isVisible());
    QVERIFY(m_unit.start());
    QTRY_VERIFY_WITH_TIMEOUT(find("usb0Plug")->isEnabled(), patienceMs);
    click("usb0Plug");
    QVERIFY(waitForLine("/^storage plug usb0 /"));
}

void TestPanelWindow::theLayoutIsRemembered()
{
    showTab(3);
    m_window->resize(1100, 650);
    m_window->close();
    const PanelWindow next(m_unit.folder());
    QCOMPARE(next.findChild<QTabWidget *>("tabs")->currentIndex(), 3);
    QCOMPARE(next.size(), QSize(1100, 650));
    QSettings().clear();
}

void TestPanelWindow::aWindowThatEndsIsHiddenFirst()
{
    HideWatch watch;
    QTRY_VERIFY_WITH_TIMEOUT(find("glass")->isVisible(), patienceMs);
    find("glass")->installEventFilter(&watch);
    m_window.reset();
    QVERIFY(watch.wasHidden);
    // Its views then tell the client, a part of the window.
    QVERIFY(watch.wasInWindow);
}

FACTORY_TEST_MAIN(TestPanelWindow)
#include "tst_panelwindow.moc"
