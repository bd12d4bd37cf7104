#pragma once

#include "host/ID.h"
#include "host/Replica.h"

#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

class FaceInfo;

namespace simulator {

/// The dialog engine's stock of replicas. GUI thread.
class SimulatedReplicas : public QObject
{
    Q_OBJECT

public:
    /// Starts with one replica for each type and for the steps "welcome", "help" and "goodbye",
    /// all in the default category.
    explicit SimulatedReplicas(QObject *parent = nullptr);

    /// Adds a replica for the application step @p step; an empty step makes it one that is chosen
    /// by its type. Its category may be asked for by @p categoryName too.
    void add(const Replica &replica, const QString &step = QString(),
             const QString &categoryName = QString());

    /// The replica of a type in a category, an ID or a name; null when there is none. With
    /// @p useGeneral the default category stands in for the one that has none. Biometry and face
    /// make no difference here.
    QSharedPointer<Replica> ofType(const Replica::Type &type, const QVariant &category,
                                   const bool &useGeneral, const bool &useBiometry,
                                   const FaceInfo &face) const;
    /// The same for the replica of an application step.
    QSharedPointer<Replica> ofStep(const QString &step, const QVariant &category,
                                   const bool &useGeneral, const bool &useBiometry,
                                   const FaceInfo &face) const;

private:
    struct Entry
    {
        Replica replica;
        QString step;
        QString categoryName;
    };

    QSharedPointer<Replica> choose(const QList<Entry> &candidates, const QVariant &category,
                                   bool useGeneral) const;

    QList<Entry> m_entries;
};

} // namespace simulator
