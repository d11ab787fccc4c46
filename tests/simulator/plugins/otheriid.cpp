// A plug-in for something else.

#include <QObject>

class FactoryDebugctivity : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.2")
};

#include "otheriid.moc"
