#include "sessionbar.h"

#include "panelstyle.h"
#include "unitclient.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace panel
{

namespace
{

const double worthTelling = 0.1; // seconds
const char *const speeds[] = {"0.5", "1", "2", "5", "10", "50"};

} // namespace

SessionBar::SessionBar(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_busy(style::valueLabel(QStringLiteral("blocked 0000.0 s by idCopyBtsnoop"), this))
    , m_speed(new QComboBox(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const char *key : {"FACTORY", "HOME"}) {
        const QString name = QLatin1String(key);
        QPushButton *button =
            addButton(QLatin1String("key") + name, name, tr("The hard key beside the screen"));
        connect(button, &QPushButton::clicked, this, [this, name] {
            m_client.command({QStringLiteral("key"), name});
        });
    }
    layout->addSpacing(12);
    m_record = addButton(QStringLiteral("record"), tr("Record…"),
                         tr("Writes what is done to the unit as a script that does it again"));
    connect(m_record, &QPushButton::clicked, this, &SessionBar::recordOrStop);
    connect(addButton(QStringLiteral("replay"), tr("Replay…"), tr("Runs a script on this unit")),
            &QPushButton::clicked, this, &SessionBar::replay);
    connect(addButton(QStringLiteral("report"), tr("Report…"),
                      tr("Packs all that whoever looks for a fault will ask for")),
            &QPushButton::clicked, this, &SessionBar::report);
    connect(addButton(QStringLiteral("restart"), tr("Restart"), tr("Restarts the unit")),
            &QPushButton::clicked, this, [this] { m_client.command({QStringLiteral("reboot")}); });
    connect(addButton(QStringLiteral("factoryReset"), tr("Factory reset…"),
                      tr("Has the unit forget all that it has stored, and restarts it")),
            &QPushButton::clicked, this, &SessionBar::resetToFactory);
    layout->addStretch();
    m_busy->setObjectName(QStringLiteral("busy"));
    m_busy->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(m_busy);
    makeSpeed();
    connect(&client, &UnitClient::stateChanged, this, &SessionBar::showState);
    connect(&client, &UnitClient::journalGrew, this, &SessionBar::takeLines);
}

QPushButton *SessionBar::addButton(const QString &name, const QString &text, const QString &help)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setToolTip(help);
    layout()->addWidget(button);
    return button;
}

void SessionBar::makeSpeed()
{
    m_speed->setObjectName(QStringLiteral("speed"));
    for (const char *speed : speeds) {
        m_speed->addItem(QLatin1String(speed));
    }
    m_speed->setEditable(true);
    m_speed->setToolTip(tr("How many times faster than here the unit's time passes"));
    connect(m_speed, QOverload<int>::of(&QComboBox::activated), this, [this] {
        m_client.command({QStringLiteral("speed"), m_speed->currentText()});
    });
    auto *label = new QLabel(tr("Speed"), this);
    label->setBuddy(m_speed);
    layout()->addWidget(label);
    layout()->addWidget(m_speed);
}

void SessionBar::showState()
{
    if (!m_speed->hasFocus() && !m_speed->view()->isVisible()) {
        m_speed->setCurrentText(QString::number(
            m_client.device(QStringLiteral("unit")).value(QLatin1String("speed")).toDouble()));
    }
    const QJsonObject program = m_client.device(QStringLiteral("program"));
    const QString file = program.value(QLatin1String("recording")).toString();
    m_isRecording = !file.isEmpty();
    m_record->setText(m_isRecording ? tr("Stop") : tr("Record…"));
    m_record->setToolTip(
        m_isRecording ? tr("Being recorded into %1").arg(file)
                      : tr("Writes what is done to the unit as a script that does it again"));
    showBusy(program.value(QLatin1String("busySeconds")).toDouble());
}

void SessionBar::showBusy(double seconds)
{
    const bool isBlocked = seconds >= worthTelling;
    m_busy->setText(isBlocked ? tr("blocked %1 s by %2").arg(seconds, 0, 'f', 1).arg(m_lastTouch)
                              : tr("screen is free"));
    QPalette palette = m_busy->palette();
    palette.setColor(QPalette::WindowText, isBlocked ? style::wrong : style::dimmed);
    m_busy->setPalette(palette);
}

/// "touch <id> clicked" and the like, of the newest button.
void SessionBar::takeLines(const JournalLines &lines)
{
    for (const JournalLine &line : lines) {
        const QString signal = line.text.section(QLatin1Char(' '), -1);
        if (line.source == QLatin1String("touch")
            && (signal.endsWith(QLatin1String("licked"))
                || signal.endsWith(QLatin1String("Released")))) {
            m_lastTouch = line.text.section(QLatin1Char(' '), 0, -2);
        }
    }
}

void SessionBar::recordOrStop()
{
    if (m_isRecording) {
        m_client.command({QStringLiteral("record"), QStringLiteral("stop")});
        return;
    }
    // The unit itself refuses a file that is there, and says so.
    const QString file = QFileDialog::getSaveFileName(
        this, tr("Record the session into"), QStringLiteral("session.txt"), tr("Scripts (*.txt)"));
    if (!file.isEmpty()) {
        m_client.command({QStringLiteral("record"), file});
    }
}

void SessionBar::replay()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Which script is to be run?"),
                                                      QString(), tr("Scripts (*.txt)"));
    if (!file.isEmpty()) {
        m_client.command({QStringLiteral("include"), file});
    }
}

void SessionBar::resetToFactory()
{
    const auto answer =
        QMessageBox::question(this, tr("Factory reset"),
                              tr("The unit forgets its settings, vendor data and thresholds, and "
                                 "what lies in its flash.\n"
                                 "Sticks, tables and the receiver's firmware stay."),
                              QMessageBox::Reset | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer == QMessageBox::Reset) {
        m_client.command({QStringLiteral("factory-reset")});
    }
}

void SessionBar::report()
{
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Pack the report into"),
                                     QStringLiteral("report.tar.xz"), tr("Reports (*.tar.xz)"));
    if (!file.isEmpty()) {
        m_client.command({QStringLiteral("report"), file});
    }
}

} // namespace panel
