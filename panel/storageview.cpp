#include "storageview.h"

#include "slotcard.h"
#include "unitclient.h"

#include <QGridLayout>
#include <QJsonArray>

namespace panel
{

namespace
{
const int cardsInARow = 2;
}

StorageView::StorageView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_layout(new QGridLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    connect(&client, &UnitClient::stateChanged, this, &StorageView::showState);
}

void StorageView::showState()
{
    const QJsonArray slotArray =
        m_client.device(QStringLiteral("storage")).value(QLatin1String("slots")).toArray();
    for (const QJsonValue &slot : slotArray) {
        const QString name = slot[QLatin1String("name")].toString();
        SlotCard *&card = m_cards[name];
        if (card == nullptr) {
            card = new SlotCard(m_client, name, this);
            const int place = m_cards.size() - 1;
            m_layout->addWidget(card, place / cardsInARow, place % cardsInARow);
        }
        card->show(slot.toObject());
    }
}

} // namespace panel
