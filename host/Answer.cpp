#include "host/Answer.h"

ID Answer::id() const { return m_id; }

void Answer::setId(const ID &id) { m_id = id; }

Answer::Source Answer::source() const { return m_source; }

void Answer::setSource(const Source &source) { m_source = source; }

ID Answer::idPattern() const { return m_idPattern; }

void Answer::setIdPattern(const ID &idPattern) { m_idPattern = idPattern; }

QString Answer::pattern() const { return m_pattern; }

void Answer::setPattern(const QString &pattern) { m_pattern = pattern; }

QString Answer::question() const { return m_question; }

void Answer::setQuestion(const QString &question) { m_question = question; }

Replica Answer::replica() const { return m_replica; }

void Answer::setReplica(const Replica &replica) { m_replica = replica; }
