#pragma once

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QString>

#include <functional>

namespace hardware
{

class Journal;

/// A place in the vendor data, as a section of the table "vendor.ini" describes it.
struct VendorItem
{
    QString name;
    int position;       ///< the platform's number for the item
    int offset;         ///< in bytes from the beginning
    int length;         ///< in bytes
    QByteArray initial; ///< what a new memory holds there; may be shorter than the item
};

/// The unit's vendor data: a memory of 4096 bytes, kept in "vendor.bin", with a table of what lies
/// where. Thread-safe.
class VendorData
{
public:
    static const int size = 4096;

    explicit VendorData(Journal &journal);
    Q_DISABLE_COPY(VendorData)

    /// Reads the table and makes the memory when there is none. False with a sentence in \a error
    /// that names the file and what is wrong with it, or as soon as \a prepare is, which comes
    /// first and shuts other threads out.
    bool open(
        const QString &table, const QString &memory, QString *error,
        const std::function<bool()> &prepare = [] { return true; });

    /// Looks a position up; false, and nothing is changed, for a position that the table does not
    /// name or while look-ups are refused. Journal: vendor refused position <position>.
    bool find(int position, int *offset, int *length) const;

    /// Writes at that offset; false, and nothing is written, outside the memory or while writes are
    /// refused. Journal: vendor write <offset> <bytes in hexadecimal>, or vendor refused write.
    bool write(int offset, const QByteArray &data);

    /// In the order of the table.
    QList<VendorItem> items() const;

    /// The bytes of an item; empty for a position that the table does not name.
    QByteArray item(int position) const;

    /// Faults: from now on look-ups, or writes, fail.
    void refuseLookUps(bool refuse);
    void refuseWrites(bool refuse);
    bool refusesLookUps() const;
    bool refusesWrites() const;

private:
    bool store(int offset, const QByteArray &data);
    const VendorItem *itemAt(int position) const;

    Journal &m_journal;
    mutable QMutex m_mutex;
    QList<VendorItem> m_items;
    QString m_memory;
    bool m_lookUpsRefused = false;
    bool m_writesRefused = false;
};

} // namespace hardware
