#pragma once

#include "host/Replica.h"
#include "host/UserData.h"
#include "simulator/core/DialogScenario.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

class IUsersDatabase;

namespace simulator {

class SimulatedLanguage;
class SimulatedMacrosReplacer;

/// The dialog engine's stock of replicas: it chooses lines of the scenario, in the robot's language,
/// and fills in their macros. Of several lines that fit, each has its turn. GUI thread.
class SimulatedReplicas : public QObject
{
    Q_OBJECT

public:
    /// Starts without words. @p language is not owned and outlives the stock; @p users may be null.
    SimulatedReplicas(SimulatedLanguage *language,
                      const QSharedPointer<SimulatedMacrosReplacer> &replacer,
                      const QSharedPointer<IUsersDatabase> &users, QObject *parent = nullptr);

    void setScenario(const DialogScenario &scenario);
    const DialogScenario &scenario() const;
    /// The language of the scenario that is spoken now.
    QString language() const;

    /// Who stands before the robot: the macro "name" stands for their name.
    void setPerson(const UserData &person);
    void clearPerson();

    /// The replica of a type in a category, an ID or a name; null when there is none. With
    /// @p useGeneral the default category stands in for the one that has none. With @p useBiometry
    /// a known @p face prefers lines for known people, and its name is filled in.
    QSharedPointer<Replica> ofType(const Replica::Type &type, const QVariant &category,
                                   const bool &useGeneral, const bool &useBiometry,
                                   const FaceInfo &face);
    /// The same for the replica of an application step.
    QSharedPointer<Replica> ofStep(const QString &step, const QVariant &category,
                                   const bool &useGeneral, const bool &useBiometry,
                                   const FaceInfo &face);
    /// The line with this name; the empty replica when there is none.
    Replica named(const QString &name) const;
    /// Of several lines, the name of the one whose turn it is.
    QString nextOf(const QStringList &names);
    /// @p text with its macros filled in.
    QString filled(const QString &text) const;

Q_SIGNALS:
    /// The robot speaks another language of the scenario, or has another scenario.
    void wordsChanged();

private:
    using Lines = QList<const DialogScenario::Line *>;
    using Macros = QMap<QString, QString>;

    void onLanguage();
    Macros defaultMacros() const;
    QString nameOf(const FaceInfo &face) const;
    QSharedPointer<Replica> choose(const Lines &candidates, const QVariant &category,
                                   bool useGeneral, bool useBiometry, const FaceInfo &face);
    QString leastUsed(const Lines &lines);
    Replica filled(Replica replica, const Macros &personal) const;

    SimulatedLanguage *m_language;
    QSharedPointer<SimulatedMacrosReplacer> m_replacer;
    QSharedPointer<IUsersDatabase> m_users;
    DialogScenario m_scenario;
    UserData m_person;
    QMap<QString, int> m_uses; // name of a line to how often it was chosen
};

} // namespace simulator
