#include "simulator/core/DialogScenario.h"

#include <algorithm>

namespace simulator {

namespace {

template <typename List, typename Condition>
auto findIn(const List &list, const Condition &condition) -> const typename List::value_type *
{
    const auto found = std::find_if(list.cbegin(), list.cend(), condition);
    return found == list.cend() ? nullptr : &*found;
}

} // namespace

Replica DialogScenario::Line::replica(const QString &language) const
{
    const Text inLanguage = texts.value(language);
    Replica replica;
    replica.setId(id);
    replica.setAnchor(anchor);
    replica.setCategory(category);
    replica.setText(inLanguage.text);
    replica.setScreenText(inLanguage.screenText);
    replica.setUrl(inLanguage.url);
    replica.setActions(actions);
    replica.setAnimation(animation);
    replica.setType(type);
    return replica;
}

QString DialogScenario::language(const QString &wanted) const
{
    return languages.contains(wanted) ? wanted : languages.value(0);
}

const DialogScenario::Line *DialogScenario::line(const QString &name) const
{
    return findIn(lines, [&name](const Line &line) { return line.name == name; });
}

const DialogScenario::Line *DialogScenario::line(const ID &id) const
{
    return findIn(lines, [&id](const Line &line) { return line.id == id; });
}

const DialogScenario::Pattern *DialogScenario::pattern(const ID &id) const
{
    return findIn(patterns, [&id](const Pattern &pattern) { return pattern.id == id; });
}

DialogScenario::Match DialogScenario::match(const QString &text, const QString &language,
                                            const ID &anchor) const
{
    const QString spoken = normalised(text);
    const auto inSet = [&](const ID &set) {
        for (const Pattern &pattern : patterns) {
            if (pattern.set != set)
                continue;
            const QList<Expression> expressions = pattern.expressions.value(language);
            for (const Expression &candidate : expressions) {
                const QString &subject = candidate.isWords ? spoken : text;
                if (candidate.expression.match(subject).hasMatch())
                    return Match{&pattern, candidate.source};
            }
        }
        return Match();
    };
    const Match expected = anchor == ID() ? Match() : inSet(anchor);
    return expected.pattern ? expected : inSet(ID());
}

DialogScenario::Expression DialogScenario::words(const QString &source)
{
    QString expression = QStringLiteral("^");
    const QStringList tokens = source.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &token : tokens) {
        if (token == QLatin1String("*")) {
            expression += QStringLiteral("(?:\\S+ )*");
            continue;
        }
        QStringList pieces;
        const QStringList parts = token.split(QLatin1Char('*'));
        for (const QString &part : parts)
            pieces.append(QRegularExpression::escape(normalised(part).trimmed()));
        expression += pieces.join(QStringLiteral("\\S*")) + QLatin1Char(' ');
    }
    return {source, QRegularExpression(expression + QLatin1Char('$')), true};
}

QString DialogScenario::normalised(const QString &text)
{
    static const QRegularExpression gaps(QStringLiteral("[^\\p{L}\\p{N}]+"));
    const QStringList words = text.toLower().split(gaps, Qt::SkipEmptyParts);
    return words.isEmpty() ? QString() : words.join(QLatin1Char(' ')) + QLatin1Char(' ');
}

} // namespace simulator
