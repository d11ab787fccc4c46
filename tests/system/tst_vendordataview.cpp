#include "system/vendordataview.h"

#include "customwidget/listview.h"
#include "kvwidget/popupview.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "update/userupdatedialog.h"

#include <QPointer>
#include <QSignalSpy>
#include <QStringListModel>
#include <QtTest>

class TestVendorDataView : public QObject
{
    Q_OBJECT

private slots:
    void eachRowOpensTheDialogWithItsOwnSourceNumber_data();
    void eachRowOpensTheDialogWithItsOwnSourceNumber();
    void repeatedTapsCreateFurtherDialogs();
    void dialogOutlivesThePage();
    void rowsThatDoNotExistDoNothing();
    void theListNeverChanges();
    void aSelectedRowGoesWithThePageWithoutAWarning();
};

namespace
{

/// The page on a screen of its own.
class VendorPage
{
public:
    VendorPage()
        : host(&unit.screen())
        , view(new VendorDataView(&host))
    {
        host.show();
        QCoreApplication::processEvents();
    }

    ListView *list() { return host.findChild<ListView *>(); }
    QList<UserUpdateDialog *> dialogs() { return host.findChildren<UserUpdateDialog *>(); }

    void tapRow(int row)
    {
        unit.tap(QPoint(200, 66 + 83 * row + 41));
        QCoreApplication::processEvents();
    }

    TestUnit unit;
    QWidget host;
    VendorDataView *view;
};

} // namespace

void TestVendorDataView::eachRowOpensTheDialogWithItsOwnSourceNumber_data()
{
    // The page's names beside the dialog's questions: the same number means different devices.
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("question");
    QTest::newRow("USB0 is 0") << 0 << QStringLiteral("User Update via SD0?\n");
    QTest::newRow("USB1 is 1") << 1 << QStringLiteral("User Update via SD1?\n");
    QTest::newRow("SD0 is 2") << 2 << QStringLiteral("User Update via USB0?\n");
    QTest::newRow("SD1 is 3") << 3 << QStringLiteral("User Update via USB1?\n");
    QTest::newRow("Auto Detect is 4") << 4 << QStringLiteral("User Update Auto Detect mode?\n");
}

void TestVendorDataView::eachRowOpensTheDialogWithItsOwnSourceNumber()
{
    QFETCH(int, row);
    QFETCH(QString, question);
    VendorPage page;
    page.tapRow(row);
    QCOMPARE(page.dialogs().size(), 1);
    const UserUpdateDialog *dialog = page.dialogs().constFirst();
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->parentWidget(), &page.host);
    QCOMPARE(dialog->geometry(), QRect(0, 0, 800, 480));
    QVERIFY(dialog->findChild<PopupView *>()->text().startsWith(question));
}

void TestVendorDataView::repeatedTapsCreateFurtherDialogs()
{
    VendorPage page;
    const QModelIndex index = page.list()->model()->index(2, 0);
    for (int count = 1; count <= 3; ++count) {
        page.view->listClickedSlot(index);
        QCOMPARE(page.dialogs().size(), count);
    }
}

void TestVendorDataView::dialogOutlivesThePage()
{
    VendorPage page;
    page.tapRow(0);
    delete page.view;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(page.dialogs().size(), 1);
    QVERIFY(page.dialogs().constFirst()->isVisible());
}

void TestVendorDataView::rowsThatDoNotExistDoNothing()
{
    VendorPage page;
    const QStringListModel longer(QStringList({"0", "1", "2", "3", "4", "5"}));
    page.view->listClickedSlot(QModelIndex());
    page.view->listClickedSlot(longer.index(5));
    QCOMPARE(page.dialogs().size(), 0);
}

void TestVendorDataView::theListNeverChanges()
{
    VendorPage page;
    QSignalSpy reset(page.list()->model(), &QAbstractItemModel::modelReset);
    const QImage before = page.unit.screen().grab().toImage();
    page.tapRow(3);
    page.unit.tap(page.host.findChild<QWidget *>(QStringLiteral("popupview_cancel")));
    QCoreApplication::processEvents();
    QCOMPARE(page.unit.screen().grab().toImage(), before);
    QCOMPARE(reset.size(), 0);
}

void TestVendorDataView::aSelectedRowGoesWithThePageWithoutAWarning()
{
    VendorPage page;
    page.tapRow(0);
    QVERIFY(page.list()->selectionModel()->hasSelection());
    const QPointer<ListView> list(page.list());
    static QStringList warnings;
    const QtMessageHandler former = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &, const QString &message) {
            warnings += type == QtWarningMsg ? QStringList(message) : QStringList();
        });
    delete page.view;
    // The list waits for the end of its life, while the rows have gone.
    QCoreApplication::processEvents();
    qInstallMessageHandler(former);
    QVERIFY(list);
    QCOMPARE(warnings, QStringList());
}

FACTORY_TEST_MAIN(TestVendorDataView)
#include "tst_vendordataview.moc"
