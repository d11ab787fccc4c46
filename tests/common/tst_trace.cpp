#include "common/trace.h"

#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QtTest>

class TestTrace : public QObject
{
    Q_OBJECT

private slots:
    void lineHasItsExactForm();
    void stringsAreQuotedAndValuesSpaced();
    void fileNameIsTheLastPartOfThePath_data();
    void fileNameIsTheLastPartOfThePath();
};

void TestTrace::lineHasItsExactForm()
{
    const TraceCapture capture;
    FACTORY_TRACE << "operation";
    const int line = __LINE__ - 1;
    // The stream puts one blank between what is streamed, so "] " is followed by two.
    QCOMPARE(
        capture.lines(),
        QStringList(
            QStringLiteral("[Info] [FactoryDebug] [ tst_trace.cpp : %1 ]  operation").arg(line)));
}

void TestTrace::stringsAreQuotedAndValuesSpaced()
{
    const TraceCapture capture;
    FACTORY_TRACE << "id:" << QStringLiteral("usb test") << 7;
    QCOMPARE(capture.texts(), QStringList(QStringLiteral("id: \"usb test\" 7")));
}

void TestTrace::fileNameIsTheLastPartOfThePath_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("absolute") << QByteArray("/a/b/view.cpp") << QByteArray("view.cpp");
    QTest::newRow("relative") << QByteArray("../view.cpp") << QByteArray("view.cpp");
    QTest::newRow("bare") << QByteArray("view.cpp") << QByteArray("view.cpp");
}

void TestTrace::fileNameIsTheLastPartOfThePath()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, name);
    QCOMPARE(QByteArray(traceFileName(path.constData(), path.constData())), name);
}

FACTORY_TEST_GUILESS_MAIN(TestTrace)
#include "tst_trace.moc"
