#include "adjustbuttons.h"

void clickAdjustItem(BaseView *page, const QString &id)
{
    QVERIFY(QMetaObject::invokeMethod(page, "clickedAdjustItem", Qt::DirectConnection,
                                      Q_ARG(QString, id)));
}

QString loggedItem(const char *page, const char *id)
{
    return QStringLiteral("log INFO %1 clickedAdjustItem %2\\n")
        .arg(QLatin1String(page), QLatin1String(id));
}

void addIds(const QVector<const char *> &ids)
{
    QTest::addColumn<QString>("id");
    for (const char *id : ids) {
        QTest::newRow(*id == '\0' ? "no id" : id) << QString::fromLatin1(id);
    }
}
