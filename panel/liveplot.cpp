#include "liveplot.h"

#include "panelstyle.h"

#include <QVBoxLayout>

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_zoneitem.h>
#include <qwt_text.h>

#include <algorithm>

namespace panel
{

namespace
{

const double curveWidth = 1.6;
const double headroom = 1.15;
const int smallestHeight = 120;

QwtText small(const QString &text, const QColor &color)
{
    QwtText label(text);
    QFont font = style::figures();
    font.setPointSizeF(font.pointSizeF() * 0.85);
    label.setFont(font);
    label.setColor(color);
    return label;
}

} // namespace

LivePlot::LivePlot(const QString &unit, QWidget *parent)
    : QWidget(parent)
    , m_plot(new QwtPlot(this))
    , m_band(new QwtPlotZoneItem)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_plot);

    auto *canvas = new QwtPlotCanvas;
    canvas->setFrameStyle(QFrame::NoFrame);
    m_plot->setCanvas(canvas);
    m_plot->setCanvasBackground(style::background);
    m_plot->setAxisScale(QwtPlot::xBottom, -seconds, 0, 15);
    m_plot->setMinimumHeight(smallestHeight);
    m_plot->setAxisTitle(QwtPlot::yLeft, small(unit, style::dimmed));
    m_plot->setAxisTitle(QwtPlot::xBottom, small(tr("seconds"), style::dimmed));
    for (const int axis : {int(QwtPlot::xBottom), int(QwtPlot::yLeft)}) {
        m_plot->setAxisFont(axis, small(QString(), style::dimmed).font());
        m_plot->setAxisMaxMinor(axis, 0);
    }
    auto *grid = new QwtPlotGrid;
    grid->setPen(QPen(style::surface, 0));
    grid->attach(m_plot);
    m_band->setOrientation(Qt::Horizontal);
    m_band->setPen(QPen(Qt::NoPen));
    m_band->attach(m_plot);
    m_time.start();
}

// Qwt's items end with the plot that they are attached to.
LivePlot::~LivePlot() = default;

void LivePlot::addCurve(const QString &name, const QColor &color)
{
    auto *item = new QwtPlotCurve(name);
    item->setPen(QPen(color, curveWidth));
    item->setRenderHint(QwtPlotItem::RenderAntialiased);
    item->attach(m_plot);
    m_curves.insert(name, {item, {}});
}

void LivePlot::add(const QString &name, double value)
{
    const double now = double(m_time.elapsed()) / 1000;
    Curve &curve = m_curves[name];
    curve.points.append(QPointF(now, value));
    while (curve.points.constFirst().x() < now - seconds) {
        curve.points.removeFirst();
    }
    if (isVisible()) {
        curve.item->setSamples(points(name));
        replot();
    }
}

/// From nothing to what is highest, marks too, with some room above.
void LivePlot::replot()
{
    double highest = 1;
    for (const Curve &curve : qAsConst(m_curves)) {
        for (const QPointF &point : curve.points) {
            highest = std::max(highest, point.y());
        }
    }
    for (const QwtPlotMarker *mark : qAsConst(m_marks)) {
        highest = std::max(highest, mark->yValue());
    }
    m_plot->setAxisScale(QwtPlot::yLeft, 0, highest * headroom);
    m_plot->replot();
}

void LivePlot::clear()
{
    for (Curve &curve : m_curves) {
        curve.points.clear();
        curve.item->setSamples(curve.points);
    }
    replot();
}

void LivePlot::setMark(const QString &name, double value, const QColor &color)
{
    QwtPlotMarker *&mark = m_marks[name];
    if (mark == nullptr) {
        mark = new QwtPlotMarker;
        mark->setLineStyle(QwtPlotMarker::HLine);
        mark->setLinePen(color, 1, Qt::DashLine);
        mark->setLabel(small(name, color));
        mark->setLabelAlignment(Qt::AlignLeft | Qt::AlignBottom);
        mark->attach(m_plot);
    }
    if (mark->yValue() != value) {
        mark->setYValue(value);
        replot();
    }
}

void LivePlot::setBand(double from, double to, const QColor &color)
{
    m_band->setInterval(from, to);
    m_band->setBrush(color);
}

QVector<QPointF> LivePlot::points(const QString &name) const
{
    const double now = double(m_time.elapsed()) / 1000;
    QVector<QPointF> points = m_curves.value(name).points;
    for (QPointF &point : points) {
        point.rx() -= now;
    }
    return points;
}

QSize LivePlot::sizeHint() const
{
    return {360, 180};
}

} // namespace panel
