#pragma once

#include "host/DatabaseDefaults.h"
#include "simulator/core/DialogScenario.h"

/// A small scenario in English and German, put together by a test. A line speaks its own name: the
/// line "way" says "way en" in English.
struct TestScenario : simulator::DialogScenario
{
    TestScenario() { languages = QStringList{QStringLiteral("en"), QStringLiteral("de")}; }

    Line &addLine(const QString &name, Replica::Type type = Replica::Plain)
    {
        Line line;
        line.name = name;
        line.id = nextId();
        line.type = type;
        line.category = DatabaseDefaults::defaultCategory();
        line.categoryName = QStringLiteral("general");
        for (const QString &language : qAsConst(languages)) {
            const QString text = name + QLatin1Char(' ') + language;
            line.texts.insert(language, {text, text.toUpper(), QString()});
        }
        lines.append(line);
        return lines.last();
    }
    Pattern &addPattern(const QString &words, const QStringList &answers, const ID &set = ID())
    {
        Pattern pattern;
        pattern.id = nextId();
        pattern.set = set;
        pattern.answers = answers;
        for (const QString &language : qAsConst(languages))
            pattern.expressions[language].append(DialogScenario::words(words));
        patterns.append(pattern);
        return patterns.last();
    }
    static void addChoice(Line *line, const QString &text, const QString &answer)
    {
        line->choices.append({{{QStringLiteral("en"), text},
                               {QStringLiteral("de"), text + QStringLiteral(" auf Deutsch")}},
                              answer});
    }

private:
    ID nextId() { return ID(++m_last, QUuid::createUuid()); }

    unsigned m_last = 100;
};
