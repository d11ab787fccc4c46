#pragma once

#include "probe.h"

#include <QPoint>
#include <QSet>
#include <QStringList>

namespace simulator
{

/// Touches every button and every row of a list on every page, one after the other, and tells what
/// each led to. From a thread that is not the graphical one.
class EffectWalk
{
public:
    explicit EffectWalk(Simulator &simulator);

    /// As Markdown, a section for each button of the menu. False with a sentence in \a error when
    /// the unit has no menu to begin with.
    bool run(QStringList *lines, QString *error);

private:
    struct Target
    {
        QString name;
        QPoint place;
        bool isEnabled;
    };

    QList<Target> targets() const;
    /// The same for all states of a page that lead on in the same way.
    QString face() const;

    QString activity() const;

    bool openMenu(QString *error);
    bool restart();
    bool reach(const QStringList &path, QString *error);
    bool touch(const QString &name, QString *error);
    void visit(const QStringList &path);
    void visitAll(const QStringList &path, QStringList *onward);
    static QString key(const QStringList &path, const QString &name);
    bool isNew(const QStringList &path, const QString &name) const;
    bool leadsOn(const QStringList &path) const;
    void tellUnreached(const QStringList &path, const QString &error);
    void tell(const QStringList &path, const Target &target);

    Simulator &m_simulator;
    Probe m_probe;
    QString m_menu;
    QSet<QString> m_touched;
    QStringList m_lines;
};

} // namespace simulator
