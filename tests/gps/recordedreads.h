#pragma once

#include <QVector>

#include <cstddef>

/// While it lives, the readings of package files by fread(): headers, of 32 bytes, and pieces of
/// payload, into a buffer of 4096 bytes.
class RecordedReads
{
public:
    struct Read
    {
        std::size_t wanted;
        bool isBufferClear; ///< all of it, ahead of the reading; not known of a header's

        bool operator==(const Read &other) const
        {
            return wanted == other.wanted && isBufferClear == other.isBufferClear;
        }
    };

    RecordedReads();
    ~RecordedReads();

    const QVector<Read> &all() const;

    /// For fread() itself.
    void take(const void *buffer, std::size_t wanted);

private:
    Q_DISABLE_COPY(RecordedReads)

    QVector<Read> m_all;
};
