#include "setup/setuppanel.h"

#include "panelpage.h"

#include "support/runcheck.h"
#include "support/testmain.h"

#include "kvwidget/kvhorstrbutton.h"

#include <QMetaMethod>

class TestCSetupPanelFormLayout : public QObject
{
    Q_OBJECT

private slots:
    void endsWithTheFormsSize();
    void isBlack();
    void slotsAreInTheirOrder();
    void row_data();
    void row();
    void rowsAreAligned();
    void valuesAreInsideTheirLabels();
    void buttonsShowAndPress_data();
    void buttonsShowAndPress();
};

void TestCSetupPanelFormLayout::endsWithTheFormsSize()
{
    Screen screen;
    screen.open();
    RUN_CHECK(checkForm(screen.page, QRect(0, 66, 800, 420), QStringLiteral("Panel Settings"),
                        QRect(0, 20, 791, 361)));
}

void TestCSetupPanelFormLayout::isBlack()
{
    Screen screen;
    screen.open();
    RUN_CHECK(checkIsBlack(screen.unit, screen.page,
                           {QPoint(0, 0), QPoint(799, 0), QPoint(5, 200), QPoint(795, 405)}));
}

void TestCSetupPanelFormLayout::slotsAreInTheirOrder()
{
    const QMetaObject &meta = CSetupPanelForm::staticMetaObject;
    QStringList own;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        QCOMPARE(meta.method(index).methodType(), QMetaMethod::Slot);
        own.append(QString::fromLatin1(meta.method(index).methodSignature()));
    }
    QCOMPARE(own,
             QStringList({QStringLiteral("clickedReturn()"), QStringLiteral("clickedExit()"),
                          QStringLiteral("clickedAdjustItem(QString)")}));
}

void TestCSetupPanelFormLayout::row_data()
{
    addIndexes(rows);
}

void TestCSetupPanelFormLayout::row()
{
    QFETCH(int, index);
    const Row &row = rows[index];
    Screen screen;
    screen.open();

    RUN_CHECK(checkRow(screen.page, row,
                       QStringLiteral("#%1{\ncolor: rgb(255, 255, 255);\nbackground-color: "
                                      "rgba(0, 0, 0, 0);\n}")
                           .arg(QLatin1String(row.nameLabel))));
    RUN_CHECK(checkFixedButtons(screen.page, row, QSize(103, 60)));

    const auto *value = screen.widget<QLabel>(row.valueLabel);
    QCOMPARE(value->size(), QSize(60, 60));
    QCOMPARE(value->minimumSize(), value->maximumSize());
    QCOMPARE(value->font().pointSize(), 30);
    QCOMPARE(value->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(value->styleSheet(),
             QStringLiteral("#%1{\ncolor: rgb(28, 160, 248);\nbackground-color: "
                            "rgba(0, 0, 0, 0);\n}")
                 .arg(QLatin1String(row.valueLabel)));

    for (const char *name : {row.decrease, row.increase}) {
        QCOMPARE(screen.widget<KvHorStrButton>(name)->styleSheet(),
                 QStringLiteral("#%1{\nbackground-color: rgba(255, 255, 255, 0);\n}")
                     .arg(QLatin1String(name)));
    }
}

void TestCSetupPanelFormLayout::rowsAreAligned()
{
    Screen screen;
    screen.open();
    const auto middle = [&](const char *name) { return middleOf(screen.page, name); };
    for (const Row &row : rows) {
        RUN_CHECK(checkAlignmentWithValue(screen.page, row, brightness));
        QVERIFY(qAbs(middle(row.decrease).y() - middle(row.nameLabel).y()) <= 1);
        QVERIFY(middle(row.decrease).x() < middle(row.valueLabel).x());
        QVERIFY(middle(row.valueLabel).x() < middle(row.increase).x());
    }
}

void TestCSetupPanelFormLayout::valuesAreInsideTheirLabels()
{
    Screen screen;
    screen.open();
    for (const Row &row : rows) {
        auto *label = screen.widget<QLabel>(row.valueLabel);
        for (const char *text : {"0", "24", "360", "1.00", "1.99"}) {
            label->setText(QLatin1String(text));
            QVERIFY2(isTextInside(label), text);
        }
    }
}

void TestCSetupPanelFormLayout::buttonsShowAndPress_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const Row &row : rows) {
        QTest::newRow(row.decrease) << QByteArray(row.decrease);
        QTest::newRow(row.increase) << QByteArray(row.increase);
    }
}

void TestCSetupPanelFormLayout::buttonsShowAndPress()
{
    QFETCH(QByteArray, name);
    Screen screen;
    screen.open();
    RUN_CHECK(checkShowsAndPresses(screen.unit, screen.page, name));
}

FACTORY_TEST_MAIN(TestCSetupPanelFormLayout)
#include "tst_csetuppanelform_layout.moc"
