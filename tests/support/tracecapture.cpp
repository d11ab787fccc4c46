#include "tracecapture.h"

#include <QMutex>
#include <QRegularExpression>

namespace
{

QBasicMutex mutex;

QStringList &captured()
{
    static QStringList lines;
    return lines;
}

void capture(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QMutexLocker lock(&mutex);
    if (type == QtDebugMsg && qstrcmp(context.category, "default") == 0) {
        captured().append(message);
    } else {
        fprintf(stderr, "%s\n", qPrintable(message));
    }
}

} // namespace

TraceCapture::TraceCapture()
    : m_former(qInstallMessageHandler(capture))
{
    clear();
}

TraceCapture::~TraceCapture()
{
    qInstallMessageHandler(m_former);
}

QStringList TraceCapture::lines() const
{
    const QMutexLocker lock(&mutex);
    return captured();
}

QStringList TraceCapture::texts() const
{
    static const QRegularExpression prefix(
        QStringLiteral(R"(^\[Info\] \[FactoryDebug\] \[ \w+\.cpp : \d+ \]  )"));
    QStringList texts = lines();
    return texts.replaceInStrings(prefix, QString());
}

void TraceCapture::clear()
{
    const QMutexLocker lock(&mutex);
    captured().clear();
}
