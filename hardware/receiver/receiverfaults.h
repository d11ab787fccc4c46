#pragma once

#include <QMap>
#include <QStringList>

namespace hardware
{

/// What goes wrong with the GPS receiver.
///
/// Its stages, in the order of an upgrade: "configure" the line, "product" query, ROM "loader",
/// transfer of the "bootloader", boot "prompt", "menu" selection, transfer of the "firmware",
/// "sentences" of the new firmware; and "eot", the end of either transfer. The two transfers are
/// those of the images and have blocks, which count from 1; block 0 is a stage's beginning.
class ReceiverFaults
{
public:
    /// Adds the fault that the words name. It takes the place of one of its kind at the same stage
    /// or block, and otherwise comes to those that there are. False with a sentence in \a error for
    /// what is no fault, and for one that cannot happen.
    bool add(const QStringList &words, QString *error);

    /// Whether there is a fault of that kind, which has no place.
    bool has(const QString &kind) const;
    /// The number of a fault of that kind, which has no place; 0 when there is none.
    int number(const QString &kind) const;

    bool isSilent(const QString &stage, int block) const;
    bool hangsUp(const QString &stage, int block) const;
    /// Whether that block is answered with a byte that is no answer.
    bool isGarbage(const QString &image, int block) const;
    /// How often which blocks of an image are refused.
    QMap<int, int> refusals(const QString &image) const;

    /// The faults there are, one a line, as add() would take them.
    QStringList list() const;

    /// One line for each kind of fault: the words and what they do.
    static QStringList help();

private:
    void put(const QStringList &words);

    QMap<QStringList, QStringList> m_faults; // their words, by kind and place
};

} // namespace hardware
