#include "support/testmain.h"

#include <QImage>
#include <QResource>
#include <QtTest>

/// The images that the plug-in carries.
class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void imageIsThere_data();
    void imageIsThere();
};

void TestResources::imageIsThere_data()
{
    struct Image
    {
        const char *name;
        QSize size;
        bool compressed;
    };
    const Image images[] = {
        {"btn210x60_n.png", {210, 60}, false},
        {"btn210x60_p.png", {210, 60}, false},
        {"btn140x60_n.png", {140, 60}, false},
        {"btn140x60_p.png", {140, 60}, false},
        {"btn_back_n.png", {80, 65}, false},
        {"btn_back_p.png", {80, 65}, false},
        {"btn_exit_n.png", {80, 65}, false},
        {"btn_exit_p.png", {80, 65}, false},
        {"bg_statusbar.png", {800, 66}, false},
        {"btn_add_n.png", {40, 40}, false},
        {"btn_add_p.png", {40, 40}, false},
        {"btn_dec_n.png", {40, 40}, false},
        {"btn_dec_p.png", {40, 40}, false},
        {"on.png", {80, 62}, false},
        {"off.png", {80, 62}, false},
        {"btn_radio_check48x48.png", {48, 48}, false},
        {"btn_radio_uncheck48x48.png", {48, 48}, false},
        {"list_item_bg_n.png", {800, 83}, true},
        {"list_item_bg_p.png", {800, 83}, false},
        {"ic_list_next.png", {40, 40}, false},
        {"pop/shade.png", {800, 480}, true},
        {"pop/sw_popup_676x164.png", {676, 164}, false},
        {"pop/sw_popup_676x198.png", {676, 198}, false},
        {"pop/sw_popup_676x280.png", {676, 280}, false},
        {"pop/sw_popup_blue_nrm.png", {140, 60}, false},
        {"pop/sw_popup_blue_dis.png", {140, 60}, false},
        {"pop/sw_popup_gray_nrm.png", {140, 60}, false},
        {"pop/sw_popup_gray_dis.png", {140, 60}, false},
        {"pop/sw_popup_psh.png", {140, 60}, false},
    };
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("compressed");
    for (const Image &image : images) {
        QTest::newRow(image.name) << QStringLiteral(":/images/") + QLatin1String(image.name)
                                  << image.size << image.compressed;
    }
}

void TestResources::imageIsThere()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QFETCH(bool, compressed);

    const QImage image(path, "PNG");
    QVERIFY(!image.isNull());
    QCOMPARE(image.size(), size);
    const QResource resource(path);
    QCOMPARE(resource.compressionAlgorithm() != QResource::NoCompression, compressed);
}

FACTORY_TEST_GUILESS_MAIN(TestResources)
#include "tst_resources.moc"
