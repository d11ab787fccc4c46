#include "valuesview.h"

#include "mcumessage.h"
#include "panelstyle.h"
#include "unitclient.h"

#include <QHeaderView>
#include <QJsonArray>
#include <QTreeView>
#include <QVBoxLayout>

namespace panel
{

namespace
{

const int messagesShown = 12;
const int wordBytes = 4;

enum Column { NameColumn, TextColumn, KnownColumn };
enum Role { CommandRole = Qt::UserRole, TextRole };

/// Pairs of digits with a blank between.
QString spaced(const QString &hex)
{
    QString text;
    for (int place = 0; place < hex.size(); place += 2) {
        text += (place == 0 ? QString() : QStringLiteral(" ")) + hex.mid(place, 2);
    }
    return text;
}

/// A word of the vendor data as a number, lowest byte first.
QString asNumber(const QString &hex)
{
    const QByteArray bytes = QByteArray::fromHex(hex.toLatin1());
    if (bytes.size() != wordBytes) {
        return QString();
    }
    quint32 number = 0;
    for (int place = wordBytes; place > 0; --place) {
        number = number << 8 | quint8(bytes.at(place - 1));
    }
    return QString::number(number);
}

QString tunerStatus(int status)
{
    switch (status) {
    case 0:
        return ValuesView::tr("idle");
    case 7:
        return ValuesView::tr("updating");
    case 8:
        return ValuesView::tr("update failed");
    case 9:
        return ValuesView::tr("update succeeded");
    default:
        return QString();
    }
}

} // namespace

ValuesView::ValuesView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_tree(new QTreeView(this))
{
    m_model.setHorizontalHeaderLabels({tr("Name"), tr("Value"), tr("Means")});
    m_tree->setObjectName(QStringLiteral("values"));
    m_tree->setModel(&m_model);
    m_tree->setFont(style::figures());
    m_tree->setAlternatingRowColors(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setEditTriggers(QTreeView::DoubleClicked | QTreeView::EditKeyPressed);
    const QFontMetrics metrics(m_tree->font());
    m_tree->setColumnWidth(NameColumn,
                           metrics.horizontalAdvance(QStringLiteral("  setup/usb0BcModeXXXXXX")));
    m_tree->setColumnWidth(
        TextColumn, metrics.horizontalAdvance(QStringLiteral("FF 66 06 15 84 FE 33 32 32 FF")));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree);
    connect(&client, &UnitClient::stateChanged, this, &ValuesView::showState);
    connect(&client, &UnitClient::journalGrew, this, &ValuesView::takeMessages);
    connect(&client, &UnitClient::attached, this, [this] { m_messages.clear(); });
    connect(&m_model, &QStandardItemModel::itemChanged, this, &ValuesView::change);
}

void ValuesView::showState()
{
    showGroup(tr("DAB tuner"), tuner());
    showGroup(tr("Settings"), settings());
    showGroup(tr("Vendor data"), vendor());
    showGroup(tr("Versions"), versions());
    showGroup(tr("Sent to the microcontroller"), m_messages);
}

void ValuesView::showGroup(const QString &title, const QVector<Value> &values)
{
    m_isShowing = true;
    QStandardItem *parent = group(title);
    parent->setRowCount(values.size());
    for (int row = 0; row < values.size(); ++row) {
        const Value &value = values.at(row);
        const QStringList texts = {value.name, value.text, value.known};
        for (int column = 0; column < texts.size(); ++column) {
            if (parent->child(row, column) == nullptr) {
                parent->setChild(row, column, new QStandardItem);
            }
            QStandardItem *item = parent->child(row, column);
            item->setText(texts.at(column));
            item->setEditable(column == TextColumn && !value.command.isEmpty());
        }
        parent->child(row, TextColumn)->setData(value.command, CommandRole);
        parent->child(row, TextColumn)->setData(value.text, TextRole);
    }
    m_isShowing = false;
}

QStandardItem *ValuesView::group(const QString &title)
{
    const QList<QStandardItem *> found = m_model.findItems(title);
    if (!found.isEmpty()) {
        return found.constFirst();
    }
    auto *item = new QStandardItem(title);
    item->setEditable(false);
    item->setForeground(style::dimmed);
    m_model.appendRow(item);
    m_tree->expand(item->index());
    m_tree->setFirstColumnSpanned(item->row(), QModelIndex(), true);
    return item;
}

QVector<ValuesView::Value> ValuesView::tuner() const
{
    const QJsonObject dab = m_client.device(QStringLiteral("dab"));
    const int status = dab.value(QLatin1String("status")).toInt();
    return {{tr("status"), QString::number(status), tunerStatus(status), {QStringLiteral("dab")}},
            {tr("progress"),
             tr("%1 %").arg(dab.value(QLatin1String("progress")).toInt()),
             QString(),
             {}}};
}

QVector<ValuesView::Value> ValuesView::settings() const
{
    QVector<Value> rows;
    const QJsonObject values =
        m_client.device(QStringLiteral("settings")).value(QLatin1String("values")).toObject();
    for (auto value = values.constBegin(); value != values.constEnd(); ++value) {
        rows.append({value.key(),
                     value.value().toVariant().toString(),
                     QString(),
                     {QStringLiteral("setting"), value.key()}});
    }
    return rows;
}

QVector<ValuesView::Value> ValuesView::vendor() const
{
    QVector<Value> rows;
    const QJsonArray items =
        m_client.device(QStringLiteral("vendor")).value(QLatin1String("items")).toArray();
    for (const QJsonValue &item : items) {
        const QString hex = item[QLatin1String("bytes")].toString();
        const QString position = QString::number(item[QLatin1String("position")].toInt());
        rows.append({QStringLiteral("%1 %2").arg(position, item[QLatin1String("name")].toString()),
                     spaced(hex),
                     asNumber(hex),
                     {QStringLiteral("vendor"), position}});
    }
    return rows;
}

QVector<ValuesView::Value> ValuesView::versions() const
{
    QVector<Value> rows;
    const QJsonObject values =
        m_client.device(QStringLiteral("versions")).value(QLatin1String("values")).toObject();
    for (auto value = values.constBegin(); value != values.constEnd(); ++value) {
        rows.append({value.key(),
                     value.value().toString(),
                     QString(),
                     {QStringLiteral("version"), value.key()}});
    }
    return rows;
}

/// Each message, with what it means and what it follows from.
void ValuesView::takeMessages(const JournalLines &lines)
{
    bool isNew = false;
    for (const JournalLine &line : lines) {
        if (line.source == QLatin1String("mcu")) {
            const QString meaning = mcuMeaning(line.text);
            m_messages.append({QString::number(line.seconds, 'f', 3),
                               line.text,
                               meaning.isEmpty() ? line.causeText
                                                 : tr("%1; from %2").arg(meaning, line.causeText),
                               {}});
            isNew = true;
        }
    }
    if (isNew) {
        m_messages = m_messages.mid(qMax(0, m_messages.size() - messagesShown));
        showGroup(tr("Sent to the microcontroller"), m_messages);
    }
}

void ValuesView::change(QStandardItem *item)
{
    const QStringList command = item->data(CommandRole).toStringList();
    const QString shown = item->data(TextRole).toString();
    if (m_isShowing || command.isEmpty() || item->text() == shown) {
        return;
    }
    QString value = item->text();
    if (command.constFirst() == QLatin1String("vendor")) {
        value.remove(QLatin1Char(' '));
    }
    // As it is, until the unit says that it has the new one.
    m_isShowing = true;
    item->setText(shown);
    m_isShowing = false;
    m_client.command(command + QStringList(value));
}

} // namespace panel
