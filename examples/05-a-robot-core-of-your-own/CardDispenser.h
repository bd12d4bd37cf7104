#pragma once

#include "host/IDispenser.h"

/// A dispenser with a few cards. A real one would speak to its device here.
class CardDispenser : public IDispenser
{
public:
    explicit CardDispenser(int cards);

    bool isConnected() override;
    void issueCard(const int &position) override;

private:
    int m_cards;
};
