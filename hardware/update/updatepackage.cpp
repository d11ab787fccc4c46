#include "updatepackage.h"

#include "hardware/unit/gatebypass.h"

#include <QtEndian>

#include <zlib.h>

namespace hardware
{

namespace
{

const char magic[] = "ORRERYPK";
constexpr int formatOffset = 8;
constexpr quint32 knownFormat = 1;
constexpr int customerVersionOffset = 12;
constexpr int sdkVersionOffset = 44;
constexpr int versionLength = 32;
constexpr int payloadLengthOffset = 76;
constexpr int headerLength = 80;
constexpr int checksumLength = 4;

quint32 number(const QByteArray &bytes, int offset = 0)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

} // namespace

UpdatePackage::UpdatePackage(const QString &file)
    : m_file(file)
{
    m_state = readHeader();
}

QString UpdatePackage::customerVersion() const
{
    return version(customerVersionOffset);
}

QString UpdatePackage::sdkVersion() const
{
    return version(sdkVersionOffset);
}

qint64 UpdatePackage::size() const
{
    return m_file.size();
}

bool UpdatePackage::readOn(int bytes)
{
    if (m_state != Good || m_left == 0) {
        return false;
    }
    const GateBypass toStick;
    // An open file outlives its stick here; on a unit it does not.
    const QByteArray piece =
        m_file.exists() ? m_file.read(qMin<qint64>(bytes, m_left)) : QByteArray();
    if (piece.isEmpty()) {
        m_state = Unreadable;
        return false;
    }
    addToChecksum(piece);
    m_left -= piece.size();
    if (m_left == 0) {
        m_state = readChecksum();
    }
    return m_left > 0;
}

UpdatePackage::Result UpdatePackage::result() const
{
    return m_state;
}

QString UpdatePackage::name(Result result)
{
    switch (result) {
    case Good:
        return QStringLiteral("good");
    case WrongChecksum:
        return QStringLiteral("wrong checksum");
    case Unreadable:
        return QStringLiteral("unreadable");
    case NoPackage:
        return QStringLiteral("no package");
    case WrongLength:
        return QStringLiteral("wrong length");
    }
    Q_UNREACHABLE();
}

UpdatePackage::Result UpdatePackage::readHeader()
{
    const GateBypass toStick;
    if (!m_file.open(QIODevice::ReadOnly)) {
        return Unreadable;
    }
    m_header = m_file.read(headerLength);
    if (m_header.size() != headerLength || !m_header.startsWith(magic)
        || number(m_header, formatOffset) != knownFormat) {
        m_header.clear();
        return NoPackage;
    }
    addToChecksum(m_header);
    m_left = number(m_header, payloadLengthOffset);
    if (m_file.size() != headerLength + m_left + checksumLength) {
        return WrongLength;
    }
    return m_left == 0 ? readChecksum() : Good;
}

UpdatePackage::Result UpdatePackage::readChecksum()
{
    const QByteArray checksum = m_file.read(checksumLength);
    if (checksum.size() != checksumLength) {
        return Unreadable;
    }
    return number(checksum) == m_checksum ? Good : WrongChecksum;
}

void UpdatePackage::addToChecksum(const QByteArray &bytes)
{
    m_checksum = quint32(
        crc32(m_checksum, reinterpret_cast<const Bytef *>(bytes.constData()), uInt(bytes.size())));
}

QString UpdatePackage::version(int offset) const
{
    const QByteArray field = m_header.mid(offset, versionLength);
    return QString::fromUtf8(field.constData(), int(qstrnlen(field.constData(), field.size())));
}

} // namespace hardware
