#pragma once

#include <QStandardItemModel>
#include <QTimer>
#include <QWidget>

class QLabel;
class QTableView;

namespace panel
{

class LivePlot;
class UnitClient;

/// USB as it results from the registers, the registers with what they were before, and the
/// throughput of the NCM tests.
class MemoryView : public QWidget
{
    Q_OBJECT

public:
    explicit MemoryView(UnitClient &client, QWidget *parent = nullptr);

private:
    QTableView *makeTable(QStandardItemModel &model, const QStringList &titles,
                          const QString &name);
    void showState();
    void showPorts();
    void showRegisters();
    void setRegister(QStandardItem *item);
    void dimOld();
    void plotThroughput();

    UnitClient &m_client;
    QLabel *m_role;
    QStandardItemModel m_ports;
    QStandardItemModel m_registers;
    LivePlot *m_plot;
    QTimer m_lit;
    QTimer m_pace;
    double m_bytesBefore = 0;
    double m_secondsBefore = 0;
    bool m_isShowing = false;
};

} // namespace panel
