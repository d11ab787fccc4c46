#pragma once

#include <QSortFilterProxyModel>

namespace panel
{

/// Those lines of the journal that a person wants to see.
class JournalFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// Only of that source; empty for all.
    void setSource(const QString &source);
    /// Only with that text in them, in whatever case; empty for all.
    void setText(const QString &text);
    /// Only what follows from that cause, and itself; 0 for all.
    void setCause(qint64 cause);

    qint64 cause() const { return m_cause; }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QString m_source;
    QString m_text;
    qint64 m_cause = 0;
};

} // namespace panel
