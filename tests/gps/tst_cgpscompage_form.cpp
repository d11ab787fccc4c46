#include "gps/gpscomage.h"

#include "gpspage.h"

#include "support/testmain.h"

#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kviconbutton.h"

#include <QLabel>
#include <QtTest>

class TestCGpsComPageForm : public QObject, private GpsPageTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void metaObject();
    void form_data();
    void form();
    void formStyles();
    void formStacking();
    void buttons();
};

void TestCGpsComPageForm::init()
{
    switchOn();
}

void TestCGpsComPageForm::cleanup()
{
    switchOff();
}

void TestCGpsComPageForm::metaObject()
{
    const QMetaObject &meta = CGpsComPage::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        methods.append(QString::fromLatin1(meta.method(index).methodSignature()));
    }
    QCOMPARE(methods,
             QStringList({"sigExitVersionPage(bool)", "sigCheckSoftResult(int)", "returnSlot()",
                          "exitSlot()", "showSystemNewFwInfoSlot()", "updateSlot()",
                          "updateUdiskStateSlot(QString)", "softCheckResultSlot(int)"}));
}

void TestCGpsComPageForm::form_data()
{
    QTest::addColumn<QRect>("geometry");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("text");
    const QString info = QStringLiteral("infoPage");
    QTest::newRow("infoPage") << QRect(0, 0, 800, 480) << QStringLiteral("gpsFWInfoForm")
                              << QString();
    QTest::newRow("popLoading") << QRect(62, 166, 676, 164) << info << QString();
    QTest::newRow("label_1") << QRect(31, 54, 614, 40) << QStringLiteral("popLoading")
                             << QStringLiteral("Verifying...");
    QTest::newRow("popEnsure") << QRect(62, 108, 676, 280) << info << QString();
    QTest::newRow("label2") << QRect(31, 75, 614, 31) << QStringLiteral("popEnsure")
                            << QStringLiteral("Firmware verified Success");
    QTest::newRow("updateButton") << QRect(159, 179, 140, 60) << QStringLiteral("popEnsure")
                                  << QStringLiteral("Update");
    QTest::newRow("cancelButton") << QRect(377, 179, 140, 60) << QStringLiteral("popEnsure")
                                  << QStringLiteral("Cancel");
    QTest::newRow("topTip") << QRect(0, 0, 800, 66) << QStringLiteral("gpsFWInfoForm")
                            << QStringLiteral("GPS Firmware Upgrade");
}

void TestCGpsComPageForm::form()
{
    QFETCH(QRect, geometry);
    QFETCH(QString, parent);
    QFETCH(QString, text);
    plugBoth();
    const CGpsComPage *page = open();
    const auto *widget = find<QWidget>(page, QTest::currentDataTag());
    QCOMPARE(widget->geometry(), geometry);
    QCOMPARE(widget->parentWidget()->objectName(), parent);
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        QCOMPARE(label->text(), text);
    }
    if (const auto *button = qobject_cast<const KvIconButton *>(widget)) {
        QCOMPARE(button->displayText(), text);
    }
}

void TestCGpsComPageForm::formStyles()
{
    plugBoth();
    const CGpsComPage *page = open();
    const auto style = [page](const char *name) { return find<QWidget>(page, name)->styleSheet(); };
    QCOMPARE(style("gpsFWInfoForm"),
             QStringLiteral("#gpsFWInfoForm{\nbackground-color: rgba(0, 0, 0, 255);\n"
                            "border-image: url(:/images/list/list_BG.png);\n}"));
    QCOMPARE(style("infoPage"),
             QStringLiteral("#infoPage{\nbackground-color: rgba(255, 255, 255, 0);\n"
                            "border-image: url(:/images/pop/shade.png);\n}"));
    QCOMPARE(style("popLoading"),
             QStringLiteral("#popLoading{\nbackground-color: rgba(0, 0, 0, 0);\n}"));
    QCOMPARE(style("popEnsure"),
             QStringLiteral("#popEnsure{\nbackground-color: rgba(0, 0, 0, 0);\n}"));
    QCOMPARE(style("label_1"),
             QStringLiteral("#label_1{\nbackground-color: rgba(0, 5, 0, 0);\n"
                            "\tcolor: rgb(255, 255, 255);\n}"));
    QCOMPARE(style("topTip"),
             QStringLiteral("#topTip{\n"
                            "border-image: url(:/images/top/header_list_frame-no line.png);\n"
                            "color: rgb(255, 255, 255);\n}"));
    QCOMPARE(page->styleSheet(), QStringLiteral("background-color:rgba(0, 0, 0, 255);"));
    QVERIFY(page->testAttribute(Qt::WA_StyledBackground));
    QCOMPARE(page->property("title").value<QString>(), QStringLiteral("setup system version"));
    QCOMPARE(page->geometry(), QRect(0, 0, 800, 480));
    QCOMPARE(find<QWidget>(page, "gpsFWInfoForm")->windowTitle(), QStringLiteral("Form"));

    QCOMPARE(find<QLabel>(page, "label_1")->font().pointSize(), 30);
    QCOMPARE(find<QLabel>(page, "label2")->font().pointSize(), 30);
    QCOMPARE(find<QLabel>(page, "label2")->maximumSize(), QSize(800, 36));
    const auto *topTip = find<QLabel>(page, "topTip");
    QCOMPARE(topTip->font().pointSize(), 38);
    QCOMPARE(topTip->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(topTip->indent(), 33);
    QCOMPARE(topTip->maximumSize(), QSize(800, 100));
    QVERIFY(!topTip->wordWrap());
    QCOMPARE(find<QWidget>(page, "popEnsure")->minimumSize(), QSize(676, 280));
    for (const char *name : {"popLoading", "popEnsure"}) {
        const auto *image = find<KvBackgroundImage>(page, name);
        QVERIFY(image->property("fitPixmapSize").value<bool>());
        QCOMPARE(image->property("pixmap").value<QPixmap>().size(), image->size());
    }
}

void TestCGpsComPageForm::formStacking()
{
    plugBoth();
    const CGpsComPage *page = open();
    QCOMPARE(find<QWidget>(page, "infoPage")->children().last()->objectName(),
             QStringLiteral("popLoading"));
    const QObjectList onForm = find<QWidget>(page, "gpsFWInfoForm")->children();
    QCOMPARE(onForm.last()->objectName(), QStringLiteral("infoPage"));
    QCOMPARE(onForm.at(onForm.size() - 2)->objectName(), QStringLiteral("topTip"));
}

void TestCGpsComPageForm::buttons()
{
    plugBoth();
    const CGpsComPage *page = open();
    const auto check = [page](const char *name, const char *id, const char *image) {
        auto *button = find<KvIconButton>(page, name);
        const QPixmap normal(QStringLiteral(":/images/pop/%1").arg(QLatin1String(image)));
        const QPixmap over(QStringLiteral(":/images/pop/sw_popup_psh.png"));
        QCOMPARE(button->buttonID(), QString::fromLatin1(id));
        QCOMPARE(int(button->property("showMode").value<KvIconButton::ShowMode>()), 1);
        QCOMPARE(int(button->property("disableMode").value<KvIconButton::DisableMode>()), 3);
        QVERIFY(!normal.isNull());
        QCOMPARE(button->property("normalImage").value<QPixmap>().toImage(), normal.toImage());
        QCOMPARE(button->property("pressImage").value<QPixmap>().toImage(), normal.toImage());
        QCOMPARE(button->property("overImage").value<QPixmap>().toImage(), over.toImage());
        QCOMPARE(button->property("normalTextColor").value<QColor>(), QColor(Qt::white));
        QCOMPARE(button->property("pressTextColor").value<QColor>(), QColor(Qt::white));
        QCOMPARE(button->property("textSize").value<int>(), 32);
    };
    check("updateButton", "idUpdateBtn", "sw_popup_blue_nrm.png");
    check("cancelButton", "idCancelBtn", "sw_popup_gray_nrm.png");
}

FACTORY_TEST_MAIN(TestCGpsComPageForm)
#include "tst_cgpscompage_form.moc"
