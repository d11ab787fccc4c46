#pragma once

#include "unitclient.h"

#include <QMainWindow>

class QLabel;
class QSplitter;
class QStackedWidget;
class QTabWidget;

namespace panel
{

/// The whole panel, for the unit that runs on a folder, or on none yet. Its layout is remembered.
class PanelWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit PanelWindow(const QString &unitFolder, QWidget *parent = nullptr);
    ~PanelWindow() override;

    /// Looks for the unit, from now on.
    void start();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeLeft();
    QTabWidget *makeTabs();
    QLabel *makeHint();
    void showAttached();
    void showDetached();
    void restore();

    UnitClient m_client;
    QStackedWidget *m_pages;
    QLabel *m_hint;
    QWidget *m_views;
    QSplitter *m_columns;
    QSplitter *m_rows;
    QTabWidget *m_tabs;
    QLabel *m_failure;
};

} // namespace panel
