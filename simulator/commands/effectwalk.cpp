#include "effectwalk.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"
#include "simulator/window/hardkey.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int pageMs = 5000; // of the host, for a page or a restart
constexpr int menuMs = 1000;
constexpr int deepest = 4; // touches from the menu

const char title[] = "# What each touch leads to";
const char head[] =
    "Every button and row of every page, in the order in which one reads, and what followed from\n"
    "touching it: calls that told and asked the closed libraries, MCU messages, registers with\n"
    "before and after, files, commands, waits, stored values, what devices did, and what the\n"
    "screen showed then. `effects --all` on a unit makes this list.";

} // namespace

EffectWalk::EffectWalk(Simulator &simulator)
    : m_simulator(simulator)
    , m_probe(simulator)
{
}

bool EffectWalk::run(QStringList *lines, QString *error)
{
    if (!openMenu(error)) {
        return false;
    }
    m_menu = face();
    m_lines = QStringList({QString::fromLatin1(title), QString(), QString::fromLatin1(head)});
    visit({});
    *lines = m_lines;
    return true;
}

QList<EffectWalk::Target> EffectWalk::targets() const
{
    QList<Target> found;
    m_simulator.graphicalThread().run([&] {
        const QList<ScreenReader::Button> buttons = m_simulator.screenReader().seenButtons();
        for (const ScreenReader::Button &button : buttons) {
            QPoint place;
            QString error;
            const bool isEnabled =
                m_simulator.screenReader().findButton(button.name, &place, &error);
            found.append({button.name, place, isEnabled});
        }
        const QList<ScreenReader::Row> rows = m_simulator.screenReader().seenRows();
        for (const ScreenReader::Row &row : rows) {
            found.append({row.text, row.area.center(), true});
        }
    });
    return found;
}

QString EffectWalk::face() const
{
    QStringList face;
    const QList<Target> all = targets();
    for (const Target &target : all) {
        face.append(target.isEnabled ? target.name
                                     : QLatin1Char('(') + target.name + QLatin1Char(')'));
    }
    return face.join(QLatin1Char('\n'));
}

QString EffectWalk::activity() const
{
    QString activity;
    m_simulator.graphicalThread().run([&] { activity = m_simulator.activity(); });
    return activity;
}

bool EffectWalk::openMenu(QString *error)
{
    GraphicalThread &thread = m_simulator.graphicalThread();
    const hardware::Journal &journal = m_simulator.unit().journal();
    for (int activities = 0; !activity().isEmpty() && activities < deepest; ++activities) {
        thread.run([&] { m_simulator.bezel().homeKey().click(); });
    }
    const qint64 from = journal.end();
    thread.run([&] { m_simulator.bezel().factoryKey().click(); });
    const hardware::JournalPattern started(QStringLiteral("framework started factorydebug"));
    if (journal.waitFor(started, from, pageMs) < 0) {
        *error = QStringLiteral("the factory menu does not come");
        return false;
    }
    const bool isThere =
        thread.waitUntil(menuMs, [&] { return m_menu.isEmpty() || face() == m_menu; });
    *error = isThere ? QString() : QStringLiteral("something lies on the factory menu");
    return isThere;
}

bool EffectWalk::restart()
{
    const hardware::Journal &journal = m_simulator.unit().journal();
    const qint64 from = journal.end();
    m_simulator.unit().mcu().reboot();
    return journal.waitFor(hardware::JournalPattern(QStringLiteral("unit booted")), from, pageMs)
        >= 0;
}

/// A page that is a window of its own stays until it closes itself, or the unit restarts.
bool EffectWalk::reach(const QStringList &path, QString *error)
{
    return (openMenu(error) || (restart() && openMenu(error)))
        && std::all_of(path.cbegin(), path.cend(),
                       [&](const QString &name) { return touch(name, error); });
}

bool EffectWalk::touch(const QString &name, QString *error)
{
    const QList<Target> all = targets();
    const auto found = std::find_if(all.cbegin(), all.cend(), [&name](const Target &target) {
        return target.name == name && target.isEnabled;
    });
    *error = QStringLiteral("there is no \"%1\"").arg(name);
    return found != all.cend() && m_probe.touch(found->place, error);
}

/// Each page is a section of its own; on it, what it has by itself comes ahead of what its buttons
/// bring.
void EffectWalk::visit(const QStringList &path)
{
    const QString here = face();
    const QList<Target> all = targets();
    QStringList onward;
    for (const Target &target : all) {
        if (!isNew(path, target.name)) {
            continue;
        }
        m_touched.insert(key(path, target.name));
        QString error;
        if (face() != here && !reach(path, &error)) {
            tellUnreached(path, error);
            return;
        }
        tell(path, target);
        if (target.isEnabled && leadsOn(path + QStringList(target.name))) {
            onward.append(target.name);
        }
        if (path.isEmpty()) {
            visitAll(path, &onward);
        }
    }
    visitAll(path, &onward);
}

void EffectWalk::visitAll(const QStringList &path, QStringList *onward)
{
    for (const QString &name : qAsConst(*onward)) {
        const QStringList next = path + QStringList(name);
        QString error;
        if (reach(next, &error)) {
            visit(next);
        } else {
            tellUnreached(next, error);
        }
    }
    onward->clear();
}

QString EffectWalk::key(const QStringList &path, const QString &name)
{
    return (path + QStringList(name)).join(QLatin1Char('\n'));
}

/// What was there already where the path comes through has been touched there.
bool EffectWalk::isNew(const QStringList &path, const QString &name) const
{
    bool isNew = !m_touched.contains(key(path, name));
    for (int length = 1; length < path.size(); ++length) {
        isNew = isNew && !m_touched.contains(key(path.mid(0, length), name));
    }
    return isNew;
}

/// Whether there is something new to be touched where the path has led.
bool EffectWalk::leadsOn(const QStringList &path) const
{
    if (path.size() >= deepest || activity().isEmpty() || face() == m_menu) {
        return false;
    }
    const QStringList menu = m_menu.split(QLatin1Char('\n'));
    const QList<Target> all = targets();
    return std::any_of(all.cbegin(), all.cend(), [&](const Target &target) {
        return isNew(path, target.name) && !(path.size() == 1 && menu.contains(target.name));
    });
}

void EffectWalk::tellUnreached(const QStringList &path, const QString &error)
{
    m_lines << QString()
            << QStringLiteral("%1 is not reached again: %2.")
                   .arg(path.join(QStringLiteral(" > ")), error);
}

void EffectWalk::tell(const QStringList &path, const Target &target)
{
    const QStringList whole = path + QStringList(target.name);
    m_lines << QString()
            << (path.isEmpty() ? QStringLiteral("## ") : QStringLiteral("### "))
            + whole.join(QStringLiteral(" > "));
    m_lines << QString();
    QString error;
    if (!target.isEnabled) {
        m_lines << QStringLiteral("Disabled.");
    } else if (!touch(target.name, &error)) {
        m_lines << QStringLiteral("Not told: %1.").arg(error);
    } else {
        const QStringList effects = m_probe.effects();
        for (const QString &effect : effects) {
            m_lines << QStringLiteral("    ") + effect;
        }
        if (effects.isEmpty()) {
            m_lines << QStringLiteral("Nothing.");
        }
    }
}

} // namespace simulator
