#pragma once

#include <QStringList>
#include <QUuid>
#include <QVariant>

#include <iterator>
#include <random>

/// Draws values, the same ones for the same seed.
class Dice
{
public:
    explicit Dice(unsigned seed)
        : m_engine(seed)
    { }

    int below(int end) { return static_cast<int>(m_engine() % static_cast<unsigned>(end)); }
    bool oneIn(int chances) { return below(chances) == 0; }
    quint64 bits() { return (static_cast<quint64>(m_engine()) << 32) | m_engine(); }

    template <typename Values>
    auto oneOf(const Values &values)
    {
        return *std::next(std::begin(values), below(static_cast<int>(std::size(values))));
    }

    QString text();
    QString key();
    QUuid uuid();
    double number();
    QVariant scalar();
    /// @p depth is how many containers it may hold inside each other.
    QVariant value(int depth);
    QVariantMap map(int depth);
    QVariantMap record(const QStringList &keys, int depth);
    /// What looks alike: siblings with the same keys, or nearly the same.
    QVariant records(int depth);

private:
    std::mt19937 m_engine;
};
