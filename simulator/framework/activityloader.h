#pragma once

#include <QPluginLoader>
#include <QScopedPointer>
#include <QString>
#include <QTemporaryDir>

namespace kvappframework
{
class Activity;
class SimActivityManager;
} // namespace kvappframework

namespace simulator
{

/// Loads an activity from a plug-in, as the unit's framework does, and makes it known to the
/// activity manager. Graphical thread only.
class ActivityLoader
{
public:
    explicit ActivityLoader(kvappframework::SimActivityManager &activities);
    ~ActivityLoader();
    Q_DISABLE_COPY(ActivityLoader)

    /// False with one sentence in \a error that names the file and what is wrong with it. Nothing
    /// of a plug-in runs before its metadata has been found right.
    bool load(const QString &file, QString *error);

    /// Closes and deletes the activity. The next load() of the same file starts with fresh static
    /// variables, as after a restart of the process.
    void unload();

    /// Host path of the folder of the copy that was loaded last.
    QString temporaryFolder() const;

private:
    bool open(const QString &file, QString *error);
    bool checkMetaData(const QJsonObject &metaData, QString *error) const;
    bool instantiate(QString *error);

    kvappframework::SimActivityManager &m_activities;
    QScopedPointer<QPluginLoader> m_loader;
    kvappframework::Activity *m_activity = nullptr;
    QTemporaryDir m_copies;
    QString m_copy; ///< the last one's path
};

} // namespace simulator
