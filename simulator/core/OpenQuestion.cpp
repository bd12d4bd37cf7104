#include "simulator/core/OpenQuestion.h"

#include "simulator/core/DialogScenario.h"

namespace simulator {

int OpenQuestion::answerIn(const QString &said) const
{
    const QString words = DialogScenario::normalised(said);
    QList<int> contained;
    for (int i = 0; i < answers.size(); ++i) {
        const QString answer = DialogScenario::normalised(answers.at(i));
        if (said == answers.at(i) || (!answer.isEmpty() && words == answer))
            return i;
        if (!answer.isEmpty() && (QLatin1Char(' ') + words).contains(QLatin1Char(' ') + answer))
            contained.append(i);
    }
    return contained.size() == 1 ? contained.constFirst() : -1;
}

} // namespace simulator
