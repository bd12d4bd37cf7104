#include "CardDispenser.h"

CardDispenser::CardDispenser(int cards)
    : m_cards(cards)
{ }

bool CardDispenser::isConnected() { return true; }

void CardDispenser::issueCard(const int &position)
{
    Q_UNUSED(position)
    if (m_cards == 0) {
        Q_EMIT statusChanged(CardEmpty);
        return;
    }
    --m_cards;
    Q_EMIT statusChanged(m_cards == 0 ? CardDispensing | CardEmpty : CardDispensing);
}
