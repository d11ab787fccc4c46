#include "journalview.h"

#include "panelstyle.h"
#include "unitclient.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>

namespace panel
{

namespace
{

QString causeHint()
{
    return JournalView::tr("Click a line for its cause");
}

} // namespace

JournalView::JournalView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_text(new QLineEdit(this))
    , m_source(new QComboBox(this))
    , m_calls(new QCheckBox(tr("Calls too"), this))
    , m_follow(new QCheckBox(tr("Follow"), this))
    , m_cause(new QLabel(this))
    , m_all(new QPushButton(tr("All lines"), this))
    , m_table(new QTableView(this))
{
    m_filter.setSourceModel(&m_model);
    makeTable();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(makeTools());
    layout->addWidget(m_table);

    connect(&client, &UnitClient::journalGrew, this, &JournalView::take);
    connect(&client, &UnitClient::journalRestarted, this, &JournalView::forgetUnit);
}

QLayout *JournalView::makeTools()
{
    m_text->setObjectName(QStringLiteral("journalText"));
    m_text->setPlaceholderText(tr("Text in a line"));
    m_text->setClearButtonEnabled(true);
    m_source->setObjectName(QStringLiteral("journalSource"));
    m_source->addItem(tr("All sources"));
    m_source->setMinimumContentsLength(10);
    m_calls->setObjectName(QStringLiteral("journalCalls"));
    m_calls->setToolTip(
        tr("Shows calls of the C library and questions to the closed libraries, too"));
    m_follow->setObjectName(QStringLiteral("journalFollow"));
    m_follow->setToolTip(tr("Keeps the newest line in sight"));
    m_follow->setChecked(true);
    m_cause->setObjectName(QStringLiteral("journalCause"));
    // A long one is cut, and makes nothing else smaller.
    m_cause->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_cause->setText(causeHint());
    m_all->setObjectName(QStringLiteral("journalAll"));
    m_all->setEnabled(false);

    connect(m_text, &QLineEdit::textChanged, &m_filter, &JournalFilter::setText);
    connect(m_source, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        m_filter.setSource(index == 0 ? QString() : m_source->itemText(index));
    });
    connect(m_calls, &QCheckBox::toggled, &m_client, &UnitClient::setHearingCalls);
    connect(m_follow, &QCheckBox::toggled, this, [this](bool follows) {
        if (follows) {
            followEnd();
        }
    });
    connect(m_all, &QPushButton::clicked, this, &JournalView::showAll);

    auto *tools = new QHBoxLayout;
    tools->addWidget(m_text, 3);
    tools->addWidget(m_source);
    tools->addWidget(m_calls);
    tools->addWidget(m_follow);
    tools->addWidget(m_cause, 4);
    tools->addWidget(m_all);
    return tools;
}

void JournalView::makeTable()
{
    m_table->setObjectName(QStringLiteral("journal"));
    m_table->setModel(&m_filter);
    style::prepare(m_table);
    const QFontMetrics metrics(m_table->font());
    const int margin = 16;
    const QStringList widest = {QStringLiteral("86400.000"), QStringLiteral("#99999"),
                                QStringLiteral("framework")};
    for (int column = 0; column < widest.size(); ++column) {
        m_table->setColumnWidth(column, metrics.horizontalAdvance(widest.at(column)) + margin);
    }
    m_table->horizontalHeader()->setStretchLastSection(true);
    connect(m_table, &QTableView::activated, this, &JournalView::showCauseOf);
    connect(m_table, &QTableView::clicked, this, &JournalView::showCauseOf);
    // Who reads further up is left there.
    connect(m_table->verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] {
        QMetaObject::invokeMethod(
            this, [this] { m_follow->setChecked(isAtEnd()); }, Qt::QueuedConnection);
    });
}

void JournalView::take(const JournalLines &lines)
{
    addSources(lines);
    m_model.append(lines);
    if (m_follow->isChecked()) {
        followEnd();
    }
}

void JournalView::addSources(const JournalLines &lines)
{
    for (const JournalLine &line : lines) {
        if (m_source->findText(line.source) < 0) {
            int index = 1;
            while (index < m_source->count() && m_source->itemText(index) < line.source) {
                ++index;
            }
            m_source->insertItem(index, line.source);
        }
    }
}

void JournalView::forgetUnit()
{
    showAll();
    m_model.clear();
}

void JournalView::showCauseOf(const QModelIndex &index)
{
    const JournalLine line = m_model.line(m_filter.mapToSource(index).row());
    if (line.cause == 0) {
        m_cause->setText(tr("Nobody knows what this line follows from."));
        return;
    }
    m_follow->setChecked(false);
    m_filter.setCause(line.cause);
    m_cause->setText(tr("All of #%1: %2").arg(line.cause).arg(line.causeText));
    m_all->setEnabled(true);
    for (int row = 0; row < m_filter.rowCount(); ++row) {
        if (m_model.line(m_filter.mapToSource(m_filter.index(row, 0)).row()).number
            == line.number) {
            m_table->selectRow(row);
        }
    }
}

void JournalView::showAll()
{
    m_filter.setCause(0);
    m_all->setEnabled(false);
    m_cause->setText(causeHint());
    m_follow->setChecked(true);
    followEnd();
}

void JournalView::followEnd()
{
    m_table->scrollToBottom();
}

bool JournalView::isAtEnd() const
{
    const QScrollBar *bar = m_table->verticalScrollBar();
    return bar->value() == bar->maximum();
}

} // namespace panel
