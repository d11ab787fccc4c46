#include "sessionfile.h"

#include "sessionhead.h"

#include "hardware/unit/gatebypass.h"
#include "simulator/console/commandline.h"

#include <cmath>
#include <limits>

namespace simulator
{

namespace
{

const QLatin1String pressVerb("press");
const QLatin1String tapVerb("tap");

bool isTouch(const QStringList &words)
{
    return words.first() == pressVerb || words.first() == tapVerb;
}

} // namespace

bool SessionFile::open(const QString &file, const QStringList &comments)
{
    const hardware::GateBypass toFile;
    m_entries.clear();
    m_file.setFileName(file);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        m_error = m_file.errorString();
        return false;
    }
    QString head = sessionhead::line() + QLatin1Char('\n');
    for (const QString &comment : comments) {
        head += QLatin1String("# ") + comment + QLatin1Char('\n');
    }
    const bool isWritten = write(head);
    if (!isWritten) {
        m_file.remove();
    }
    return isWritten;
}

void SessionFile::close()
{
    m_file.close();
}

bool SessionFile::isOpen() const
{
    return m_file.isOpen();
}

QString SessionFile::fileName() const
{
    return m_file.fileName();
}

QString SessionFile::error() const
{
    return m_error;
}

bool SessionFile::add(const QStringList &words, double ms)
{
    m_entries.append({words, m_file.pos(), ms, ms});
    return writeLast();
}

void SessionFile::lastEndedAt(double ms)
{
    if (!m_entries.isEmpty()) {
        m_entries.last().endMs = ms;
    }
}

bool SessionFile::lastIsNotWaitedFor()
{
    if (m_entries.isEmpty() || !isTouch(m_entries.last().words)) {
        return true;
    }
    const Entry touch = m_entries.last();
    return goBack(count() - 1)
        && add(touch.words + QStringList(QStringLiteral("nowait")), touch.startMs);
}

bool SessionFile::goBack(int count)
{
    const qint64 offset = m_entries.at(count).offset;
    m_entries.erase(m_entries.begin() + count, m_entries.end());
    const bool isShorter = m_file.resize(offset);
    m_error = m_file.errorString();
    return isShorter;
}

int SessionFile::count() const
{
    return m_entries.size();
}

bool SessionFile::writeLast()
{
    const bool isWritten = write(lastLines());
    if (!isWritten) {
        m_file.resize(m_entries.last().offset);
    }
    return isWritten;
}

bool SessionFile::write(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    qint64 length = m_file.write(bytes);
    if (length >= 0 && length < bytes.size()) {
        // What finds room for a part of it only does not say why; the second attempt does.
        length += m_file.write(bytes.mid(int(length)));
    }
    m_error = m_file.errorString();
    return length == bytes.size();
}

QString SessionFile::lastLines() const
{
    static const Entry beginning{{QString()}, 0, 0, 0};
    const Entry &entry = m_entries.last();
    const Entry &former = count() > 1 ? m_entries.at(count() - 2) : beginning;
    QString lines;
    const double most = std::numeric_limits<int>::max();
    const int pause = int(std::round(qBound(0.0, entry.startMs - former.endMs, most)));
    if (pause > 0) {
        lines += QStringLiteral("wait %1\n").arg(pause);
    }
    // On a slow host the button may come later than it did.
    if (entry.words.first() == pressVerb && former.words.mid(0, 2) != entry.words.mid(0, 2)) {
        lines +=
            commandline::join({QStringLiteral("visible"), entry.words.at(1)}) + QLatin1Char('\n');
    }
    return lines + commandline::join(entry.words) + QLatin1Char('\n');
}

} // namespace simulator
