#pragma once

#include <QImage>
#include <QSet>
#include <QString>
#include <QStringList>

/// Compares pictures with the references of the same file name, to the last bit of each channel.
///
/// Each picture that differs, or has no reference, is left in a folder of differences as
/// <name>-got.png, beside it <name>-difference.png, where what differs is red over the dimmed
/// reference. "./test --accept-pictures" makes references of those that are left there.
class PictureComparison
{
public:
    /// References lie in \a references, a name in one of these folders only. \a differences is
    /// emptied, and made where it is missing.
    PictureComparison(const QStringList &references, const QString &differences);

    /// Empty when the picture, a PNG on the host, is as its reference; or what is wrong, in one
    /// sentence.
    QString complaint(const QString &file);

    /// File names of the references that no picture was compared with so far; they are left in the
    /// folder of differences too, in a file "unmade", one a line.
    QStringList unmade() const;

private:
    QString reference(const QString &name) const;
    void keep(const QString &name, const QString &role, const QImage &picture) const;

    const QStringList m_references;
    const QString m_differences;
    QSet<QString> m_compared;
};
