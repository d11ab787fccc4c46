#include "plainactivity.h"

/// With nothing on it.
class TrivialActivity : public PlainActivity
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1")
    Q_INTERFACES(kvappframework::Activity)

protected:
    void furnish(QWidget *) override { }
};

#include "trivialactivity.moc"
