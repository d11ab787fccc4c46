#include "drawntexts.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace
{

/// Writes texts down instead of drawing them.
class TextEngine : public QPaintEngine
{
public:
    explicit TextEngine(const QSize &size)
        : QPaintEngine(AllFeatures)
        , m_paper(QPoint(), size)
    {
    }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState &) override { }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { }
    void drawPath(const QPainterPath &) override { }
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override { }

    void drawTextItem(const QPointF &place, const QTextItem &item) override
    {
        const QRectF ink = QFontMetricsF(item.font()).tightBoundingRect(item.text());
        if (!item.text().trimmed().isEmpty()) {
            const QTransform onPaper = painter()->deviceTransform();
            m_texts.append({item.text().trimmed(), QFontInfo(item.font()).pixelSize(),
                            onPaper.mapRect(ink.translated(place)).toAlignedRect(), seen()});
        }
    }

    const QList<DrawnText> &texts() const { return m_texts; }

private:
    /// By the widgets that lie over it, those that it lies in, and what the painter was told.
    QRegion seen() const
    {
        const QRegion region = systemClip().isEmpty() ? QRegion(m_paper) : systemClip() & m_paper;
        return painter()->hasClipping()
            ? region & painter()->deviceTransform().map(painter()->clipRegion())
            : region;
    }

    const QRect m_paper;
    QList<DrawnText> m_texts;
};

/// A size in pixels, of which an inch has 72, as on the unit's screen.
class TextPaper : public QPaintDevice
{
public:
    explicit TextPaper(const QSize &size)
        : m_size(size)
        , m_engine(size)
    {
    }

    QPaintEngine *paintEngine() const override { return &m_engine; }
    const QList<DrawnText> &texts() const { return m_engine.texts(); }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
        case PdmNumColors:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return qRound(devicePixelRatioFScale());
        default: // inches and millimetres
            return 72;
        }
    }

private:
    const QSize m_size;
    mutable TextEngine m_engine;
};

} // namespace

QList<DrawnText> drawnTexts(QWidget &widget)
{
    TextPaper paper(widget.size());
    widget.render(&paper);
    return paper.texts();
}
