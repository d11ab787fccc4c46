#pragma once

#include <QFile>
#include <QString>

namespace hardware
{

/// Reader of a user update package, "ORRERY_PACK.BIN". Numbers are little-endian:
///
///     offset   length
///          0        8   "ORRERYPK"
///          8        4   format: 1
///         12       32   customer version, UTF-8, filled up with zero bytes
///         44       32   SDK version, likewise
///         76        4   n, the payload's length
///         80        n   payload
///     80 + n        4   CRC-32 (zlib's) of all bytes before it, and nothing behind it
class UpdatePackage
{
public:
    /// How a check ends; the numbers are what the platform reports.
    enum Result {
        Good = 0,
        WrongChecksum = 1,
        Unreadable = 2, ///< no such file, or it vanished
        NoPackage = 3,  ///< not the header of a package
        WrongLength = 4 ///< shorter or longer than its header says
    };

    /// \a file is a host path. Reads the header.
    explicit UpdatePackage(const QString &file);
    Q_DISABLE_COPY(UpdatePackage)

    /// Empty when the file is no package.
    QString customerVersion() const;
    QString sdkVersion() const;

    /// Length of the file in bytes.
    qint64 size() const;

    /// Takes the next piece, at most \a bytes long, into the checksum; false when nothing is left
    /// to read or the file has vanished.
    bool readOn(int bytes);

    /// What there is to say once readOn() is through, or at once where the header is wrong.
    Result result() const;

    /// A word or two for the journal.
    static QString name(Result result);

private:
    Result readHeader();
    Result readChecksum();
    void addToChecksum(const QByteArray &bytes);
    QString version(int offset) const;

    QFile m_file;
    QByteArray m_header;
    Result m_state = Unreadable;
    qint64 m_left = 0;      ///< bytes that the checksum still covers
    quint32 m_checksum = 0; ///< of what has been read so far
};

} // namespace hardware
