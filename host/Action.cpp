#include "host/Action.h"

Action::Action(const QString &raw)
    : m_raw(raw)
{ }

QString Action::raw() const { return m_raw; }

void Action::setRaw(const QString &raw) { m_raw = raw; }
