#include "simulator/core/ScenarioBuilder.h"

#include "host/DatabaseDefaults.h"
#include "simulator/core/ScenarioObject.h"

#include <QUrl>

namespace simulator {

namespace {

// The index of each name is its value.
QStringList types()
{
    return {QStringLiteral("plain"), QStringLiteral("greeting"), QStringLiteral("farewell"),
            QStringLiteral("extra"), QStringLiteral("clarification")};
}

QStringList animations()
{
    return {QStringLiteral("none"), QStringLiteral("greeting"), QStringLiteral("nod"),
            QStringLiteral("point"), QStringLiteral("farewell")};
}

QString known(const QMap<QString, ID> &names)
{
    if (names.isEmpty())
        return QStringLiteral("none");
    const QStringList sorted = names.keys();
    return sorted.join(QStringLiteral(", "));
}

} // namespace

ScenarioBuilder::ScenarioBuilder(const ScenarioObject &file) { read(file); }

void ScenarioBuilder::read(const ScenarioObject &file)
{
    file.allow({QStringLiteral("languages"), QStringLiteral("categories"),
                QStringLiteral("answer_sets"), QStringLiteral("macros"), QStringLiteral("replicas"),
                QStringLiteral("patterns")});
    readLanguages(file);
    readCategories(file);
    readAnswerSets(file);
    readMacros(file);
    const QList<ScenarioObject> lines = file.objects(QStringLiteral("replicas"));
    if (lines.isEmpty())
        file.addMistake(QStringLiteral("\"replicas\" is missing or empty; add what the robot "
                                       "says."));
    for (const ScenarioObject &line : lines)
        readLine(line);
    const QList<ScenarioObject> patterns = file.objects(QStringLiteral("patterns"));
    for (const ScenarioObject &pattern : patterns)
        readPattern(pattern);
    checkAnswers(file);
}

void ScenarioBuilder::readLanguages(const ScenarioObject &file)
{
    m_scenario.languages = file.texts(QStringLiteral("languages"));
    if (m_scenario.languages.isEmpty())
        file.addMistake(
            QStringLiteral("\"languages\" is missing or empty; add a list such as [\"en\"]."));
    if (m_scenario.languages.removeDuplicates() > 0)
        file.addMistake(QStringLiteral("\"languages\" names a language twice; name each once."));
}

void ScenarioBuilder::readCategories(const ScenarioObject &file)
{
    const QList<ScenarioObject> objects = file.objects(QStringLiteral("categories"));
    for (ScenarioObject object : objects) {
        const QString name = object.text(QStringLiteral("name"));
        object.setName(name);
        object.allow({QStringLiteral("name"), QStringLiteral("id"), QStringLiteral("uuid"),
                      QStringLiteral("default")});
        if (!object.isTrue(QStringLiteral("default"))) {
            m_categories.insert(name, uniqueId(object, name, &m_categoryIds));
            if (m_categories.value(name).id() == DatabaseDefaults::defaultCategory().id())
                object.addMistake(QStringLiteral("the number %1 is the default category's; take "
                                                 "another.")
                                      .arg(DatabaseDefaults::defaultCategory().id()));
            continue;
        }
        if (!m_defaultCategory.isEmpty())
            object.addMistake(QStringLiteral("there are two default categories; keep one."));
        if (object.has(QStringLiteral("id")) || object.has(QStringLiteral("uuid")))
            object.addMistake(QStringLiteral("the default category has an identity already; remove "
                                             "\"id\" and \"uuid\"."));
        if (m_categories.contains(name))
            object.addMistake(QStringLiteral("this name is taken; choose another."));
        m_defaultCategory = name;
        m_categories.insert(name, DatabaseDefaults::defaultCategory());
        m_categoryIds.names.insert(name);
    }
    if (m_defaultCategory.isEmpty())
        file.addMistake(QStringLiteral("\"categories\" has no default; add one such as {\"name\": "
                                       "\"general\", \"default\": true}."));
}

void ScenarioBuilder::readAnswerSets(const ScenarioObject &file)
{
    const QList<ScenarioObject> objects = file.objects(QStringLiteral("answer_sets"));
    for (ScenarioObject object : objects) {
        const QString name = object.text(QStringLiteral("name"));
        object.setName(name);
        object.allow({QStringLiteral("name"), QStringLiteral("id"), QStringLiteral("uuid")});
        m_answerSets.insert(name, uniqueId(object, name, &m_setIds));
    }
}

void ScenarioBuilder::readMacros(const ScenarioObject &file)
{
    if (!file.has(QStringLiteral("macros")))
        return;
    const ScenarioObject macros = file.object(QStringLiteral("macros"));
    const QStringList names = macros.keys();
    for (const QString &name : names) {
        if (name.isEmpty() || name.contains(QLatin1Char('%')))
            macros.addMistake(QStringLiteral("\"%1\" is no name of a macro; it has to be without "
                                             "per cent signs and not empty.")
                                  .arg(name));
        const ScenarioObject values = macros.object(name);
        values.checkLanguages(m_scenario.languages);
        for (const QString &language : qAsConst(m_scenario.languages))
            m_scenario.macros[name].insert(language, values.text(language));
    }
}

void ScenarioBuilder::readLine(const ScenarioObject &source)
{
    ScenarioObject object = source;
    DialogScenario::Line line;
    line.name = object.text(QStringLiteral("name"));
    object.setName(line.name);
    object.allow({QStringLiteral("name"), QStringLiteral("id"), QStringLiteral("uuid"),
                  QStringLiteral("type"), QStringLiteral("category"), QStringLiteral("step"),
                  QStringLiteral("anchor"), QStringLiteral("animation"), QStringLiteral("actions"),
                  QStringLiteral("known_person"), QStringLiteral("texts"),
                  QStringLiteral("choices")});
    line.id = uniqueId(object, line.name, &m_lineIds);
    line.type = static_cast<Replica::Type>(object.oneOf(QStringLiteral("type"), types()));
    line.animation =
        static_cast<Animation>(object.oneOf(QStringLiteral("animation"), animations()));
    line.step = object.text(QStringLiteral("step"), QString());
    line.forKnownPerson = object.isTrue(QStringLiteral("known_person"));

    line.categoryName = object.text(QStringLiteral("category"), m_defaultCategory);
    line.category = m_categories.value(line.categoryName);
    if (!m_categories.contains(line.categoryName))
        object.addMistake(
            QStringLiteral("there is no category \"%1\"; add it to \"categories\", or use one of "
                           "these: %2.")
                .arg(line.categoryName, known(m_categories)));
    const QString anchor = object.text(QStringLiteral("anchor"), QString());
    line.anchor = m_answerSets.value(anchor);
    if (!anchor.isEmpty() && !m_answerSets.contains(anchor))
        object.addMistake(
            QStringLiteral("there is no answer set \"%1\"; add it to \"answer_sets\", or use one "
                           "of these: %2.")
                .arg(anchor, known(m_answerSets)));

    const QStringList actions = object.texts(QStringLiteral("actions"));
    line.actions = actions.join(QLatin1Char(','));
    if (line.actions.count(QLatin1Char(',')) >= qMax(1, actions.size()))
        object.addMistake(QStringLiteral("\"actions\" has an entry with a comma; make it two "
                                         "entries."));

    const ScenarioObject texts = object.object(QStringLiteral("texts"));
    texts.checkLanguages(m_scenario.languages);
    for (const QString &language : qAsConst(m_scenario.languages)) {
        const ScenarioObject text = texts.object(language);
        text.allow({QStringLiteral("text"), QStringLiteral("screen_text"), QStringLiteral("url")});
        DialogScenario::Text inLanguage;
        inLanguage.text = text.text(QStringLiteral("text"));
        inLanguage.screenText = text.text(QStringLiteral("screen_text"), inLanguage.text);
        inLanguage.url = text.text(QStringLiteral("url"), QString());
        if (!inLanguage.url.isEmpty() && !QUrl(inLanguage.url, QUrl::StrictMode).isValid())
            text.addMistake(QStringLiteral("\"url\" is no address; correct or remove it."));
        line.texts.insert(language, inLanguage);
    }
    line.choices = readChoices(object);
    m_scenario.lines.append(line);
}

QList<DialogScenario::Choice> ScenarioBuilder::readChoices(const ScenarioObject &object) const
{
    QList<DialogScenario::Choice> choices;
    const QList<ScenarioObject> objects = object.objects(QStringLiteral("choices"));
    for (const ScenarioObject &source : objects) {
        source.allow({QStringLiteral("texts"), QStringLiteral("answer")});
        DialogScenario::Choice choice;
        choice.answer = source.text(QStringLiteral("answer"));
        const ScenarioObject texts = source.object(QStringLiteral("texts"));
        texts.checkLanguages(m_scenario.languages);
        for (const QString &language : m_scenario.languages) {
            const QString text = texts.text(language);
            for (const DialogScenario::Choice &other : qAsConst(choices)) {
                if (other.texts.value(language) == text)
                    source.addMistake(QStringLiteral("the choice \"%1\" is there twice; change or "
                                                     "remove one.")
                                          .arg(text));
            }
            choice.texts.insert(language, text);
        }
        choices.append(choice);
    }
    return choices;
}

void ScenarioBuilder::readPattern(const ScenarioObject &object)
{
    object.allow({QStringLiteral("id"), QStringLiteral("uuid"), QStringLiteral("answer_set"),
                  QStringLiteral("says"), QStringLiteral("answers")});
    DialogScenario::Pattern pattern;
    pattern.id = uniqueId(object, QString(), &m_patternIds);
    const QString set = object.text(QStringLiteral("answer_set"), QString());
    pattern.set = m_answerSets.value(set);
    if (!set.isEmpty() && !m_answerSets.contains(set))
        object.addMistake(
            QStringLiteral("there is no answer set \"%1\"; add it to \"answer_sets\", or use one "
                           "of these: %2.")
                .arg(set, known(m_answerSets)));
    const ScenarioObject says = object.object(QStringLiteral("says"));
    says.checkLanguages(m_scenario.languages);
    for (const QString &language : qAsConst(m_scenario.languages)) {
        const QStringList sources = says.texts(language);
        if (sources.isEmpty())
            says.addMistake(
                QStringLiteral("\"%1\" is empty; add what a person may say.").arg(language));
        for (const QString &source : sources)
            pattern.expressions[language].append(readExpression(says, source));
    }
    pattern.answers = object.texts(QStringLiteral("answers"));
    if (pattern.answers.isEmpty())
        object.addMistake(QStringLiteral("\"answers\" is missing or empty; name the replicas that "
                                         "answer."));
    m_scenario.patterns.append(pattern);
}

DialogScenario::Expression ScenarioBuilder::readExpression(const ScenarioObject &object,
                                                           const QString &source) const
{
    const QLatin1Char slash('/');
    if (source.size() < 2 || !source.startsWith(slash) || !source.endsWith(slash)) {
        if (!source.contains(QLatin1Char('*')) && DialogScenario::normalised(source).isEmpty())
            object.addMistake(
                QStringLiteral("\"%1\" has no words; write words, or a * for any.").arg(source));
        return DialogScenario::words(source);
    }
    const QRegularExpression expression(source.mid(1, source.size() - 2),
                                        QRegularExpression::CaseInsensitiveOption
                                            | QRegularExpression::UseUnicodePropertiesOption);
    if (!expression.isValid())
        object.addMistake(QStringLiteral("\"%1\" is no regular expression (%2); correct it.")
                              .arg(source, expression.errorString()));
    return {source, expression, false};
}

void ScenarioBuilder::checkAnswers(const ScenarioObject &file) const
{
    const auto check = [&](const QString &place, const QString &name) {
        if (!m_scenario.line(name))
            file.addMistake(QStringLiteral("%1 answers with \"%2\", but there is no such replica; "
                                           "correct the name, or add the replica.")
                                .arg(place, name));
    };
    for (const DialogScenario::Line &line : m_scenario.lines) {
        for (const DialogScenario::Choice &choice : line.choices)
            check(QStringLiteral("a choice of the replica \"%1\"").arg(line.name), choice.answer);
    }
    for (const DialogScenario::Pattern &pattern : m_scenario.patterns) {
        for (const QString &answer : pattern.answers)
            check(QStringLiteral("the pattern with id %1").arg(pattern.id.id()), answer);
    }
}

ID ScenarioBuilder::uniqueId(const ScenarioObject &object, const QString &name, Identities *taken)
{
    const auto isTaken = [](auto *all, const auto &one) {
        const bool is = all->contains(one);
        all->insert(one);
        return is;
    };
    const ID id = object.id();
    if (!name.isEmpty() && isTaken(&taken->names, name))
        object.addMistake(QStringLiteral("this name is taken; choose another."));
    if (isTaken(&taken->numbers, id.id()))
        object.addMistake(QStringLiteral("the id %1 is taken; choose another.").arg(id.id()));
    if (isTaken(&taken->uuids, id.uuid()))
        object.addMistake(
            QStringLiteral("the uuid %1 is taken; take a new one.").arg(id.uuid().toString()));
    return id;
}

} // namespace simulator
