#pragma once

#include <QString>

#include <cerrno>
#include <system_error>

namespace hardware
{

/// Keeps what a call of a program left in errno, whatever happens meanwhile.
class KeptErrno
{
public:
    KeptErrno() = default;
    ~KeptErrno() { errno = m_kept; }
    Q_DISABLE_COPY(KeptErrno)

    /// What it means, in the system's words.
    QString reason() const
    {
        return QString::fromStdString(std::generic_category().message(m_kept));
    }

private:
    const int m_kept = errno;
};

} // namespace hardware
