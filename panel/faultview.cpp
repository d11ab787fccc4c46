#include "faultview.h"

#include "panelstyle.h"
#include "unitclient.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>

namespace panel
{

FaultView::FaultView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_table(new QTableView(this))
    , m_words(new QLineEdit(this))
    , m_present(new QLabel(this))
{
    m_model.setHorizontalHeaderLabels({tr("Device"), tr("Fault"), tr("Means")});
    m_table->setObjectName(QStringLiteral("faults"));
    m_table->setModel(&m_model);
    style::prepare(m_table);
    m_table->setEditTriggers(QTableView::NoEditTriggers);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_words->setObjectName(QStringLiteral("faultWords"));
    m_words->setFont(style::figures());
    m_words->setPlaceholderText(tr("Choose a fault above and put values for its capitals"));
    m_present->setObjectName(QStringLiteral("faultsPresent"));
    m_present->setWordWrap(true);
    auto *fail = new QPushButton(tr("Let it fail"), this);
    fail->setObjectName(QStringLiteral("faultAdd"));
    auto *repair = new QPushButton(tr("Repair all"), this);
    repair->setObjectName(QStringLiteral("faultNone"));

    auto *tools = new QHBoxLayout;
    tools->addWidget(m_words, 1);
    tools->addWidget(fail);
    tools->addWidget(repair);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_table, 1);
    layout->addLayout(tools);
    layout->addWidget(m_present);

    connect(m_table, &QTableView::clicked, this, [this](const QModelIndex &index) {
        m_words->setText(m_model.item(index.row(), 0)->text() + QLatin1Char(' ')
                         + m_model.item(index.row(), 1)->text());
        m_words->setFocus();
    });
    connect(m_words, &QLineEdit::returnPressed, this, &FaultView::letFail);
    connect(fail, &QPushButton::clicked, this, &FaultView::letFail);
    connect(repair, &QPushButton::clicked, this, [this] {
        m_client.command({QStringLiteral("fault"), QStringLiteral("none")});
    });
    connect(&client, &UnitClient::attached, this, &FaultView::askWhatCanFail);
    connect(&client, &UnitClient::stateChanged, this, &FaultView::showState);
}

void FaultView::askWhatCanFail()
{
    m_client.command({QStringLiteral("fault")}, [this](const Connection::Answer &answer) {
        m_model.removeRows(0, m_model.rowCount());
        for (const QString &line : answer.lines) {
            addLine(line);
        }
        m_table->resizeColumnsToContents();
    });
}

/// "  <device> <words>   <meaning>", two blanks and more ahead of the meaning.
void FaultView::addLine(const QString &line)
{
    static const QRegularExpression form(QStringLiteral("^  (\\w+) +(\\S.*?)  +(\\S.*)$"));
    const QRegularExpressionMatch match = form.match(line);
    if (match.hasMatch()) {
        m_model.appendRow({new QStandardItem(match.captured(1)),
                           new QStandardItem(match.captured(2)),
                           new QStandardItem(match.captured(3))});
    }
}

void FaultView::letFail()
{
    const QStringList words = m_words->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (!words.isEmpty()) {
        m_client.command(QStringList(QStringLiteral("fault")) + words);
    }
}

void FaultView::showState()
{
    QStringList present;
    const QJsonObject faults =
        m_client.device(QStringLiteral("faults")).value(QLatin1String("present")).toObject();
    for (auto device = faults.constBegin(); device != faults.constEnd(); ++device) {
        const QJsonArray names = device.value().toArray();
        for (const QJsonValue &name : names) {
            present.append(device.key() + QLatin1Char(' ') + name.toString());
        }
    }
    m_present->setText(present.isEmpty()
                           ? tr("Nothing fails.")
                           : tr("What fails: %1").arg(present.join(QStringLiteral(", "))));
}

} // namespace panel
