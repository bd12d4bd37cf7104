#include "tests/soak/Numbers.h"

Numbers::Numbers(const QString &name)
    : m_name(name)
{ }

void Numbers::take(int number)
{
    ++m_count;
    if (number == m_next) {
        ++m_next;
        return;
    }
    if (m_fault.isEmpty())
        m_fault =
            QStringLiteral("%1: number %2 came instead of %3").arg(m_name).arg(number).arg(m_next);
    if (number > m_next) {
        m_missing += number - m_next;
        m_next = number + 1;
    } else {
        ++m_repeated;
    }
}
