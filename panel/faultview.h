#pragma once

#include <QStandardItemModel>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTableView;

namespace panel
{

class UnitClient;

/// What can fail on the unit, as it tells itself, and what does.
class FaultView : public QWidget
{
    Q_OBJECT

public:
    explicit FaultView(UnitClient &client, QWidget *parent = nullptr);

private:
    void askWhatCanFail();
    void addLine(const QString &line);
    void letFail();
    void showState();

    UnitClient &m_client;
    QStandardItemModel m_model;
    QTableView *m_table;
    QLineEdit *m_words;
    QLabel *m_present;
};

} // namespace panel
