#include "activityloader.h"

#include "pluginresources.h"

#include "kvappframework/activity.h"
#include "kvappframework/sim/simactivitymanager.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonObject>

namespace simulator
{

namespace
{
const QLatin1String activityIid("activity/0.1");
const QLatin1String activityClass("FactoryDebugctivity");

/// Of the process, since what is mapped is.
int loads = 0;
} // namespace

ActivityLoader::ActivityLoader(kvappframework::SimActivityManager &activities)
    : m_activities(activities)
{
}

ActivityLoader::~ActivityLoader()
{
    unload();
}

bool ActivityLoader::load(const QString &file, QString *error)
{
    unload();
    QString problem;
    if (!QFileInfo(file).isFile()) {
        *error = QStringLiteral("The plug-in \"%1\" does not exist.").arg(file);
        return false;
    }
    if (!open(file, &problem) || !checkMetaData(m_loader->metaData(), &problem)
        || !instantiate(&problem)) {
        *error =
            QStringLiteral("The file \"%1\" cannot be used as an activity: %2.").arg(file, problem);
        m_loader.reset();
        return false;
    }
    m_activities.add(m_activity);
    ++loads;
    return true;
}

void ActivityLoader::unload()
{
    if (m_activity == nullptr) {
        return;
    }
    m_activities.remove(m_activity);
    const void *const library = m_loader->instance()->metaObject();
    m_activity = nullptr;
    // Deletes the instance.
    m_loader->unload();
    m_loader.reset();
    pluginresources::releaseOf(library);
}

QString ActivityLoader::temporaryFolder() const
{
    return m_copies.path();
}

bool ActivityLoader::open(const QString &file, QString *error)
{
    const QFileInfo info(file);
    QString path = info.absoluteFilePath();
    if (loads > 0) {
        // Of an earlier copy the mapping is enough, so that restarts do not fill the disk.
        if (!m_copy.isEmpty()) {
            QFile::remove(m_copy);
        }
        // Under its own name the dynamic linker would hand out the mapped library again, with its
        // variables as they are.
        path = m_copies.filePath(QStringLiteral("%1-%2").arg(loads).arg(info.fileName()));
        m_copy = path;
        QFile original(file);
        if (!original.copy(path)) {
            *error = QStringLiteral("it cannot be copied (%1)").arg(original.errorString());
            return false;
        }
    }
    m_loader.reset(new QPluginLoader(path));
    // A missing function is to be found here, not when it is called. The library stays mapped since
    // Qt keeps types, literals and font names of it beyond the lifetime of its objects.
    m_loader->setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    return true;
}

bool ActivityLoader::checkMetaData(const QJsonObject &metaData, QString *error) const
{
    if (metaData.isEmpty()) {
        *error = QStringLiteral("it is no plug-in (%1)").arg(m_loader->errorString());
        return false;
    }
    const QString iid = metaData.value(QLatin1String("IID")).toString();
    if (iid != activityIid) {
        *error = QStringLiteral("its interface is \"%1\", not \"%2\"").arg(iid, activityIid);
        return false;
    }
    const QString className = metaData.value(QLatin1String("className")).toString();
    if (className != activityClass) {
        *error = QStringLiteral("its class is \"%1\", not \"%2\"").arg(className, activityClass);
        return false;
    }
    return true;
}

bool ActivityLoader::instantiate(QString *error)
{
    QObject *instance = m_loader->instance();
    if (instance == nullptr) {
        *error = QStringLiteral("it does not load (%1)").arg(m_loader->errorString());
        return false;
    }
    m_activity = qobject_cast<kvappframework::Activity *>(instance);
    if (m_activity == nullptr) {
        *error = QStringLiteral("its object is no kvappframework::Activity");
        m_loader->unload();
        return false;
    }
    return true;
}

} // namespace simulator
