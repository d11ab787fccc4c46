#pragma once

#include <QCoreApplication>

/// What the light sensor page's form sets with each change of the language. Its remark "id" marks
/// what is no text for the user's eyes: that stays as it is in every language.
inline QString alsFormText(const char *text, const char *remark)
{
    return remark != nullptr ? QString::fromLatin1(text)
                             : QCoreApplication::translate("CSetupAlsForm", text);
}
