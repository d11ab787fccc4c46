// Metadata that promises an activity, and an object that is none.

#include <QObject>

class FactoryDebugctivity : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1")
};

#include "noactivity.moc"
