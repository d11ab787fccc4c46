#include "memoryview.h"

#include "liveplot.h"
#include "panelstyle.h"
#include "unitclient.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QTableView>

namespace panel
{

namespace
{

const int litMs = 1500;
const int figuresMs = 500;
const char throughput[] = "throughput";

enum RegisterColumn { Name, Value, Before };

QString modeName(int mode)
{
    const QStringList names = {QStringLiteral("CDP"), QStringLiteral("DCP"), QStringLiteral("SDP")};
    return names.value(mode);
}

void setText(QStandardItemModel &model, int row, int column, const QString &text)
{
    if (model.item(row, column) == nullptr) {
        auto *item = new QStandardItem;
        item->setEditable(false);
        model.setItem(row, column, item);
    }
    model.item(row, column)->setText(text);
}

} // namespace

MemoryView::MemoryView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_role(new QLabel(this))
    , m_plot(new LivePlot(tr("Mbit/s"), this))
{
    m_plot->addCurve(QLatin1String(throughput), style::accent);
    QTableView *ports = makeTable(
        m_ports, {tr("Charging"), tr("Speed"), tr("Test mode"), tr("Swing"), tr("Disconnect")},
        QStringLiteral("ports"));
    QTableView *registers = makeTable(m_registers, {tr("Register"), tr("Value"), tr("Before")},
                                      QStringLiteral("registers"));
    ports->setMaximumHeight(ports->verticalHeader()->defaultSectionSize() * 4);
    m_role->setObjectName(QStringLiteral("usbRole"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(m_role, 0, 0);
    layout->addWidget(ports, 1, 0);
    layout->addWidget(m_plot, 2, 0);
    layout->addWidget(registers, 0, 1, 3, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(2, 1);

    connect(&client, &UnitClient::stateChanged, this, &MemoryView::showState);
    connect(&client, &UnitClient::attached, this, [this] {
        m_registers.removeRows(0, m_registers.rowCount());
        m_plot->clear();
    });
    connect(&m_registers, &QStandardItemModel::itemChanged, this, &MemoryView::setRegister);
    m_lit.setSingleShot(true);
    m_lit.setInterval(litMs);
    connect(&m_lit, &QTimer::timeout, this, &MemoryView::dimOld);
    m_pace.setInterval(figuresMs);
    connect(&m_pace, &QTimer::timeout, this, &MemoryView::plotThroughput);
    m_pace.start();
}

QTableView *MemoryView::makeTable(QStandardItemModel &model, const QStringList &titles,
                                  const QString &name)
{
    model.setHorizontalHeaderLabels(titles);
    auto *table = new QTableView(this);
    table->setObjectName(name);
    table->setModel(&model);
    style::prepare(table);
    table->setSelectionMode(QTableView::NoSelection);
    table->horizontalHeader()->setStretchLastSection(true);
    return table;
}

void MemoryView::showState()
{
    const bool isFirst = m_registers.rowCount() == 0;
    m_isShowing = true;
    showPorts();
    showRegisters();
    m_isShowing = false;
    if (isFirst) {
        const QList<QTableView *> tables = findChildren<QTableView *>();
        for (QTableView *table : tables) {
            table->resizeColumnsToContents();
        }
    }
}

void MemoryView::showPorts()
{
    const QJsonObject usb = m_client.device(QStringLiteral("usb"));
    const QJsonObject phy = m_client.device(QStringLiteral("phy"));
    m_role->setText(tr("USB %1, certification %2, logo test %3")
                        .arg(phy.value(QLatin1String("role")).toString(),
                             usb.value(QLatin1String("certification")).toString(),
                             phy.value(QLatin1String("logoTest")).toBool() ? tr("on") : tr("off")));
    const QJsonArray ports = phy.value(QLatin1String("ports")).toArray();
    const QJsonArray modes = usb.value(QLatin1String("modes")).toArray();
    for (int port = 0; port < ports.size(); ++port) {
        const QJsonObject state = ports.at(port).toObject();
        const QStringList texts = {
            modeName(modes.at(port).toInt()), state.value(QLatin1String("speed")).toString(),
            state.value(QLatin1String("testMode")).toString(),
            state.value(QLatin1String("swing")).toString(),
            QString::number(state.value(QLatin1String("disconnectLevel")).toInt())};
        for (int column = 0; column < texts.size(); ++column) {
            setText(m_ports, port, column, texts.at(column));
        }
    }
}

void MemoryView::showRegisters()
{
    const QJsonObject registers =
        m_client.device(QStringLiteral("memory")).value(QLatin1String("registers")).toObject();
    int row = 0;
    for (auto entry = registers.constBegin(); entry != registers.constEnd(); ++entry, ++row) {
        const QString value = entry.value().toString();
        const bool isNew = m_registers.item(row, Value) == nullptr;
        const QString before = isNew ? QString() : m_registers.item(row, Value)->text();
        setText(m_registers, row, Name, entry.key());
        setText(m_registers, row, Value, value);
        m_registers.item(row, Value)->setEditable(true);
        if (isNew) {
            setText(m_registers, row, Before, QString());
        } else if (value != before) {
            setText(m_registers, row, Before, before);
            m_registers.item(row, Value)->setBackground(palette().highlight());
            m_lit.start();
        }
    }
}

/// Edited by hand.
void MemoryView::setRegister(QStandardItem *item)
{
    if (!m_isShowing && item->column() == Value) {
        const QString name = m_registers.item(item->row(), Name)->text();
        const QString value = item->text();
        // Shown again as it is, until the unit says that it has the new one.
        const QSignalBlocker noEdit(m_registers);
        item->setText(m_client.device(QStringLiteral("memory"))
                          .value(QLatin1String("registers"))
                          .toObject()
                          .value(name)
                          .toString());
        m_client.command({QStringLiteral("memory"), name, value});
    }
}

void MemoryView::dimOld()
{
    const QSignalBlocker noEdit(m_registers);
    for (int row = 0; row < m_registers.rowCount(); ++row) {
        m_registers.item(row, Value)->setData(QVariant(), Qt::BackgroundRole);
    }
    findChild<QTableView *>(QStringLiteral("registers"))->viewport()->update();
}

void MemoryView::plotThroughput()
{
    const QJsonObject ncm = m_client.device(QStringLiteral("ncm"));
    // What arrives is what the line carries: it has been sent too.
    const double bytes = ncm.value(QLatin1String("bytesReceived")).toDouble();
    // The unit's, which may be longer or shorter than the panel's.
    const double seconds = ncm.value(QLatin1String("seconds")).toDouble();
    const double arrived = bytes - m_bytesBefore;
    const double passed = seconds - m_secondsBefore;
    m_bytesBefore = bytes;
    m_secondsBefore = seconds;
    if (m_client.isAttached()) {
        const bool isSending = arrived > 0 && passed > 0;
        m_plot->add(QLatin1String(throughput), isSending ? arrived * 8 / 1e6 / passed : 0.0);
    }
}

} // namespace panel
