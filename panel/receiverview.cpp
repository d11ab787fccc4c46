#include "receiverview.h"

#include "panelstyle.h"
#include "unitclient.h"
#include "wireview.h"

#include <QHBoxLayout>
#include <QJsonArray>
#include <QLabel>
#include <QProgressBar>

#include <cmath>

namespace panel
{

namespace
{

const int barSteps = 1000;
const QLatin1String runs("run");

/// What each stage is called, in the order of the line.
const QVector<QPair<QString, QString>> &line()
{
    static const QVector<QPair<QString, QString>> stages = {
        {runs, ReceiverView::tr("Runs")},
        {QStringLiteral("rom"), ReceiverView::tr("ROM")},
        {QStringLiteral("bootloader"), ReceiverView::tr("Boot loader")},
        {QStringLiteral("prompt"), ReceiverView::tr("Prompt")},
        {QStringLiteral("firmware"), ReceiverView::tr("Firmware")},
        {QStringLiteral("restart"), ReceiverView::tr("Restart")},
        {QStringLiteral("hung up"), ReceiverView::tr("Hung up")}};
    return stages;
}

QString minutes(double seconds)
{
    const int whole = int(std::ceil(seconds));
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

ReceiverView::ReceiverView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_state(style::valueLabel(QStringLiteral("takes the bootloader, 1000 blocks so far"), this))
    , m_bar(new QProgressBar(this))
    , m_rate(style::valueLabel(QStringLiteral("1000.0 blocks a second, 60:00 left"), this))
{
    m_state->setObjectName(QStringLiteral("receiverState"));
    m_bar->setObjectName(QStringLiteral("receiverProgress"));
    m_bar->setRange(0, barSteps);
    m_bar->setFormat(tr("no upgrade"));
    m_rate->setObjectName(QStringLiteral("receiverRate"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_state);
    layout->addLayout(makeStages());
    layout->addWidget(m_bar);
    layout->addWidget(m_rate);
    layout->addWidget(new WireView(client, this), 1);
    m_time.start();
    connect(&client, &UnitClient::stateChanged, this, &ReceiverView::showState);
}

QLayout *ReceiverView::makeStages()
{
    auto *stages = new QHBoxLayout;
    stages->setSpacing(2);
    for (const auto &stage : line()) {
        auto *label = new QLabel(stage.second, this);
        label->setObjectName(QLatin1String("stage ") + stage.first);
        label->setAlignment(Qt::AlignCenter);
        label->setAutoFillBackground(true);
        label->setMargin(5);
        label->setBackgroundRole(QPalette::Window);
        m_stages.append(label);
        stages->addWidget(label, 1);
    }
    return stages;
}

void ReceiverView::showState()
{
    const QJsonObject receiver = m_client.device(QStringLiteral("receiver"));
    const QString stage = receiver.value(QLatin1String("stage")).toString();
    m_state->setText(receiver.value(QLatin1String("state")).toString());
    showStage(stage);
    findPackages();
    m_progress.take(stage, receiver.value(QLatin1String("blocks")).toInt(),
                    double(m_time.elapsed()) / 1000);
    showProgress();
}

/// The images are on a stick, by their names.
void ReceiverView::findPackages()
{
    int bootloader = 0;
    int firmware = 0;
    const QJsonArray slotArray =
        m_client.device(QStringLiteral("storage")).value(QLatin1String("slots")).toArray();
    for (const QJsonValue &slot : slotArray) {
        const QJsonArray files = slot[QLatin1String("files")].toArray();
        for (const QJsonValue &file : files) {
            const QString name = file[QLatin1String("name")].toString();
            const int blocks =
                UpgradeProgress::blocksOf(qint64(file[QLatin1String("size")].toDouble()));
            bootloader = name == QLatin1String("gps_bootloader.pkg") ? blocks : bootloader;
            firmware = name == QLatin1String("gps_firmware.pkg") ? blocks : firmware;
        }
    }
    m_progress.setBlocks(bootloader, firmware);
}

void ReceiverView::showStage(const QString &stage)
{
    for (int index = 0; index < m_stages.size(); ++index) {
        const bool isPresent = line().at(index).first == stage;
        m_stages.at(index)->setBackgroundRole(isPresent ? QPalette::Highlight : QPalette::Base);
    }
}

void ReceiverView::showProgress()
{
    if (m_progress.stage() < 0) {
        m_bar->setValue(0);
        m_bar->setFormat(tr("no upgrade"));
        m_rate->clear();
        return;
    }
    m_bar->setValue(int(m_progress.part() * barSteps));
    m_bar->setFormat(QStringLiteral("%p %"));
    const double left = m_progress.secondsLeft();
    m_rate->setText(left < 0 ? QString()
                             : tr("%1 blocks a second, %2 left")
                                   .arg(m_progress.blocksPerSecond(), 6, 'f', 1)
                                   .arg(minutes(left)));
}

} // namespace panel
