#pragma once

#include "shellwords.h"

namespace hardware
{

/// A command of the unit's shell with the paths that it names. Commands in quotes, as for sh -c,
/// are looked into. It guards against what a command names: one that puts a path together while
/// it runs is beyond it.
class ShellCommand
{
public:
    /// Relative paths count from \a currentFolder; while that is empty, they are not judged.
    explicit ShellCommand(const QByteArray &text, const QByteArray &currentFolder = QByteArray());

    /// The command with each path of the unit led below "$UNIT".
    QByteArray mapped() const;

    /// Whether mapped() would still name the root folder, a path below the host's /dev, /media,
    /// /proc or /sys other than /dev/null, or a way from the unit's paths out of its folder; also
    /// where its commands stand in one another deeper than is looked.
    bool leavesUnit() const;

private:
    /// Text of the command that gives way to another; an insertion when the length is 0.
    struct Edit
    {
        int at;
        int length;
        QByteArray text;
    };

    bool editAsCommand(const ShellWord &word, const QByteArray &text);
    void editPaths(const ShellWord &word, const QByteArray &text);
    void editPath(const ShellWord &word, const QByteArray &path);
    void lead(const ShellWord &path);
    void refuse();
    bool leavesFrom(const QByteArray &folder, const QByteArray &relativePath) const;

    const QByteArray m_text;
    QByteArray m_currentFolder;
    bool m_changesFolder = false;
    QVector<Edit> m_edits;
    bool m_leavesUnit = false;
    int m_word = 0;         ///< where the word that is looked at begins
    int m_lastFinding = -1; ///< where the last word that was edited or refused begins
};

} // namespace hardware
