#pragma once

#include "kvglobal/kvglobal.h"

#include <QWidget>

namespace kvappframework
{

/// One layer of the user interface: covers the screen, but takes touches and paints only where a
/// visible child lies, so that an empty layer is out of the way of those below.
class KV_API ScreenLayer : public QWidget
{
    Q_OBJECT

public:
    explicit ScreenLayer(QWidget *screen);

protected:
    void childEvent(QChildEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void updateReach();
};

} // namespace kvappframework
