#pragma once

#include <QString>

#include <memory>

namespace hardware
{

/// What lines of the journal follow from: a touch, a key, a command of the console, or something
/// that a device does by itself. A default one says that nobody knows. Cheap to copy; any thread.
class Cause
{
public:
    Cause() = default;

    /// A new one. The journal writes \a line, "<source> <text>", ahead of the first line that
    /// follows from it; without one that first line tells what it is.
    static Cause begun(const QString &line = QString());

    /// Of what this thread does now.
    static Cause current();

    bool isKnown() const { return m_origin != nullptr; }
    friend bool operator==(const Cause &left, const Cause &right)
    {
        return left.m_origin == right.m_origin;
    }

private:
    friend class Journal;

    struct Origin
    {
        QString line;
        qint64 number = 0; ///< Given by the journal with its first line, whose mutex guards both.
    };

    std::shared_ptr<Origin> m_origin;
};

/// As long as it lives, what its thread does follows from that cause.
class CauseScope
{
public:
    explicit CauseScope(const Cause &cause);
    ~CauseScope();
    Q_DISABLE_COPY(CauseScope)

private:
    const Cause m_former;
};

/// Does \a work as something that follows from \a cause; a device's own doing where that is not
/// known.
template <typename Work> void doFollowing(const Cause &cause, const Work &work)
{
    const CauseScope scope(cause.isKnown() ? cause : Cause::begun());
    work();
}

} // namespace hardware
