#include "adjustrow.h"

#include "pageonscreen.h"

#include "kvwidget/kvhorstrbutton.h"

const QString plainNameStyle =
    QStringLiteral("color: rgb(240, 240, 240);\nbackground-color: rgba(0, 0, 0, 0);");

namespace
{

void checkButton(const BaseView *page, const char *name, const char *id)
{
    const auto *button = widgetOf<KvHorStrButton>(page, name);
    QCOMPARE(button->buttonId(), QLatin1String(id));
    QCOMPARE(button->property("displayString").value<QString>(), QString());
    QVERIFY(!button->property("normalPixmap").value<QPixmap>().isNull());
    QVERIFY(!button->property("pressPixmap").value<QPixmap>().isNull());
    QVERIFY(!button->property("disablePixmap").value<QPixmap>().isNull());
}

/// Without what two pictures may differ in that look the same.
QImage seen(const QImage &picture)
{
    return picture.convertToFormat(QImage::Format_RGB32);
}

} // namespace

void checkForm(const BaseView *page, const QRect &geometry, const QString &title,
               const QRect &layoutGeometry)
{
    QCOMPARE(page->geometry(), geometry);
    QCOMPARE(page->property("title").value<QString>(), title);
    QCOMPARE(page->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(widgetOf<QWidget>(page, "layoutWidget")->geometry(), layoutGeometry);
}

void checkOwnBlackStyle(const BaseView *page)
{
    QCOMPARE(page->styleSheet(), QStringLiteral("background-color:rgb(0, 0, 0);"));
    QVERIFY(page->testAttribute(Qt::WA_StyledBackground));
}

void checkIsBlack(TestUnit &unit, const BaseView *page, const QVector<QPoint> &points)
{
    const QImage image = picture(unit, page);
    for (const QPoint &point : points) {
        QCOMPARE(image.pixelColor(point), QColor(Qt::black));
    }
}

void checkNameLabel(const BaseView *page, const char *label, const char *text,
                    const QString &styleSheet)
{
    const auto *name = widgetOf<QLabel>(page, label);
    QCOMPARE(name->text(), QLatin1String(text));
    QCOMPARE(name->minimumSize(), QSize(300, 35));
    QCOMPARE(name->maximumSize(), QSize(400, 35));
    QCOMPARE(name->font().pointSize(), 28);
    QCOMPARE(name->styleSheet(), styleSheet);
    QVERIFY(isTextInside(name));
}

void checkRow(const BaseView *page, const AdjustRow &row, const QString &nameStyle)
{
    RUN_CHECK(checkNameLabel(page, row.nameLabel, row.name, nameStyle));
    RUN_CHECK(checkButton(page, row.decrease, row.decreaseId));
    RUN_CHECK(checkButton(page, row.increase, row.increaseId));
}

void checkGrowingValue(const BaseView *page, const AdjustRow &row)
{
    const auto *value = widgetOf<QLabel>(page, row.valueLabel);
    QCOMPARE(value->text(), QString::number(row.start));
    QCOMPARE(value->minimumSize(), QSize(60, 60));
    QCOMPARE(value->maximumSize(), QSize(124, 60));
    QCOMPARE(value->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(value->styleSheet(),
             QStringLiteral("color: rgb(28, 160, 248);font: 30pt \"Arial\";\nbackground-color: "
                            "rgba(0, 0, 0, 0);"));
}

void checkFixedButtons(const BaseView *page, const AdjustRow &row, const QSize &size)
{
    for (const char *name : {row.decrease, row.increase}) {
        const auto *button = widgetOf<KvHorStrButton>(page, name);
        QCOMPARE(button->size(), size);
        QCOMPARE(button->minimumSize(), button->maximumSize());
    }
}

QPoint middleOf(const BaseView *page, const char *widget)
{
    return widgetOf<QWidget>(page, widget)->geometry().center();
}

void checkAlignment(const BaseView *page, const AdjustRow &row, const AdjustRow &first)
{
    QCOMPARE(widgetOf<QWidget>(page, row.nameLabel)->x(),
             widgetOf<QWidget>(page, first.nameLabel)->x());
    QCOMPARE(middleOf(page, row.decrease).x(), middleOf(page, first.decrease).x());
    QCOMPARE(middleOf(page, row.increase).x(), middleOf(page, first.increase).x());
    QCOMPARE(middleOf(page, row.decrease).y(), middleOf(page, row.increase).y());
}

void checkAlignmentWithValue(const BaseView *page, const AdjustRow &row, const AdjustRow &first)
{
    RUN_CHECK(checkAlignment(page, row, first));
    QCOMPARE(middleOf(page, row.valueLabel).x(), middleOf(page, first.valueLabel).x());
}

void checkShowsAndPresses(TestUnit &unit, const BaseView *page, const char *button)
{
    const auto *widget = widgetOf<QWidget>(page, button);
    QImage empty(widget->size(), QImage::Format_RGB32);
    empty.fill(Qt::black);
    const QPoint middle = widget->mapTo(&unit.screen(), widget->rect().center());
    const QImage released = picture(unit, widget);
    unit.press(middle);
    const QImage pressed = picture(unit, widget);
    unit.release(middle);
    QVERIFY(seen(released) != empty);
    QVERIFY(seen(pressed) != empty);
    QVERIFY(seen(pressed) != seen(released));
    QCOMPARE(picture(unit, widget), released);
}

void clickAdjustItem(BaseView *page, const QString &id)
{
    QVERIFY(QMetaObject::invokeMethod(page, "clickedAdjustItem", Qt::DirectConnection,
                                      Q_ARG(QString, id)));
}

void addIds(const QVector<const char *> &ids)
{
    QTest::addColumn<QString>("id");
    for (const char *id : ids) {
        QTest::newRow(*id == '\0' ? "no id" : id) << QString::fromLatin1(id);
    }
}
