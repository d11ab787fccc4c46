#include "panelstyle.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QPalette>
#include <QStyleFactory>
#include <QTableView>

namespace panel
{

namespace style
{

namespace
{

constexpr QColor text(232, 233, 235);
constexpr QColor button(48, 51, 55);

const char sheet[] = R"(
QGroupBox { border: 1px solid #3a3d42; border-radius: 6px; margin-top: 9px; padding-top: 6px; background: #222427; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: #96989c; }
QToolTip { color: #e8e9eb; background: #303337; border: 1px solid #3a3d42; }
QHeaderView::section { background: #222427; color: #96989c; border: 0; padding: 3px 6px; }
QTabWidget::pane { border: 1px solid #3a3d42; border-radius: 6px; top: -1px; }
QTabBar::tab { padding: 6px 14px; color: #96989c; background: transparent; border-bottom: 2px solid transparent; }
QTabBar::tab:selected { color: #e8e9eb; border-bottom: 2px solid #1ca0f8; }
QTabBar::tab:focus { color: #1ca0f8; }
)";

} // namespace

void apply(QApplication &application)
{
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette(button, background);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText,
          QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, QColor(110, 112, 116));
    }
    palette.setColor(QPalette::Base, QColor(26, 27, 30));
    palette.setColor(QPalette::AlternateBase, surface);
    palette.setColor(QPalette::Highlight, QColor(22, 92, 140));
    palette.setColor(QPalette::HighlightedText, text);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::PlaceholderText, dimmed);
    application.setPalette(palette);
    // A box that is not checked is to be seen on every background.
    palette.setColor(QPalette::Base, QColor(78, 81, 86));
    QApplication::setPalette(palette, "QCheckBox");
    application.setStyleSheet(QLatin1String(sheet));
}

QFont figures()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(QApplication::font().pointSizeF());
    return font;
}

void prepare(QTableView *table)
{
    table->setFont(figures());
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setSelectionBehavior(QTableView::SelectRows);
    table->setSelectionMode(QTableView::SingleSelection);
    QHeaderView *rows = table->verticalHeader();
    rows->hide();
    rows->setMinimumSectionSize(0);
    rows->setDefaultSectionSize(QFontMetrics(table->font()).height() + 4);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QLabel *valueLabel(const QString &widest, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setFont(figures());
    label->setMinimumWidth(QFontMetrics(label->font()).horizontalAdvance(widest));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace style

} // namespace panel
