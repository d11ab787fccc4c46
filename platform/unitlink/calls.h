#pragma once

#include "kvglobal/kvglobal.h"

#include <QDebug>
#include <QString>
#include <QStringList>

#include <type_traits>

namespace unitlink
{

/// The calls that can be made to fail, as "<class>::<function>".
KV_API QStringList callsThatCanFail();

/// Whether this call is one that somebody wants to fail; \a call is one of callsThatCanFail().
/// Journal: fault <call>.
KV_API bool fails(const char *call);

/// Journal: asked <call>(<arguments>) = <answer>.
KV_API void tellOfQuestion(const char *call, const QString &arguments, const QString &answer);

/// Journal: touch <what>. Nothing without a unit, as in Designer.
KV_API void tellOfTouch(const QString &what);

/// The values as Qt's debug stream shows them, with commas between.
template <typename... Values> QString shown(const Values &...values)
{
    QString text;
    QDebug stream(&text);
    stream.nospace();
    [[maybe_unused]] const char *separator = "";
    ((stream << separator << values, separator = ", "), ...);
    return text;
}

/// Answers a call that only asks the unit: with what \a ask says, or with \a failure if the call is
/// to fail. The unit's journal has the question and the answer.
template <typename Answer, typename Ask, typename... Arguments>
Answer answer(const char *call, const Answer &failure, const Ask &ask,
              const Arguments &...arguments)
{
    const Answer given = fails(call) ? failure : Answer(ask());
    if constexpr (std::is_pointer_v<Answer>) {
        tellOfQuestion(call, shown(arguments...), given == nullptr ? "nullptr" : "an object");
    } else {
        tellOfQuestion(call, shown(arguments...), shown(given));
    }
    return given;
}

} // namespace unitlink
