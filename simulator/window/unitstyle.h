#pragma once

#include <QProxyStyle>

namespace simulator
{

/// The unit's style: Fusion without what only a keyboard or a mouse pointer needs.
class UnitStyle : public QProxyStyle
{
    Q_OBJECT

public:
    UnitStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override;
};

} // namespace simulator
