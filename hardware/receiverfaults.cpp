#include "receiverfaults.h"

#include <algorithm>

namespace hardware
{

namespace
{

struct Fault
{
    const char *name;
    const char *arguments;
    const char *help;
    void (*apply)(ReceiverFaults &faults, const QStringList &words);
};

const char *const stages[] = {"configure", "product",  "loader",    "bootloader", "prompt",
                              "menu",      "firmware", "sentences", "eot"};

int number(const QStringList &words, int index)
{
    return words.value(index).toInt();
}

const Fault faults[] = {
    {"silence", "STAGE [BLOCK]", "does not answer in that stage (from that block on)",
     [](ReceiverFaults &f, const QStringList &words) {
         f.silentStage = words.value(1);
         f.silentBlock = number(words, 2);
     }},
    {"hangup", "STAGE [BLOCK]", "hangs the line up in that stage (at that block)",
     [](ReceiverFaults &f, const QStringList &words) {
         f.hangUpStage = words.value(1);
         f.hangUpBlock = number(words, 2);
     }},
    {"nak", "COUNT BLOCK", "refuses that block so many times",
     [](ReceiverFaults &f, const QStringList &words) {
         f.naks = number(words, 1);
         f.nakBlock = number(words, 2);
     }},
    {"garbage", "BLOCK", "answers that block with a byte that is no answer",
     [](ReceiverFaults &f, const QStringList &words) { f.garbageBlock = number(words, 1); }},
    {"noise", "COUNT", "sends so many other bytes before each 'C'",
     [](ReceiverFaults &f, const QStringList &words) { f.noiseBytes = number(words, 1); }},
    {"late-eot", "MS", "answers EOT so much later",
     [](ReceiverFaults &f, const QStringList &words) { f.lateEotMs = number(words, 1); }},
    {"no-yc", "", "enters its loader with 'C' alone",
     [](ReceiverFaults &f, const QStringList &) { f.withoutYc = true; }},
    {"split-yc", "", "sends \"Y\" and \"C\" apart",
     [](ReceiverFaults &f, const QStringList &) { f.splitYc = true; }},
    {"split-prompt", "", "sends the boot prompt in two pieces",
     [](ReceiverFaults &f, const QStringList &) { f.splitPrompt = true; }},
    {"no-rmc", "", "its new firmware does not send \"$GNRMC\"",
     [](ReceiverFaults &f, const QStringList &) { f.withoutRmc = true; }},
};

QString synopsis(const Fault &fault)
{
    return QStringLiteral("%1 %2")
        .arg(QLatin1String(fault.name), QLatin1String(fault.arguments))
        .trimmed();
}

bool isStage(const QString &word)
{
    return std::any_of(std::begin(stages), std::end(stages),
                       [&word](const char *stage) { return word == QLatin1String(stage); });
}

bool isNumber(const QString &word)
{
    bool isNumber = false;
    return word.toInt(&isNumber) > 0 && isNumber;
}

bool fits(const Fault &fault, const QStringList &words)
{
    const QStringList wanted =
        QString::fromLatin1(fault.arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.size() - 1 > wanted.size()) {
        return false;
    }
    for (int index = 0; index < wanted.size(); ++index) {
        const QString word = words.value(index + 1);
        const bool isLeftOut = word.isEmpty() && wanted.at(index).startsWith(QLatin1Char('['));
        const bool isRight =
            wanted.at(index) == QLatin1String("STAGE") ? isStage(word) : isNumber(word);
        if (!isLeftOut && !isRight) {
            return false;
        }
    }
    return true;
}

QString stageList()
{
    QStringList names;
    for (const char *stage : stages) {
        names.append(QString::fromLatin1(stage));
    }
    return names.join(QLatin1String(", "));
}

} // namespace

bool ReceiverFaults::add(const QStringList &words, QString *error)
{
    for (const Fault &fault : faults) {
        if (words.value(0) != QLatin1String(fault.name)) {
            continue;
        }
        if (fits(fault, words)) {
            fault.apply(*this, words);
            return true;
        }
        *error = QStringLiteral("the fault is \"%1\", its numbers count from 1, the stages are %2")
                     .arg(synopsis(fault), stageList());
        return false;
    }
    *error = QStringLiteral("the receiver has no fault \"%1\"").arg(words.value(0));
    return false;
}

QStringList ReceiverFaults::help()
{
    QStringList lines;
    for (const Fault &fault : faults) {
        lines.append(synopsis(fault).leftJustified(24) + QLatin1String(fault.help));
    }
    return lines;
}

} // namespace hardware
