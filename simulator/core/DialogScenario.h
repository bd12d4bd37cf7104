#pragma once

#include "host/Animation.h"
#include "host/ID.h"
#include "host/Replica.h"

#include <QList>
#include <QMap>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace simulator {

/// All that the dialog engine knows: what the robot can say in each of its languages, and when.
/// ScenarioReader makes one out of a file. A value type; an empty one leaves the robot without
/// words.
struct DialogScenario
{
    /// What is said and shown in one language.
    struct Text
    {
        QString text;
        QString screenText;
        QString url;
    };

    /// One possible answer to a question.
    struct Choice
    {
        QMap<QString, QString> texts; // language to text
        QString answer; // name of the line that follows
    };

    /// A replica in all languages. One with choices is a question.
    struct Line
    {
        QString name;
        ID id;
        ID anchor; // the answer set that it makes active; the null ID for none
        ID category;
        QString categoryName;
        Replica::Type type = Replica::Plain;
        Animation animation = AnimationNone;
        QString actions; // separated by commas
        QString step; // empty: chosen by its type
        bool forKnownPerson = false;
        QMap<QString, Text> texts; // language to text
        QList<Choice> choices;

        /// The line in @p language, macros as they stand.
        Replica replica(const QString &language) const;
    };

    /// One way to say something.
    struct Expression
    {
        QString source; // as the file has it
        QRegularExpression expression;
        bool isWords = true; // matches the normalised text instead of the text itself
    };

    /// Something a person may say, and the lines that answer it in turn.
    struct Pattern
    {
        ID id;
        ID set; // only tried while this answer set is active; the null ID for always
        QMap<QString, QList<Expression>> expressions; // by language
        QStringList answers; // names of lines
    };

    struct Match
    {
        const Pattern *pattern = nullptr; // null: nothing matches
        QString source;
    };

    QStringList languages; // the first one stands in for those that are missing
    QMap<QString, QMap<QString, QString>> macros; // name to language to value
    QList<Line> lines;
    QList<Pattern> patterns;

    /// @p wanted when the scenario has it, otherwise its first language.
    QString language(const QString &wanted) const;
    /// Null when there is none. Lives as long as the scenario stays as it is.
    const Line *line(const QString &name) const;
    const Line *line(const ID &id) const;
    const Pattern *pattern(const ID &id) const;
    /// The first pattern that @p text matches, those of the active answer set @p anchor before
    /// those of no set.
    Match match(const QString &text, const QString &language, const ID &anchor) const;

    /// A pattern of words, in which "*" stands for any words, or for the rest of a word.
    static Expression words(const QString &source);
    /// The words of @p text in lower case, one blank after each.
    static QString normalised(const QString &text);
};

} // namespace simulator
