#include "language.h"

#include <QCoreApplication>
#include <QDir>

static void addCatalogues()
{
    Q_INIT_RESOURCE(languages);
}

namespace simulator
{

namespace
{
const QLatin1String asWritten("en");
const QLatin1String catalogues(":/languages/");
} // namespace

QStringList Language::names()
{
    addCatalogues();
    QStringList all = QDir(catalogues).entryList(QDir::Files);
    all.append(asWritten);
    all.sort();
    return all;
}

Language::Language(const QString &name)
    : m_name(name)
{
    addCatalogues();
    if (m_translator.load(catalogues + name)) {
        QCoreApplication::installTranslator(&m_translator);
    }
}

QString Language::name() const
{
    return m_name;
}

} // namespace simulator
