#pragma once

#include <QList>
#include <QStringList>

namespace simulator
{

/// What people are told of a command of the console.
struct Verb
{
    QString group;
    QString name;
    /// The arguments, those that may be left out in brackets: "SLOT [FOLDER]". The last one may
    /// stand for more of its kind: "COMMAND...".
    QString usage;
    QString help;    ///< Sentences.
    QString example; ///< A line that it could be used in.

    /// Name and arguments.
    QString synopsis() const;
};

/// The commands of the simulated unit, those of a group together.
QList<Verb> verbTable();

/// The verb of that name; null when there is none.
const Verb *findVerb(const QList<Verb> &verbs, const QString &name);

QStringList verbNames(const QList<Verb> &verbs);

/// The verbs in groups, each with its sentences, in lines of at most 80 characters.
QStringList helpOnAll(const QList<Verb> &verbs);

/// Arguments, sentences and example of one, in such lines.
QStringList helpOn(const Verb &verb);

/// The sentence that refuses a name that no verb has.
QString unknownVerb(const QList<Verb> &verbs, const QString &name);

} // namespace simulator
