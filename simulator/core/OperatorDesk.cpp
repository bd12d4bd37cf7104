#include "simulator/core/OperatorDesk.h"

namespace simulator {

OperatorDesk::OperatorDesk(QObject *parent)
    : QObject(parent)
{ }

void OperatorDesk::setCalled(const bool &called)
{
    if (m_called == called)
        return;
    m_called = called;
    Q_EMIT callChanged(called);
    if (!called)
        setControl(false);
}

bool OperatorDesk::isCalled() const { return m_called; }

void OperatorDesk::respond(unsigned char code) { Q_EMIT responded(code); }

void OperatorDesk::setControl(bool control)
{
    if (m_control == control)
        return;
    m_control = control;
    Q_EMIT controlChanged(control);
}

bool OperatorDesk::hasControl() const { return m_control; }

} // namespace simulator
