#pragma once

#include <QMap>
#include <QWidget>

class QGridLayout;

namespace panel
{

class SlotCard;
class UnitClient;

/// A card for each slot that the unit has.
class StorageView : public QWidget
{
    Q_OBJECT

public:
    explicit StorageView(UnitClient &client, QWidget *parent = nullptr);

private:
    void showState();

    UnitClient &m_client;
    QGridLayout *m_layout;
    QMap<QString, SlotCard *> m_cards;
};

} // namespace panel
