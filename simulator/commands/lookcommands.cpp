#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/console/commandline.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"
#include "simulator/window/screen.h"

#include <algorithm>

namespace simulator
{

namespace
{

const int showTimeoutMs = 2000;

/// Words on a line of their own, quoted where they must be.
QString line(const char *kind, const QStringList &words)
{
    return commandline::join(QStringList(QString::fromLatin1(kind)) + words);
}

QStringList describe(const ScreenReader::Button &button)
{
    const QRect &area = button.area;
    QStringList words(button.name);
    for (const int number : {area.x(), area.y(), area.width(), area.height()}) {
        words.append(QString::number(number));
    }
    words += button.state;
    if (!button.cover.isEmpty()) {
        words.append(button.cover);
    }
    return words + button.texts;
}

ConsoleResult look(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    QStringList lines(line("activity", {simulator.activity()}));
    const ScreenReader &screen = simulator.screenReader();
    const QList<QStringList> pages = screen.pages();
    for (const QStringList &page : pages) {
        lines.append(line("page", page));
    }
    const QStringList texts = screen.plainTexts();
    for (const QString &text : texts) {
        lines.append(line("text", {text}));
    }
    const QList<ScreenReader::Button> buttons = screen.seenButtons();
    for (const ScreenReader::Button &button : buttons) {
        lines.append(line("button", describe(button)));
    }
    return ConsoleResult::done(lines);
}

/// Waits for the screen to answer \a question with yes.
bool waitForScreen(Simulator &simulator, int hostMs,
                   const std::function<bool(const ScreenReader &)> &question)
{
    bool answer = false;
    simulator.graphicalThread().waitUntil(hostMs, [&] {
        simulator.graphicalThread().run([&] { answer = question(simulator.screenReader()); });
        return answer;
    });
    return answer;
}

/// Texts are looked for like lines of the journal.
QStringList matching(const QStringList &texts, const hardware::JournalPattern &pattern)
{
    QStringList found;
    std::copy_if(texts.cbegin(), texts.cend(), std::back_inserter(found),
                 [&pattern](const QString &text) { return pattern.matches(text); });
    return found;
}

/// Waits until the screen shows a text, or no longer does.
ConsoleResult waitForText(Simulator &simulator, const QStringList &arguments, bool isToBeSeen)
{
    const QString &wanted = arguments.first();
    const hardware::JournalPattern pattern(wanted);
    int unitMs = showTimeoutMs;
    int hostMs = 0;
    QString error = pattern.error();
    if (!pattern.isValid() || !readWait(simulator, arguments.value(1), &unitMs, &hostMs, &error)) {
        return ConsoleResult::failed(error);
    }
    QStringList texts;
    QStringList found;
    const bool isFine = waitForScreen(simulator, hostMs, [&](const ScreenReader &screen) {
        texts = screen.texts();
        found = matching(texts, pattern);
        return found.isEmpty() != isToBeSeen;
    });
    if (isFine) {
        return ConsoleResult::done();
    }
    return isToBeSeen
        ? ConsoleResult::failed(
            QStringLiteral("the screen does not show \"%1\"; shown are its texts").arg(wanted),
            texts)
        : ConsoleResult::failed(QStringLiteral("the screen shows \"%1\"").arg(wanted), found);
}

ConsoleResult see(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    return waitForText(simulator, arguments, true);
}

ConsoleResult unseen(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    return waitForText(simulator, arguments, false);
}

ConsoleResult visible(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const QString &id = arguments.first();
    const bool seen =
        waitForScreen(simulator, patienceMs(simulator, showTimeoutMs),
                      [&id](const ScreenReader &screen) { return screen.showsButton(id); });
    return seen
        ? ConsoleResult::done()
        : ConsoleResult::failed(QStringLiteral("the button \"%1\" is not to be seen").arg(id));
}

ConsoleResult hidden(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const QString &id = arguments.first();
    const bool gone =
        waitForScreen(simulator, patienceMs(simulator, showTimeoutMs),
                      [&id](const ScreenReader &screen) { return !screen.showsButton(id); });
    return gone ? ConsoleResult::done()
                : ConsoleResult::failed(QStringLiteral("the button \"%1\" is to be seen").arg(id));
}

/// The part of the glass that X, Y, WIDTH and HEIGHT behind the file's name say, or all of it.
bool readPart(const QStringList &arguments, QRect *part, QString *error)
{
    *part = QRect(QPoint(0, 0), Screen::resolution);
    if (arguments.size() == 1) {
        return true;
    }
    QPoint corner;
    int width = 0;
    int height = 0;
    if (!readPosition(arguments.value(1), arguments.value(2), &corner, error)
        || !readNumber(arguments.value(3), QStringLiteral("WIDTH"), 1, part->width() - corner.x(),
                       &width, error)
        || !readNumber(arguments.value(4), QStringLiteral("HEIGHT"), 1, part->height() - corner.y(),
                       &height, error)) {
        return false;
    }
    *part = QRect(corner, QSize(width, height));
    return true;
}

ConsoleResult save(const QImage &image, const QString &name, const ConsoleSession &session)
{
    const QString file = session.path(name);
    return image.save(file, "PNG")
        ? ConsoleResult::done()
        : ConsoleResult::failed(QStringLiteral("the picture \"%1\" cannot be written").arg(file));
}

/// Saves the part of the glass that is asked for, of a picture of the whole window.
ConsoleResult savePart(Simulator &simulator, const QImage &window, const QStringList &arguments,
                       const ConsoleSession &session)
{
    QRect part;
    QString error;
    return readPart(arguments, &part, &error)
        ? save(window.copy(part.translated(simulator.bezel().screenRect().topLeft())),
               arguments.first(), session)
        : ConsoleResult::failed(error);
}

ConsoleResult shot(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    return savePart(simulator, simulator.frame(), arguments, session);
}

ConsoleResult shotAnew(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    const QImage window = simulator.bezel().grab().toImage();
    return savePart(simulator, withoutOpacity(window), arguments, session);
}

ConsoleResult shotWindow(Simulator &simulator, const QStringList &arguments,
                         ConsoleSession &session)
{
    return save(simulator.frame(), arguments.first(), session);
}

} // namespace

void addLookCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"look", Console::Place::GraphicalThread, Effect::None, look},
                    {"see", place, Effect::None, see},
                    {"unseen", place, Effect::None, unseen},
                    {"visible", place, Effect::None, visible},
                    {"hidden", place, Effect::None, hidden},
                    {"shot", place, Effect::None, shot},
                    {"shot-anew", Console::Place::GraphicalThread, Effect::None, shotAnew},
                    {"shot-window", place, Effect::None, shotWindow},
                });
}

} // namespace simulator
