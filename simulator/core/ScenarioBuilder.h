#pragma once

#include "simulator/core/DialogScenario.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QUuid>

namespace simulator {

class ScenarioObject;

/// Makes a scenario out of the content of its file. The file's object keeps the first mistake.
class ScenarioBuilder
{
public:
    explicit ScenarioBuilder(const ScenarioObject &file);

    /// Only of use when the file has no mistake.
    DialogScenario scenario() const { return m_scenario; }

private:
    struct Identities
    {
        QSet<QString> names;
        QSet<unsigned> numbers;
        QSet<QUuid> uuids;
    };

    void read(const ScenarioObject &file);
    void readLanguages(const ScenarioObject &file);
    void readCategories(const ScenarioObject &file);
    void readAnswerSets(const ScenarioObject &file);
    void readMacros(const ScenarioObject &file);
    void readLine(const ScenarioObject &source);
    QList<DialogScenario::Choice> readChoices(const ScenarioObject &object) const;
    void readPattern(const ScenarioObject &object);
    DialogScenario::Expression readExpression(const ScenarioObject &object,
                                              const QString &source) const;
    void checkAnswers(const ScenarioObject &file) const;

    /// The ID of a record, which no other of its kind may have.
    static ID uniqueId(const ScenarioObject &object, const QString &name, Identities *taken);

    DialogScenario m_scenario;
    QMap<QString, ID> m_categories;
    QMap<QString, ID> m_answerSets;
    QString m_defaultCategory;
    Identities m_categoryIds;
    Identities m_setIds;
    Identities m_lineIds;
    Identities m_patternIds;
};

} // namespace simulator
