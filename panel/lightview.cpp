#include "lightview.h"

#include "liveplot.h"
#include "panelstyle.h"
#include "unitclient.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>

namespace panel
{

namespace
{

const int lightest = 1000;
const int plotsMs = 200;
const char curve[] = "reading";

/// A day of the curve, as the console takes it: readings a second, and seconds a day.
QStringList curveCommand(bool on)
{
    const QString verb = QStringLiteral("als-curve");
    return on ? QStringList{verb, QStringLiteral("4"), QStringLiteral("60")}
              : QStringList{verb, QStringLiteral("0")};
}

} // namespace

LightView::LightView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_plot(new LivePlot(tr("light"), this))
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_reading(new QSpinBox(this))
    , m_curve(new QCheckBox(tr("Day in a minute"), this))
    , m_mode(style::valueLabel(QStringLiteral("night, automatic"), this))
    , m_panel(style::valueLabel(
          QStringLiteral("brightness 100  contrast 100  hue 360  saturation 1.00"), this))
    , m_key(style::valueLabel(QStringLiteral("100 100 100"), this))
    , m_keySwatch(new QLabel(this))
{
    m_plot->addCurve(QLatin1String(curve), style::warm);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_plot, 1);
    layout->addLayout(makeTools());
    auto *given = new QHBoxLayout;
    m_keySwatch->setObjectName(QStringLiteral("keyColor"));
    m_keySwatch->setFixedSize(36, 18);
    m_keySwatch->setAutoFillBackground(true);
    given->addWidget(new QLabel(tr("Panel"), this));
    given->addWidget(m_panel);
    given->addStretch();
    given->addWidget(new QLabel(tr("Keys"), this));
    given->addWidget(m_keySwatch);
    given->addWidget(m_key);
    layout->addLayout(given);

    connect(&client, &UnitClient::stateChanged, this, &LightView::showState);
    connect(&client, &UnitClient::attached, m_plot, &LivePlot::clear);
    m_pace.setInterval(plotsMs);
    connect(&m_pace, &QTimer::timeout, this, &LightView::plotReading);
    m_pace.start();
}

QLayout *LightView::makeTools()
{
    m_slider->setObjectName(QStringLiteral("lightSlider"));
    m_slider->setRange(0, lightest);
    m_slider->setToolTip(tr("Has the sensor report that light"));
    m_reading->setObjectName(QStringLiteral("lightReading"));
    m_reading->setRange(0, 65535);
    m_curve->setObjectName(QStringLiteral("lightCurve"));
    m_curve->setToolTip(tr("Has the sensor follow the light of a day, again and again"));
    m_mode->setObjectName(QStringLiteral("lightMode"));
    connect(m_slider, &QSlider::valueChanged, this, &LightView::report);
    connect(m_reading, QOverload<int>::of(&QSpinBox::valueChanged), this, &LightView::report);
    connect(m_curve, &QCheckBox::clicked, this, [this](bool on) {
        // It shows what is, and that is not so yet.
        m_curve->setChecked(!on);
        m_client.command(curveCommand(on));
    });

    auto *tools = new QHBoxLayout;
    tools->addWidget(new QLabel(tr("Light"), this));
    tools->addWidget(m_slider, 1);
    tools->addWidget(m_reading);
    tools->addWidget(m_curve);
    tools->addWidget(m_mode);
    return tools;
}

void LightView::report(int reading)
{
    m_client.command({QStringLiteral("als"), QString::number(reading)});
}

void LightView::showState()
{
    const QJsonObject light = m_client.device(QStringLiteral("light"));
    const double day = light.value(QLatin1String("dayThreshold")).toDouble();
    const double night = light.value(QLatin1String("nightThreshold")).toDouble();
    m_plot->setMark(tr("day"), day, style::accent);
    m_plot->setMark(tr("night"), night, style::dimmed);
    m_plot->setBand(night, day, style::surface);
    const QString mode = light.value(QLatin1String("mode")).toString();
    m_mode->setText(light.value(QLatin1String("automatic")).toBool() ? tr("%1, automatic").arg(mode)
                                                                     : tr("%1, by hand").arg(mode));
    m_curve->setChecked(light.value(QLatin1String("curve")).toBool());
    const QSignalBlocker noSlider(m_slider);
    const QSignalBlocker noReading(m_reading);
    if (!m_slider->isSliderDown() && !m_reading->hasFocus()) {
        const int reading = light.value(QLatin1String("reading")).toInt();
        m_slider->setValue(reading);
        m_reading->setValue(reading);
    }

    const QJsonObject panel = m_client.device(QStringLiteral("panel"));
    m_panel->setText(QStringLiteral("brightness %1  contrast %2  hue %3  saturation %4")
                         .arg(panel.value(QLatin1String("brightness")).toInt(), 3)
                         .arg(panel.value(QLatin1String("contrast")).toInt(), 3)
                         .arg(panel.value(QLatin1String("hue")).toInt(), 3)
                         .arg(panel.value(QLatin1String("saturation")).toDouble(), 0, 'f', 2));
    const QJsonObject key = m_client.device(QStringLiteral("keylight"));
    const auto part = [&key](const char *name) { return key.value(QLatin1String(name)).toInt(); };
    m_key->setText(
        QStringLiteral("%1 %2 %3").arg(part("red"), 3).arg(part("green"), 3).arg(part("blue"), 3));
    QPalette palette = m_keySwatch->palette();
    palette.setColor(
        QPalette::Window,
        QColor::fromRgbF(part("red") / 100.0, part("green") / 100.0, part("blue") / 100.0));
    m_keySwatch->setPalette(palette);
}

void LightView::plotReading()
{
    const QJsonValue reading =
        m_client.device(QStringLiteral("light")).value(QLatin1String("reading"));
    if (m_client.isAttached() && reading.isDouble()) {
        m_plot->add(QLatin1String(curve), reading.toDouble());
    }
}

} // namespace panel
