#pragma once

#include "journalline.h"

#include <QStandardItemModel>
#include <QWidget>

class QTreeView;

namespace panel
{

class UnitClient;

/// Tuner, vendor data, settings and versions, and what the microcontroller was sent last. A value
/// that a unit would let be changed is changed by a double click.
class ValuesView : public QWidget
{
    Q_OBJECT

public:
    explicit ValuesView(UnitClient &client, QWidget *parent = nullptr);

private:
    struct Value
    {
        QString name;
        QString text;
        QString known;       ///< What one should know of it.
        QStringList command; ///< That a new value is put behind; empty where there is none.
    };

    void showState();
    void showGroup(const QString &title, const QVector<Value> &values);
    QStandardItem *group(const QString &title);
    QVector<Value> tuner() const;
    QVector<Value> settings() const;
    QVector<Value> vendor() const;
    QVector<Value> versions() const;
    void takeMessages(const JournalLines &lines);
    void change(QStandardItem *item);

    UnitClient &m_client;
    QStandardItemModel m_model;
    QTreeView *m_tree;
    QVector<Value> m_messages;
    bool m_isShowing = false;
};

} // namespace panel
