// Lines of the console, run on a unit in a temporary folder. Those that would write files of any
// name, end the program or only wait are taken apart and not run.

#include "fuzzing.h"
#include "screenless.h"

#include "simulator/testsimulator.h"

#include "simulator/console/commandline.h"
#include "simulator/console/verbs.h"

#include <QCoreApplication>

#include <memory>

using namespace simulator;

namespace
{

/// A console on a unit of its own.
class FedConsole
{
public:
    void runLines(const QByteArray &lines)
    {
        ConsoleSession session(m_reader);
        const QList<QByteArray> all = lines.split('\n');
        for (const QByteArray &line : all) {
            const QString text = QString::fromUtf8(line);
            if (mayRun(text, session)) {
                const ConsoleResult result = m_unit.console().run(text, session);
                require(!result.isRefused || !result.isOk(), "who refuses says why");
            }
            QCoreApplication::processEvents();
        }
    }

private:
    bool mayRun(const QString &line, const ConsoleSession &session, int depth = 0) const
    {
        QStringList words;
        QString error;
        if (!commandline::split(line, session.values(), &words, &error)) {
            require(!error.isEmpty(), "a line that is none is told");
            return true;
        }
        QStringList again;
        require(commandline::split(commandline::join(words), {}, &again, &error) && again == words,
                "words that are joined come apart again");
        // Deeper the console refuses it, whatever it is.
        const int deepest = 20;
        return words.isEmpty() || depth > deepest || mayRunWords(words, session, depth + 1);
    }

    bool mayRunWords(QStringList words, const ConsoleSession &session, int depth) const
    {
        const QString name = words.takeFirst();
        if ((name == QLatin1String("fails") || name == QLatin1String("try")) && !words.isEmpty()) {
            return mayRun(words.size() == 1 ? words.first() : commandline::join(words), session,
                          depth);
        }
        if (name == QLatin1String("repeat")) {
            return words.size() != 2
                || (words.first().toInt() < 4 && mayRun(words.at(1), session, depth));
        }
        static const QStringList left{
            QStringLiteral("expect"),  QStringLiteral("factory-reset"), QStringLiteral("hidden"),
            QStringLiteral("package"), QStringLiteral("quit"),          QStringLiteral("see"),
            QStringLiteral("unseen"),  QStringLiteral("visible"),       QStringLiteral("wait")};
        const Verb *verb = findVerb(m_verbs, name);
        return verb == nullptr
            || (!left.contains(name) && !verb->usage.contains(QLatin1String("FILE"))
                && !verb->usage.contains(QLatin1String("FOLDER")));
    }

    const QList<Verb> m_verbs = verbTable();
    TestSimulator m_unit;
    hardware::JournalReader m_reader{m_unit.journal()};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startScreenless();
    // So that no unit grows without end.
    const int inputsOfAUnit = 1000;
    static std::unique_ptr<FedConsole> console;
    static int left = 0;
    if (left-- == 0) {
        console.reset();
        console = std::make_unique<FedConsole>();
        left = inputsOfAUnit;
    }
    console->runLines(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    return 0;
}
