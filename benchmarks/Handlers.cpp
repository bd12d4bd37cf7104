#include "benchmarks/Handlers.h"

namespace {

class Counter : public panorel::MessageHandler
{
public:
    void handle(panorel::Message) override { m_calls = m_calls + 1; }

private:
    volatile unsigned m_calls = 0;
};

class NaiveCounter : public naive::Handler
{
public:
    void handle(naive::Message) override { m_calls = m_calls + 1; }

private:
    volatile unsigned m_calls = 0;
};

} // namespace

std::unique_ptr<panorel::MessageHandler> makeHandler() { return std::make_unique<Counter>(); }

std::unique_ptr<naive::Handler> makeNaiveHandler() { return std::make_unique<NaiveCounter>(); }
