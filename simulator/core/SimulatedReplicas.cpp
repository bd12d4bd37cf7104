#include "simulator/core/SimulatedReplicas.h"

#include "host/DatabaseDefaults.h"
#include "host/IUsersDatabase.h"
#include "simulator/core/SimulatedLanguage.h"
#include "simulator/core/SimulatedMacrosReplacer.h"

#include <algorithm>

namespace simulator {

namespace {

const QString NameMacro = QStringLiteral("name");

template <typename Condition>
auto linesWith(const DialogScenario &scenario, const Condition &condition)
{
    QList<const DialogScenario::Line *> found;
    for (const DialogScenario::Line &line : scenario.lines) {
        if (condition(line))
            found.append(&line);
    }
    return found;
}

// A page may know a category by its number alone.
bool isCategory(const DialogScenario::Line &line, const QVariant &category)
{
    if (category.type() == QVariant::String)
        return line.categoryName == category.toString();
    const ID id = category.value<ID>();
    if (id.uuid().isNull() && id.id() != 0)
        return line.category.id() == id.id();
    return line.category == id;
}

} // namespace

SimulatedReplicas::SimulatedReplicas(SimulatedLanguage *language,
                                     const QSharedPointer<SimulatedMacrosReplacer> &replacer,
                                     const QSharedPointer<IUsersDatabase> &users, QObject *parent)
    : QObject(parent)
    , m_language(language)
    , m_replacer(replacer)
    , m_users(users)
{
    connect(m_language, &SimulatedLanguage::changed, this, &SimulatedReplicas::onLanguage);
}

void SimulatedReplicas::setScenario(const DialogScenario &scenario)
{
    m_scenario = scenario;
    m_uses.clear();
    onLanguage();
}

const DialogScenario &SimulatedReplicas::scenario() const { return m_scenario; }

QString SimulatedReplicas::language() const { return m_scenario.language(m_language->code()); }

void SimulatedReplicas::setPerson(const UserData &person)
{
    m_person = person;
    m_replacer->setDefaults(defaultMacros());
}

void SimulatedReplicas::clearPerson() { setPerson(UserData()); }

QSharedPointer<Replica> SimulatedReplicas::ofType(const Replica::Type &type,
                                                  const QVariant &category, const bool &useGeneral,
                                                  const bool &useBiometry, const FaceInfo &face)
{
    const auto fits = [type](const DialogScenario::Line &line) {
        return line.step.isEmpty() && line.type == type;
    };
    return choose(linesWith(m_scenario, fits), category, useGeneral, useBiometry, face);
}

QSharedPointer<Replica> SimulatedReplicas::ofStep(const QString &step, const QVariant &category,
                                                  const bool &useGeneral, const bool &useBiometry,
                                                  const FaceInfo &face)
{
    const auto fits = [&step](const DialogScenario::Line &line) {
        return !step.isEmpty() && line.step == step;
    };
    return choose(linesWith(m_scenario, fits), category, useGeneral, useBiometry, face);
}

Replica SimulatedReplicas::named(const QString &name) const
{
    const DialogScenario::Line *line = m_scenario.line(name);
    return line ? filled(line->replica(language()), {}) : Replica();
}

QString SimulatedReplicas::nextOf(const QStringList &names)
{
    return leastUsed(linesWith(m_scenario, [&names](const DialogScenario::Line &line) {
        return names.contains(line.name);
    }));
}

QString SimulatedReplicas::filled(const QString &text) const { return m_replacer->expand(text); }

void SimulatedReplicas::onLanguage()
{
    m_replacer->setDefaults(defaultMacros());
    Q_EMIT wordsChanged();
}

SimulatedReplicas::Macros SimulatedReplicas::defaultMacros() const
{
    Macros macros;
    for (auto macro = m_scenario.macros.cbegin(); macro != m_scenario.macros.cend(); ++macro)
        macros.insert(macro.key(), macro.value().value(language()));
    if (!m_person.name().isEmpty())
        macros.insert(NameMacro, m_person.name());
    return macros;
}

// Whoever stands before the robot need not be in the database to have a name.
QString SimulatedReplicas::nameOf(const FaceInfo &face) const
{
    if (face.id() == 0 || face.type() == FaceInfo::Temporary)
        return {};
    if (m_person.info().id() == face.id())
        return m_person.name();
    UserData user;
    return m_users && m_users->user(face.id(), user) ? user.name() : QString();
}

QSharedPointer<Replica> SimulatedReplicas::choose(const Lines &candidates, const QVariant &category,
                                                  bool useGeneral, bool useBiometry,
                                                  const FaceInfo &face)
{
    const QString name = useBiometry ? nameOf(face) : QString();
    const auto inCategory = [&](const QVariant &wanted) {
        Lines general;
        Lines personal;
        for (const DialogScenario::Line *line : candidates) {
            if (isCategory(*line, wanted))
                (line->forKnownPerson ? personal : general).append(line);
        }
        return name.isEmpty() || personal.isEmpty() ? general : personal;
    };
    Lines lines = inCategory(category);
    if (lines.isEmpty() && useGeneral)
        lines = inCategory(QVariant::fromValue(DatabaseDefaults::defaultCategory()));
    if (lines.isEmpty())
        return {};

    // Without biometry nobody is called by their name, also whoever stands there.
    Macros personal;
    const auto neutral = m_scenario.macros.constFind(NameMacro);
    if (!name.isEmpty())
        personal.insert(NameMacro, name);
    else if (!useBiometry && neutral != m_scenario.macros.cend())
        personal.insert(NameMacro, neutral->value(language()));
    const DialogScenario::Line *line = m_scenario.line(leastUsed(lines));
    return QSharedPointer<Replica>::create(filled(line->replica(language()), personal));
}

QString SimulatedReplicas::leastUsed(const Lines &lines)
{
    const auto least =
        std::min_element(lines.cbegin(), lines.cend(), [this](const auto *left, const auto *right) {
            return m_uses.value(left->name) < m_uses.value(right->name);
        });
    if (least == lines.cend())
        return {};
    ++m_uses[(*least)->name];
    return (*least)->name;
}

Replica SimulatedReplicas::filled(Replica replica, const Macros &personal) const
{
    replica.setText(m_replacer->expand(replica.text(), personal));
    replica.setScreenText(m_replacer->expand(replica.screenText(), personal));
    return replica;
}

} // namespace simulator
