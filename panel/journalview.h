#pragma once

#include "journalfilter.h"
#include "journalmodel.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace panel
{

class UnitClient;

/// The unit's journal as it grows: by source and text, and, by a click on a line, all that follows
/// from what that line follows from.
class JournalView : public QWidget
{
    Q_OBJECT

public:
    explicit JournalView(UnitClient &client, QWidget *parent = nullptr);

private:
    QLayout *makeTools();
    void makeTable();
    void take(const JournalLines &lines);
    void addSources(const JournalLines &lines);
    void forgetUnit();
    void showCauseOf(const QModelIndex &index);
    void showAll();
    void followEnd();
    bool isAtEnd() const;

    UnitClient &m_client;
    JournalModel m_model;
    JournalFilter m_filter;
    QLineEdit *m_text;
    QComboBox *m_source;
    QCheckBox *m_calls;
    QCheckBox *m_follow;
    QLabel *m_cause;
    QPushButton *m_all;
    QTableView *m_table;
};

} // namespace panel
