#include "headunittest.h"

#include <QtTest>

namespace
{
const int patienceMs = 60000;
}

QStringList withTestActivity(const QStringList &arguments)
{
    return QStringList{"--headless", "--plugin", TEST_ACTIVITY} + arguments;
}

Outcome headunit(const QStringList &arguments)
{
    return run(HEADUNIT, arguments);
}

void HeadunitTest::makeFolder()
{
    m_folder.reset(new QTemporaryDir);
    m_unit = m_folder->filePath("unit");
}

QString HeadunitTest::script(const QByteArray &content) const
{
    QFile file(m_folder->filePath("script.txt"));
    file.open(QIODevice::WriteOnly);
    file.write(content);
    return file.fileName();
}

Outcome HeadunitTest::control(const QStringList &command) const
{
    return run(HEADUNIT_CTL, QStringList{"--unit", m_unit} + command);
}

bool HeadunitTest::waitForUnit() const
{
    return QTest::qWaitFor([this] { return control({"mark"}).status == 0; }, patienceMs);
}
