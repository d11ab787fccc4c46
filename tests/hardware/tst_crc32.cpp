#include "hardware/update/crc32.h"

#include <QtTest>

class TestCrc32 : public QObject
{
    Q_OBJECT

private slots:
    void value_data();
    void value();
    void piecesGiveTheSame();
};

void TestCrc32::value_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint32>("value");
    // The check value of the algorithm's catalogue entry, and values of Python's zlib.crc32().
    QTest::newRow("catalogue") << QByteArray("123456789") << 0xCBF43926U;
    QTest::newRow("nothing") << QByteArray() << 0U;
    QTest::newRow("a zero byte") << QByteArray(1, '\0') << 0xD202EF8DU;
    QTest::newRow("high bits") << QByteArray("\xFF\x80\x7F", 3) << 0xBAE01919U;
}

void TestCrc32::value()
{
    QFETCH(QByteArray, bytes);
    QFETCH(quint32, value);
    hardware::Crc32 crc;
    crc.add(bytes);
    QCOMPARE(crc.value(), value);
}

void TestCrc32::piecesGiveTheSame()
{
    hardware::Crc32 crc;
    crc.add("1234");
    crc.add("");
    crc.add("56789");
    QCOMPARE(crc.value(), 0xCBF43926U);
}

QTEST_GUILESS_MAIN(TestCrc32)
#include "tst_crc32.moc"
