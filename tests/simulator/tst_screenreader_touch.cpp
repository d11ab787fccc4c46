#include "simulator/console/screenreader.h"

#include "simulator/window/screen.h"

#include "support/testmain.h"

#include <QCheckBox>
#include <QPushButton>
#include <QtTest>

using namespace simulator;

namespace
{

/// A button of the platform's kind, with an image 60 pixels high.
class ImageButton : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString buttonID MEMBER m_id)

public:
    ImageButton(const QString &id, QWidget *parent, const QRect &geometry)
        : QWidget(parent)
        , m_id(id)
    {
        setGeometry(geometry);
        show();
    }

    QSize sizeHint() const override { return QSize(100, 60); }

    QString m_id;
};

} // namespace

/// What a touch of the screen hits.
class TestScreenReaderTouch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void buttonWithItsId();
    void childOfAButton();
    void buttonWithoutId();
    void onlyWhereItTakesTouches();
    void nothingThere();
    void nameThatFindsAnotherButton();

private:
    QString at(int x, int y);

    QScopedPointer<Screen> m_screen;
    QRect m_area;
};

void TestScreenReaderTouch::init()
{
    m_screen.reset(new Screen);
    m_screen->show();
    m_area = QRect();
}

QString TestScreenReaderTouch::at(int x, int y)
{
    return ScreenReader(*m_screen).buttonAt(QPoint(x, y), &m_area);
}

void TestScreenReaderTouch::buttonWithItsId()
{
    const ImageButton button("one", m_screen.data(), QRect(100, 200, 300, 60));
    QCOMPARE(at(100, 200), QString("one"));
    QCOMPARE(m_area, QRect(100, 200, 300, 60));
    QCOMPARE(at(399, 259), QString("one"));
}

void TestScreenReaderTouch::childOfAButton()
{
    ImageButton button("one", m_screen.data(), QRect(100, 200, 300, 60));
    QWidget face(&button);
    face.setGeometry(10, 10, 50, 40);
    face.show();
    QCOMPARE(at(120, 220), QString("one"));
    QCOMPARE(m_area, QRect(100, 200, 300, 60));
}

void TestScreenReaderTouch::buttonWithoutId()
{
    QPushButton button("Read it", m_screen.data());
    button.setGeometry(100, 200, 300, 90);
    button.show();
    QCOMPARE(at(120, 220), QString("Read it"));
    QCOMPARE(m_area, QRect(100, 200, 300, 90));
    button.setObjectName("reader");
    QCOMPARE(at(120, 220), QString("reader"));
}

void TestScreenReaderTouch::onlyWhereItTakesTouches()
{
    // Higher than its image: where the image is, it takes touches in any case.
    const ImageButton button("one", m_screen.data(), QRect(100, 200, 300, 80));
    QCOMPARE(at(110, 205), QString("one"));
    QCOMPARE(m_area, QRect(100, 210, 300, 60));

    QCheckBox box("short", m_screen.data());
    box.setGeometry(100, 300, 400, 40);
    box.show();
    QCOMPARE(at(110, 320), QString("short"));
    QVERIFY2(m_area.width() < 200, qPrintable(QString::number(m_area.width())));
}

void TestScreenReaderTouch::nothingThere()
{
    QPushButton disabled("off", m_screen.data());
    disabled.setGeometry(100, 200, 300, 60);
    disabled.setEnabled(false);
    disabled.show();
    QWidget plain(m_screen.data());
    plain.setGeometry(100, 300, 300, 60);
    plain.show();
    QCOMPARE(at(110, 210), QString());
    QCOMPARE(at(110, 310), QString());
    QCOMPARE(at(0, 0), QString());
}

void TestScreenReaderTouch::nameThatFindsAnotherButton()
{
    const ImageButton first("same", m_screen.data(), QRect(0, 0, 100, 60));
    const ImageButton second("same", m_screen.data(), QRect(0, 100, 100, 60));
    QCOMPARE(at(10, 10), QString("same"));
    QCOMPARE(at(10, 110), QString());
}

FACTORY_TEST_MAIN(TestScreenReaderTouch)
#include "tst_screenreader_touch.moc"
