// The right interface, but another activity than the one the framework looks for.

#include <QObject>

class Navigation : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1")
};

#include "otherclass.moc"
