#pragma once

#include <QStringList>
#include <QTranslator>

namespace simulator
{

/// The language of what the plug-in shows. As the unit's framework does, it has the application
/// translate the texts; so it must be there before the plug-in asks for the first, and stay.
class Language
{
public:
    /// "en" is how the plug-in's texts are written; the others have a catalogue in translations/.
    static QStringList names();

    /// \a name is one of names().
    explicit Language(const QString &name);

    QString name() const;

private:
    const QString m_name;
    QTranslator m_translator;
};

} // namespace simulator
