#pragma once

#include <QColor>
#include <QElapsedTimer>
#include <QMap>
#include <QString>
#include <QVector>
#include <QWidget>

class QwtPlot;
class QwtPlotCurve;
class QwtPlotMarker;
class QwtPlotZoneItem;

namespace panel
{

/// The last minute of some values, as curves over the seconds.
class LivePlot : public QWidget
{
    Q_OBJECT

public:
    static constexpr int seconds = 60;

    /// \a unit is what the values are told in.
    explicit LivePlot(const QString &unit, QWidget *parent = nullptr);
    ~LivePlot() override;

    void addCurve(const QString &name, const QColor &color);
    /// A value of now.
    void add(const QString &curve, double value);
    void clear();

    /// A horizontal line with a name.
    void setMark(const QString &name, double value, const QColor &color);
    /// What is between is tinted.
    void setBand(double from, double to, const QColor &color);

    /// For who reads a curve: seconds before now, and the values.
    QVector<QPointF> points(const QString &curve) const;

    QSize sizeHint() const override;

private:
    struct Curve
    {
        QwtPlotCurve *item;
        QVector<QPointF> points;
    };

    void replot();

    QwtPlot *m_plot;
    QElapsedTimer m_time;
    QMap<QString, Curve> m_curves;
    QMap<QString, QwtPlotMarker *> m_marks;
    QwtPlotZoneItem *m_band;
};

} // namespace panel
