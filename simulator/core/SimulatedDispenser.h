#pragma once

#include "host/IDispenser.h"
#include "simulator/core/Pace.h"

#include <QTimer>

namespace simulator {

/// The card dispenser: cards run out, and one card at a time waits to be taken. While it hands out
/// no card, its status word also tells of its supply, the cards and the card bin. GUI thread.
class SimulatedDispenser : public IDispenser
{
    Q_OBJECT

public:
    explicit SimulatedDispenser(const Pace &pace, QObject *parent = nullptr);

    bool isConnected() override;
    /// Moves a card out. Reports that it is dispensing, then that a card stands at the exit; or
    /// the error that kept it from doing so.
    void issueCard(const int &position) override;

    /// Unplugs the dispenser or plugs it in again.
    void setConnected(bool connected);
    void setCards(int cards);
    int cards() const;
    /// The next cards jam until this is taken back.
    void setJammed(bool jammed);
    bool isJammed() const;
    /// The bin for cards that nobody took. A full one keeps no card from being handed out.
    void setBinFull(bool full);
    bool isBinFull() const;
    /// The user takes the card at the exit.
    void takeCard();
    /// Reports @p code, any combination of the status word's bits, as if the device had.
    void injectStatus(unsigned short code);

    /// The status word reported last.
    unsigned short status() const;
    /// The position that was asked for last; 0 before the first card.
    int position() const;

    /// How long one card takes, in milliseconds of the robot's time.
    void setIssueTime(int milliseconds);

Q_SIGNALS:
    void cardsChanged(int cards);
    void jammedChanged(bool jammed);
    void binFullChanged(bool full);

private:
    void onIssued();
    void reportSupply();
    Codes supply() const;
    void report(Codes codes);

    Pace m_pace;
    QTimer m_timer;
    bool m_connected = true;
    bool m_jammed = false;
    bool m_binFull = false;
    int m_cards = 20;
    int m_position = 0;
    int m_issueTime = 1200;
    unsigned short m_status = 0;
};

} // namespace simulator
