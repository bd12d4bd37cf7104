#pragma once

#include <QString>

/// Checks that numbers come one after the other: none missing, none twice, none too early. The page
/// has the same class in page.js.
class Numbers
{
public:
    /// @p name is what the numbers count, for faults.
    explicit Numbers(const QString &name);

    void take(int number);

    int count() const { return m_count; }
    int last() const { return m_next - 1; }
    /// Numbers that were passed over, and numbers that came again or too late.
    int missing() const { return m_missing; }
    int repeated() const { return m_repeated; }
    /// The first fault in words; empty while there is none.
    QString fault() const { return m_fault; }

private:
    const QString m_name;
    int m_next = 1;
    int m_count = 0;
    int m_missing = 0;
    int m_repeated = 0;
    QString m_fault;
};
