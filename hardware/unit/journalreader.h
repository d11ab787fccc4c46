#pragma once

#include <QtGlobal>

namespace hardware
{

class Journal;

/// Where somebody goes on reading a journal, which keeps every line from there on, however many
/// come. Thread-safe; must not outlive the journal.
class JournalReader
{
public:
    /// Begins behind the newest line.
    explicit JournalReader(Journal &journal);
    ~JournalReader();
    Q_DISABLE_COPY(JournalReader)

    /// Number of the line at which it goes on.
    qint64 position() const;
    void goTo(qint64 position);
    void goToEnd();

private:
    friend class Journal;

    Journal &m_journal;
    qint64 m_position;
};

} // namespace hardware
