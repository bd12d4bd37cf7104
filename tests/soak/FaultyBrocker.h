#pragma once

#include "panorel/PanorelQueueBrocker.h"

#include <QStringList>

/// A bus with one fault, to see that the soak notices it.
class FaultyBrocker : public panorel::PanorelQueueBrocker
{
public:
    /// Kinds of faults; "" is none. All but "leak" befall one message.
    static QStringList faults();

    /// @p fault is one of faults().
    explicit FaultyBrocker(const QString &fault);

    void publish(const panorel::Message &message) override;

private:
    const QString m_fault;
    int m_count = 0;
    panorel::Message m_late{QString()};
};
