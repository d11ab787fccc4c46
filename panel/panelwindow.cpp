#include "panelwindow.h"

#include "faultview.h"
#include "glassview.h"
#include "journalview.h"
#include "lightview.h"
#include "memoryview.h"
#include "panelstyle.h"
#include "receiverview.h"
#include "sessionbar.h"
#include "storageview.h"
#include "valuesview.h"

#include <QGroupBox>
#include <QLabel>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace panel
{

namespace
{
constexpr QSize usualSize(1240, 690);
}

PanelWindow::PanelWindow(const QString &unitFolder, QWidget *parent)
    : QMainWindow(parent)
    , m_client(unitFolder)
    , m_pages(new QStackedWidget(this))
    , m_hint(makeHint())
    , m_views(new QWidget(this))
    , m_columns(new QSplitter(Qt::Horizontal, this))
    , m_rows(new QSplitter(Qt::Vertical, this))
    , m_tabs(makeTabs())
    , m_failure(new QLabel(this))
{
    setWindowTitle(tr("Head unit panel"));
    m_columns->addWidget(makeLeft());
    m_rows->addWidget(m_tabs);
    m_rows->addWidget(new JournalView(m_client, this));
    m_columns->addWidget(m_rows);
    m_columns->setStretchFactor(1, 1);
    m_columns->setChildrenCollapsible(false);
    m_rows->setChildrenCollapsible(false);
    auto *layout = new QVBoxLayout(m_views);
    layout->addWidget(new SessionBar(m_client, this));
    layout->addWidget(m_columns, 1);
    m_pages->addWidget(m_hint);
    m_pages->addWidget(m_views);
    setCentralWidget(m_pages);

    m_failure->setObjectName(QStringLiteral("failure"));
    statusBar()->addWidget(m_failure, 1);
    connect(&m_client, &UnitClient::attached, this, &PanelWindow::showAttached);
    connect(&m_client, &UnitClient::detached, this, &PanelWindow::showDetached);
    connect(&m_client, &UnitClient::commandFailed, this,
            [this](const QString &command, const QString &error) {
                m_failure->setText(tr("%1: %2").arg(command, error));
            });
    connect(&m_client, &UnitClient::commandDone, this,
            [this](const QString &command) { m_failure->setText(tr("%1: done").arg(command)); });
    restore();
}

PanelWindow::~PanelWindow()
{
    // Whose view is hidden tells the client, which Qt would do when that has gone.
    hide();
}

void PanelWindow::start()
{
    m_client.start();
}

void PanelWindow::closeEvent(QCloseEvent *event)
{
    QSettings settings;
    settings.setValue(QStringLiteral("geometry"), saveGeometry());
    settings.setValue(QStringLiteral("columns"), m_columns->saveState());
    settings.setValue(QStringLiteral("rows"), m_rows->saveState());
    settings.setValue(QStringLiteral("tab"), m_tabs->currentIndex());
    QMainWindow::closeEvent(event);
}

void PanelWindow::restore()
{
    const QSettings settings;
    resize(usualSize);
    m_columns->setSizes({usualSize.width() * 2 / 5, usualSize.width() * 3 / 5});
    m_rows->setSizes({usualSize.height() / 2, usualSize.height() / 2});
    restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray());
    m_columns->restoreState(settings.value(QStringLiteral("columns")).toByteArray());
    m_rows->restoreState(settings.value(QStringLiteral("rows")).toByteArray());
    m_tabs->setCurrentIndex(settings.value(QStringLiteral("tab")).toInt());
}

QWidget *PanelWindow::makeLeft()
{
    auto *left = new QWidget(this);
    auto *layout = new QVBoxLayout(left);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new GlassView(m_client, left), 1);
    layout->addWidget(new StorageView(m_client, left));
    return left;
}

QTabWidget *PanelWindow::makeTabs()
{
    auto *tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("tabs"));
    tabs->addTab(new LightView(m_client, tabs), tr("&Light"));
    tabs->addTab(new ReceiverView(m_client, tabs), tr("&Receiver"));
    tabs->addTab(new MemoryView(m_client, tabs), tr("&USB and memory"));
    tabs->addTab(new ValuesView(m_client, tabs), tr("&Values"));
    tabs->addTab(new FaultView(m_client, tabs), tr("&Faults"));
    return tabs;
}

QLabel *PanelWindow::makeHint()
{
    auto *hint = new QLabel(this);
    hint->setObjectName(QStringLiteral("hint"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setTextInteractionFlags(Qt::TextSelectableByMouse);
    hint->setText(tr("No unit runs on the folder\n%1\n\nStart one with\n./run --unit %1\n\n"
                     "It is shown here as soon as it is there.")
                      .arg(m_client.unitFolder()));
    return hint;
}

void PanelWindow::showAttached()
{
    m_pages->setCurrentWidget(m_views);
    m_views->setEnabled(true);
    m_failure->setText(tr("The unit on %1").arg(m_client.unitFolder()));
}

/// What it had last can still be read.
void PanelWindow::showDetached()
{
    m_views->setEnabled(false);
    m_failure->setText(tr("The unit on %1 has gone; it is shown again as soon as it is there.")
                           .arg(m_client.unitFolder()));
}

} // namespace panel
