#include "receiverfaults.h"

#include <algorithm>
#include <climits>

namespace hardware
{

namespace
{

struct Fault
{
    const char *name;
    const char *arguments;
    const char *help;
};

const Fault faults[] = {
    {"silence", "STAGE [BLOCK]", "does not answer in that stage (from that block on)"},
    {"hangup", "STAGE [BLOCK]", "hangs the line up in that stage (at that block)"},
    {"nak", "COUNT BLOCK [IMAGE]", "refuses that block (of that image) so many times"},
    {"garbage", "BLOCK [IMAGE]", "answers that block with a byte that is no answer"},
    {"noise", "BYTES", "sends so many other bytes before each 'C'"},
    {"late-eot", "MS", "answers EOT so much later"},
    {"no-yc", "", "enters its loader with 'C' alone"},
    {"split-yc", "", "sends \"Y\" and \"C\" apart"},
    {"split-prompt", "", "sends the boot prompt in two pieces"},
    {"no-rmc", "", "its new firmware does not send \"$GNRMC\""},
};

const char *const stages[] = {"configure", "product",  "loader",    "bootloader", "prompt",
                              "menu",      "firmware", "sentences", "eot"};
const char *const images[] = {"bootloader", "firmware"};

const QLatin1String silence("silence");
const QLatin1String hangUp("hangup");
const QLatin1String nak("nak");
const QLatin1String garbage("garbage");

struct Limit
{
    const char *argument;
    int most;
};

const Limit limits[] = {
    {"BLOCK", INT_MAX / 1024 + 1}, // of the longest file that the unit sends
    {"COUNT", 1000},
    {"BYTES", 10000}, // what a second has room for
    {"MS", 3600000},
};

QString synopsis(const Fault &fault)
{
    return QStringLiteral("%1 %2")
        .arg(QLatin1String(fault.name), QLatin1String(fault.arguments))
        .trimmed();
}

bool isOfStage(const QStringList &words)
{
    return words.first() == silence || words.first() == hangUp;
}

bool isOfBlock(const QStringList &words)
{
    return words.first() == nak || words.first() == garbage;
}

/// Whose place another fault takes: the kind, and the stage or the image and its block.
QStringList place(const QStringList &words)
{
    if (isOfBlock(words)) {
        return {words.first(), words.last(), words.at(words.size() - 2)};
    }
    return words.mid(0, isOfStage(words) ? 2 : 1);
}

template <size_t Count> QStringList all(const char *const (&names)[Count])
{
    QStringList list;
    for (const char *name : names) {
        list.append(QString::fromLatin1(name));
    }
    return list;
}

QString problemOfName(const QString &argument, const QStringList &names, const QString &word)
{
    return names.contains(word) ? QString()
                                : QStringLiteral("%1 is one of %2, not \"%3\"")
                                      .arg(argument, names.join(QLatin1String(", ")), word);
}

QString problemOfNumber(const QString &argument, const QString &word)
{
    const Limit *limit =
        std::find_if(std::begin(limits), std::end(limits), [&argument](const Limit &limit) {
            return argument == QLatin1String(limit.argument);
        });
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    return isNumber && number >= 1 && number <= limit->most
        ? QString()
        : QStringLiteral("%1 is a whole number from 1 to %2, not \"%3\"")
              .arg(argument)
              .arg(limit->most)
              .arg(word);
}

/// What is wrong with a word for an argument; empty when nothing is.
QString problemOfWord(const QString &argument, const QString &word)
{
    if (argument == QLatin1String("STAGE")) {
        return problemOfName(argument, all(stages), word);
    }
    return argument == QLatin1String("IMAGE") ? problemOfName(argument, all(images), word)
                                              : problemOfNumber(argument, word);
}

/// What is wrong with the words behind the fault's name, each by itself.
QString problemOfWords(const Fault &fault, const QStringList &words)
{
    const QStringList arguments =
        QString::fromLatin1(fault.arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const int least = int(std::count_if(arguments.cbegin(), arguments.cend(), [](const QString &a) {
        return !a.startsWith(QLatin1Char('['));
    }));
    if (words.size() - 1 < least || words.size() - 1 > arguments.size()) {
        return QStringLiteral("the fault is \"%1\"").arg(synopsis(fault));
    }
    for (int index = 1; index < words.size(); ++index) {
        QString argument = arguments.at(index - 1);
        argument.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
        const QString problem = problemOfWord(argument, words.at(index));
        if (!problem.isEmpty()) {
            return problem;
        }
    }
    return QString();
}

/// Why a fault of right words cannot happen beside the others; empty when it can.
QString impossibility(const ReceiverFaults &faults, const QStringList &words)
{
    if (isOfStage(words) && words.size() > 2 && !all(images).contains(words.at(1))) {
        return QStringLiteral("the stage \"%1\" has no blocks").arg(words.at(1));
    }
    const QString withoutYc = QStringLiteral("no-yc");
    const QString splitYc = QStringLiteral("split-yc");
    if (words.first() == splitYc && faults.has(withoutYc)) {
        return QStringLiteral("with \"no-yc\" there is no \"YC\" to split");
    }
    if (words.first() == withoutYc && faults.has(splitYc)) {
        return QStringLiteral("with \"split-yc\" there is a \"YC\"");
    }
    return QString();
}

} // namespace

bool ReceiverFaults::add(const QStringList &words, QString *error)
{
    const Fault *fault =
        std::find_if(std::begin(faults), std::end(faults), [&words](const Fault &fault) {
            return words.value(0) == QLatin1String(fault.name);
        });
    if (fault == std::end(faults)) {
        *error = QStringLiteral("the receiver has no fault \"%1\"").arg(words.value(0));
        return false;
    }
    *error = problemOfWords(*fault, words);
    if (error->isEmpty()) {
        *error = impossibility(*this, words);
    }
    if (!error->isEmpty()) {
        return false;
    }
    if (isOfBlock(words) && !all(images).contains(words.last())) {
        for (const char *image : images) {
            put(words + QStringList(QString::fromLatin1(image)));
        }
    } else {
        put(words);
    }
    return true;
}

bool ReceiverFaults::has(const QString &kind) const
{
    return m_faults.contains({kind});
}

int ReceiverFaults::number(const QString &kind) const
{
    return m_faults.value({kind}).value(1).toInt();
}

bool ReceiverFaults::isSilent(const QString &stage, int block) const
{
    const QStringList fault = m_faults.value({silence, stage});
    return !fault.isEmpty() && block >= fault.value(2).toInt();
}

bool ReceiverFaults::hangsUp(const QString &stage, int block) const
{
    const QStringList fault = m_faults.value({hangUp, stage});
    return !fault.isEmpty() && block == fault.value(2).toInt();
}

bool ReceiverFaults::isGarbage(const QString &image, int block) const
{
    return m_faults.contains({garbage, image, QString::number(block)});
}

QMap<int, int> ReceiverFaults::refusals(const QString &image) const
{
    QMap<int, int> timesByBlock;
    for (const QStringList &fault : m_faults) {
        if (fault.first() == nak && fault.last() == image) {
            timesByBlock.insert(fault.at(2).toInt(), fault.at(1).toInt());
        }
    }
    return timesByBlock;
}

QStringList ReceiverFaults::list() const
{
    QStringList lines;
    for (const QStringList &fault : m_faults) {
        lines.append(fault.join(QLatin1Char(' ')));
    }
    return lines;
}

QStringList ReceiverFaults::help()
{
    QStringList lines;
    for (const Fault &fault : faults) {
        lines.append(synopsis(fault).leftJustified(25) + QLatin1String(fault.help));
    }
    return lines;
}

void ReceiverFaults::put(const QStringList &words)
{
    QStringList plain = words;
    for (QString &word : plain) {
        bool isNumber = false;
        const int number = word.toInt(&isNumber);
        // "05" is the same place as "5".
        word = isNumber ? QString::number(number) : word;
    }
    m_faults.insert(place(plain), plain);
}

} // namespace hardware
