#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace simulator
{

/// Brings onto the unit's screen what the unit's software shows as windows of their own: the unit
/// has but one screen, and there a window without a parent lies over everything. Tool tips and
/// menus, and widgets that are never shown, are left alone. Graphical thread only.
class TopLevelAdopter : public QObject
{
    Q_OBJECT

public:
    /// Puts such pages into \a layer; \a own is the simulator's own window.
    TopLevelAdopter(QWidget *own, QWidget *layer);

    /// Deletes every such page that is still there.
    void deletePages();

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool isPage(const QWidget *widget) const;
    void remember(QWidget *page);
    void adopt(QWidget *page);

    QWidget *m_own;
    QWidget *m_layer;
    QList<QPointer<QWidget>> m_pages;
};

} // namespace simulator
