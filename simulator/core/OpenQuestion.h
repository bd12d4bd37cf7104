#pragma once

#include <QString>
#include <QStringList>

namespace simulator {

/// The question that waits for an answer. A value type; an empty one is none.
struct OpenQuestion
{
    QString text;
    QStringList answers; // none: any answer will do
    QString line; // name of the scenario's line that asks; empty for any other question

    bool isOpen() const { return !text.isEmpty(); }

    /// Which of the answers is meant by @p said; -1 for none. Case and punctuation make no
    /// difference, and an answer may be part of a sentence when no other one is.
    int answerIn(const QString &said) const;
};

} // namespace simulator
