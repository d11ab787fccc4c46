#include "wireview.h"

#include "panelstyle.h"
#include "unitclient.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace panel
{

namespace
{

const int wireRowsKept = 2000;
const int rowBytes = 16;

/// Of the line's bytes, with the time and the direction ahead of the first ones.
QStringList rows(const JournalLine &line)
{
    const QStringList words = line.text.split(QLatin1Char(' '));
    const QString direction =
        words.first() == QLatin1String("to") ? QStringLiteral("→") : QStringLiteral("←");
    const QString head = QStringLiteral("%1 %2  ").arg(line.seconds, 9, 'f', 3).arg(direction);
    QStringList found;
    for (int first = 2; first < words.size(); first += rowBytes) {
        found.append((found.isEmpty() ? head : QString(head.size(), QLatin1Char(' ')))
                     + QStringList(words.mid(first, rowBytes)).join(QLatin1Char(' ')));
    }
    return found;
}

} // namespace

WireView::WireView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_show(new QCheckBox(tr("Show the &bytes on the line"), this))
    , m_bytes(new QPlainTextEdit(this))
{
    m_show->setObjectName(QStringLiteral("wire"));
    m_show->setToolTip(
        tr("Has the journal get them too: what goes to the receiver, and what comes from it"));
    m_bytes->setObjectName(QStringLiteral("wireBytes"));
    m_bytes->setReadOnly(true);
    m_bytes->setFont(style::figures());
    m_bytes->setMaximumBlockCount(wireRowsKept);
    m_bytes->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_show, 0, Qt::AlignLeft);
    layout->addWidget(m_bytes, 1);
    connect(m_show, &QCheckBox::clicked, this, [this](bool show) {
        m_client.command(
            {QStringLiteral("wire"), show ? QStringLiteral("on") : QStringLiteral("off")});
    });
    connect(&client, &UnitClient::stateChanged, this, &WireView::showState);
    connect(&client, &UnitClient::journalGrew, this, &WireView::takeLines);
    connect(&client, &UnitClient::attached, m_bytes, &QPlainTextEdit::clear);
}

void WireView::showState()
{
    m_show->setChecked(
        m_client.device(QStringLiteral("receiver")).value(QLatin1String("wire")).toBool());
}

void WireView::takeLines(const JournalLines &lines)
{
    QStringList all;
    for (const JournalLine &line : lines) {
        if (line.source == QLatin1String("wire")) {
            all += rows(line);
        }
    }
    if (!all.isEmpty()) {
        m_bytes->appendPlainText(all.join(QLatin1Char('\n')));
    }
}

} // namespace panel
