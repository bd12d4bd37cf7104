#pragma once

#include "host/Export.h"
#include "host/ID.h"
#include "host/Replica.h"

#include <QString>

/// What the dialog engine made of something the user said: the pattern that matched and its reply.
class PANOREL_HOST_EXPORT Answer
{
public:
    /// Where the answer comes from. Travels as its integer value.
    enum Source : int {
        Unknown = 0,
        Pattern = 1,
        Question = 2,
        Page = 3,
        Fallback = 4,
    };

    Answer() = default;

    ID id() const;
    void setId(const ID &id);

    Source source() const;
    void setSource(const Source &source);

    ID idPattern() const;
    void setIdPattern(const ID &idPattern);

    /// The pattern that matched, in the dialog engine's own notation.
    QString pattern() const;
    void setPattern(const QString &pattern);

    /// What the user said.
    QString question() const;
    void setQuestion(const QString &question);

    /// What the robot says to it.
    Replica replica() const;
    void setReplica(const Replica &replica);

private:
    ID m_id;
    Source m_source = Unknown;
    ID m_idPattern;
    QString m_pattern;
    QString m_question;
    Replica m_replica;
};
