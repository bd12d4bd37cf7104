#include "simulator/core/SimulatedReplicas.h"

#include "host/DatabaseDefaults.h"

#include <algorithm>
#include <iterator>

namespace simulator {

namespace {

Replica makeReplica(unsigned number, Replica::Type type, const QString &text, Animation animation)
{
    Replica replica;
    // The same ids in each run, so that pages under test may rely on them.
    const QUuid uuid(0x5a1e0000 + number, 0x51d0, 0x4b0f, 0x9c, 0x11, 0x2f, 0x6d, 0x70, 0x61, 0x6e,
                     0x6f);
    replica.setId(ID(number, uuid));
    replica.setCategory(DatabaseDefaults::defaultCategory());
    replica.setText(text);
    replica.setScreenText(text);
    replica.setAnimation(animation);
    replica.setType(type);
    return replica;
}

} // namespace

SimulatedReplicas::SimulatedReplicas(QObject *parent)
    : QObject(parent)
{
    add(makeReplica(1, Replica::Plain, QStringLiteral("I am listening."), AnimationNod));
    add(makeReplica(2, Replica::Greeting, QStringLiteral("Hello, nice to see you!"),
                    AnimationGreeting));
    add(makeReplica(3, Replica::Farewell, QStringLiteral("Goodbye, come again!"),
                    AnimationFarewell));
    add(makeReplica(4, Replica::Extra, QStringLiteral("By the way, I can also print badges."),
                    AnimationPoint));
    add(makeReplica(5, Replica::Clarification,
                    QStringLiteral("I did not get that. Could you say it again?"), AnimationNone));
    add(makeReplica(6, Replica::Plain, QStringLiteral("Welcome! What can I do for you?"),
                    AnimationGreeting),
        QStringLiteral("welcome"));
    add(makeReplica(7, Replica::Plain, QStringLiteral("Touch the screen, or just ask me."),
                    AnimationPoint),
        QStringLiteral("help"));
    add(makeReplica(8, Replica::Plain, QStringLiteral("Thank you for your visit."),
                    AnimationFarewell),
        QStringLiteral("goodbye"));
}

void SimulatedReplicas::add(const Replica &replica, const QString &step,
                            const QString &categoryName)
{
    m_entries.append({replica, step, categoryName});
}

QSharedPointer<Replica> SimulatedReplicas::ofType(const Replica::Type &type,
                                                  const QVariant &category, const bool &useGeneral,
                                                  const bool &useBiometry,
                                                  const FaceInfo &face) const
{
    Q_UNUSED(useBiometry)
    Q_UNUSED(face)
    QList<Entry> candidates;
    std::copy_if(m_entries.cbegin(), m_entries.cend(), std::back_inserter(candidates),
                 [type](const Entry &entry) {
                     return entry.step.isEmpty() && entry.replica.type() == type;
                 });
    return choose(candidates, category, useGeneral);
}

QSharedPointer<Replica> SimulatedReplicas::ofStep(const QString &step, const QVariant &category,
                                                  const bool &useGeneral, const bool &useBiometry,
                                                  const FaceInfo &face) const
{
    Q_UNUSED(useBiometry)
    Q_UNUSED(face)
    if (step.isEmpty())
        return {};
    QList<Entry> candidates;
    std::copy_if(m_entries.cbegin(), m_entries.cend(), std::back_inserter(candidates),
                 [&step](const Entry &entry) { return entry.step == step; });
    return choose(candidates, category, useGeneral);
}

QSharedPointer<Replica> SimulatedReplicas::choose(const QList<Entry> &candidates,
                                                  const QVariant &category, bool useGeneral) const
{
    const ID id = category.value<ID>();
    const QString name = category.type() == QVariant::String ? category.toString() : QString();
    for (const Entry &entry : candidates) {
        const bool matches =
            name.isEmpty() ? entry.replica.category() == id : entry.categoryName == name;
        if (matches)
            return QSharedPointer<Replica>::create(entry.replica);
    }
    if (!useGeneral)
        return {};
    for (const Entry &entry : candidates) {
        if (entry.replica.category() == DatabaseDefaults::defaultCategory())
            return QSharedPointer<Replica>::create(entry.replica);
    }
    return {};
}

} // namespace simulator
