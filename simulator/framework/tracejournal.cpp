#include "tracejournal.h"

#include "hardware/unit/journal.h"

#include <QByteArray>
#include <QString>

#include <atomic>

namespace simulator
{

namespace
{

std::atomic<hardware::Journal *> traceJournal{nullptr};
std::atomic<bool> isOutputToo{true};
QtMessageHandler formerHandler = nullptr;

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    hardware::Journal *journal = traceJournal;
    if (journal != nullptr && type == QtDebugMsg && qstrcmp(context.category, "default") == 0) {
        journal->write(QStringLiteral("trace"), message);
        if (!isOutputToo) {
            return;
        }
    }
    formerHandler(type, context, message);
}

} // namespace

TraceJournal::TraceJournal(hardware::Journal &journal, Place place)
{
    isOutputToo = place == JournalAndOutput;
    traceJournal = &journal;
    formerHandler = qInstallMessageHandler(handleMessage);
}

TraceJournal::~TraceJournal()
{
    qInstallMessageHandler(formerHandler);
    traceJournal = nullptr;
}

} // namespace simulator
