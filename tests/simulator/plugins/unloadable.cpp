// Calls a function that no library has.

#include <QObject>

void functionThatNobodyDefines();

class FactoryDebugctivity : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1")

public:
    FactoryDebugctivity() { functionThatNobodyDefines(); }
};

#include "unloadable.moc"
