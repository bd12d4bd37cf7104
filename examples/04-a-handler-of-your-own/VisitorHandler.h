#pragma once

#include "panorel/MessageHandler.h"

#include <QString>

namespace panorel {
class Panorel;
}

/// Counts visitors for the page: answers "visitor.count" by the custom event "visitors".
class VisitorHandler : public panorel::MessageHandler
{
public:
    /// @p screen is not owned; it owns this handler once it is registered.
    explicit VisitorHandler(panorel::Panorel *screen);

    QString topic() const;
    void handle(panorel::Message message) override;

private:
    panorel::Panorel *const m_screen;
    int m_visitors = 0;
};
