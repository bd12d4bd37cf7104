#include "simulator/server/RobotActions.h"

#include "simulator/server/ActionValues.h"

#include <algorithm>
#include <iterator>

namespace simulator {

namespace {

struct Action
{
    QLatin1String name;
    ActionFunction perform;
};

const Action allActions[] = {
    {QLatin1String("enter"), &actions::enter},
    {QLatin1String("leave"), &actions::leave},
    {QLatin1String("hear"), &actions::hear},
    {QLatin1String("ask"), &actions::ask},
    {QLatin1String("interaction"), &actions::interaction},
    {QLatin1String("printer"), &actions::printer},
    {QLatin1String("dispenser"), &actions::dispenser},
    {QLatin1String("passport-scanner"), &actions::passportScanner},
    {QLatin1String("document-scanner"), &actions::documentScanner},
    {QLatin1String("telephone"), &actions::telephone},
    {QLatin1String("drive"), &actions::drive},
    {QLatin1String("operator"), &actions::operatorDesk},
    {QLatin1String("mail"), &actions::mail},
    {QLatin1String("pace"), &actions::pace},
    {QLatin1String("tell"), &actions::tell},
};

const Action *find(const QString &name)
{
    const auto found = std::find_if(std::begin(allActions), std::end(allActions),
                                    [&name](const Action &one) { return one.name == name; });
    return found == std::end(allActions) ? nullptr : found;
}

} // namespace

RobotActions::RobotActions(const ActionTarget &target)
    : m_target(target)
{ }

QStringList RobotActions::names()
{
    QStringList names;
    for (const Action &action : allActions)
        names.append(action.name);
    return names;
}

bool RobotActions::isKnown(const QString &name) { return find(name); }

RobotActions::Outcome RobotActions::perform(const QString &name, const QJsonObject &values) const
{
    const Action *action = find(name);
    if (!action)
        return {QStringLiteral("There is no action \"%1\".").arg(name), {}};
    ActionValues given(values);
    Outcome outcome;
    outcome.mistake = action->perform(m_target, given, outcome.result);
    return outcome;
}

} // namespace simulator
