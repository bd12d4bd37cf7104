#pragma once

#include "panorel/MessageHandler.h"

#include <functional>

/// A handler that knows how many of its kind live, and does what a test tells it.
class CountedHandler : public panorel::MessageHandler
{
public:
    using Action = std::function<void(const panorel::Message &)>;

    explicit CountedHandler(Action action = {}, std::function<void()> atDestruction = {});
    ~CountedHandler() override;

    void handle(panorel::Message message) override;

    /// How many live now.
    static int count();

private:
    Action m_action;
    std::function<void()> m_atDestruction;
    int m_received = 0; // written after the action, so that a handler that died meanwhile shows
};
