// What it costs to carry a message over the bus, beside the least that it could cost (a direct
// virtual call with the message copied), the straightforward implementation, and peers.
//
// Names: group/variant/argument. scripts/bench-table.py divides the times of the variants of one
// group and argument.

#include "benchmarks/Handlers.h"
#include "benchmarks/NaiveBus.h"
#include "benchmarks/Work.h"
#include "panorel/PanorelQueueBrocker.h"

#include <QObject>

#include <benchmark/benchmark.h>
#include <boost/signals2.hpp>
#include <sigc++/sigc++.h>

#include <vector>

#include <sys/random.h>

using panorel::Message;
using panorel::MessageHandler;
using panorel::PanorelQueueBrocker;

namespace {

template <typename Messages>
void addMessages(Messages &messages, int topics)
{
    for (int i = 0; i < topics; ++i)
        messages.emplace_back(topic(i), attributes());
}

template <typename Bus, typename Messages>
void publishInTurn(benchmark::State &state, Bus &bus, const Messages &messages)
{
    std::size_t next = 0;
    for (auto _ : state) {
        bus.publish(messages[next]);
        next = next + 1 < messages.size() ? next + 1 : 0;
    }
}

// One topic after the other, each with so many handlers: arguments topics, handlers.

void publishDirect(benchmark::State &state)
{
    std::vector<Message> messages;
    addMessages(messages, static_cast<int>(state.range(0)));
    std::vector<std::vector<std::unique_ptr<MessageHandler>>> handlers(messages.size());
    for (auto &ofATopic : handlers)
        for (int i = 0; i < state.range(1); ++i)
            ofATopic.push_back(makeHandler());
    std::size_t next = 0;
    for (auto _ : state) {
        for (const auto &handler : handlers[next])
            handler->handle(messages[next]);
        next = next + 1 < messages.size() ? next + 1 : 0;
    }
}

void publishBus(benchmark::State &state)
{
    std::vector<Message> messages;
    addMessages(messages, static_cast<int>(state.range(0)));
    PanorelQueueBrocker bus;
    for (const Message &message : messages)
        for (int i = 0; i < state.range(1); ++i)
            bus.subscribe(message.type(), makeHandler().release());
    publishInTurn(state, bus, messages);
}

/// Messages whose topics share no text with those that were subscribed to, as a page's.
void publishOtherTexts(benchmark::State &state)
{
    std::vector<Message> messages;
    PanorelQueueBrocker bus;
    for (int i = 0; i < state.range(0); ++i) {
        messages.emplace_back(QString::fromUtf8(topic(i).toUtf8()), attributes());
        for (int handler = 0; handler < state.range(1); ++handler)
            bus.subscribe(topic(i), makeHandler().release());
    }
    publishInTurn(state, bus, messages);
}

void publishNaive(benchmark::State &state)
{
    std::vector<naive::Message> messages;
    addMessages(messages, static_cast<int>(state.range(0)));
    naive::Bus bus;
    std::vector<std::unique_ptr<naive::Handler>> handlers;
    for (const naive::Message &message : messages)
        for (int i = 0; i < state.range(1); ++i) {
            handlers.push_back(makeNaiveHandler());
            bus.subscribe(message.type(), handlers.back().get());
        }
    publishInTurn(state, bus, messages);
}

std::vector<std::unique_ptr<MessageHandler>> makeHandlers(int64_t count)
{
    std::vector<std::unique_ptr<MessageHandler>> handlers;
    for (int64_t i = 0; i < count; ++i)
        handlers.push_back(makeHandler());
    return handlers;
}

// A signal knows its receivers, so there is no topic to look up.

void publishQtSignal(benchmark::State &state)
{
    const Message message(topic(0), attributes());
    QObject source;
    const auto handlers = makeHandlers(state.range(1));
    for (const auto &handler : handlers)
        QObject::connect(&source, &QObject::objectNameChanged, &source,
                         [&handler, &message] { handler->handle(message); });
    bool odd = false;
    const QString names[] = {QStringLiteral("a"), QStringLiteral("b")};
    for (auto _ : state) {
        source.setObjectName(names[odd ? 1 : 0]);
        odd = !odd;
    }
}

void publishBoostSignal(benchmark::State &state)
{
    const Message message(topic(0), attributes());
    boost::signals2::signal<void(const Message &)> signal;
    const auto handlers = makeHandlers(state.range(1));
    for (const auto &handler : handlers)
        signal.connect([&handler](const Message &received) { handler->handle(received); });
    for (auto _ : state)
        signal(message);
}

void publishSigcSignal(benchmark::State &state)
{
    const Message message(topic(0), attributes());
    sigc::signal<void(const Message &)> signal;
    const auto handlers = makeHandlers(state.range(1));
    for (const auto &handler : handlers)
        signal.connect([&handler](const Message &received) { handler->handle(received); });
    for (auto _ : state)
        signal.emit(message);
}

// Topics that nobody subscribed to, in turn, in a table of all 96: argument topics.

template <typename Messages>
void addUnheard(Messages &messages)
{
    for (int i = 0; i < 96; ++i)
        messages.emplace_back(QStringLiteral("nobody.cares.%1").arg(i), attributes());
}

/// With literals for topics, which are cheaper to copy.
void unheardDirect(benchmark::State &state)
{
    std::vector<Message> messages;
    addMessages(messages, static_cast<int>(state.range(0)));
    const auto handlers = makeHandlers(static_cast<int64_t>(messages.size()));
    std::size_t next = 0;
    for (auto _ : state) {
        handlers[next]->handle(messages[next]);
        next = next + 1 < messages.size() ? next + 1 : 0;
    }
}

void unheardBus(benchmark::State &state)
{
    PanorelQueueBrocker bus;
    for (int i = 0; i < state.range(0); ++i)
        bus.subscribe(topic(i), makeHandler().release());
    std::vector<Message> messages;
    addUnheard(messages);
    publishInTurn(state, bus, messages);
}

void unheardNaive(benchmark::State &state)
{
    naive::Bus bus;
    const auto handler = makeNaiveHandler();
    for (int i = 0; i < state.range(0); ++i)
        bus.subscribe(topic(i), handler.get());
    std::vector<naive::Message> messages;
    addUnheard(messages);
    publishInTurn(state, bus, messages);
}

// Making a message.

void makeDirect(benchmark::State &state)
{
    const Message made(topic(0), attributes());
    std::vector<quint32> block(4096);
    std::size_t next = block.size();
    for (auto _ : state) {
        if (next == block.size()) {
            if (getrandom(block.data(), block.size() * sizeof(quint32), 0) < 0)
                state.SkipWithError("no randomness");
            next = 0;
        }
        quint32 id[4];
        std::copy_n(block.begin() + static_cast<std::ptrdiff_t>(next), 4, id);
        next += 4;
        Message copy(made);
        benchmark::DoNotOptimize(id);
        benchmark::DoNotOptimize(copy);
    }
}

void makeMessage(benchmark::State &state)
{
    const QString type = topic(0);
    const QVariantMap map = attributes();
    for (auto _ : state) {
        Message message(type, map);
        benchmark::DoNotOptimize(message);
    }
}

void makeNaive(benchmark::State &state)
{
    const QString type = topic(0);
    const QVariantMap map = attributes();
    for (auto _ : state) {
        naive::Message message(type, map);
        benchmark::DoNotOptimize(message);
    }
}

void addArguments(benchmark::internal::Benchmark *benchmark)
{
    // The goals, then the growth in topics and in handlers.
    benchmark->Args({96, 1})->Args({96, 16});
    for (const int topics : {1, 10, 100, 1000})
        benchmark->Args({topics, 1});
    for (const int handlers : {4, 100})
        benchmark->Args({96, handlers});
}

} // namespace

// These register by static objects. clazy:excludeall=non-pod-global-static
BENCHMARK(publishDirect)->Name("publish/direct")->Apply(addArguments);
BENCHMARK(publishBus)->Name("publish/panorel")->Apply(addArguments);
BENCHMARK(publishOtherTexts)->Name("publish/panorel-other-text")->Args({96, 1});
BENCHMARK(publishNaive)->Name("publish/naive")->Apply(addArguments);
BENCHMARK(publishQtSignal)->Name("publish/qt-signal")->Args({96, 1})->Args({96, 16});
BENCHMARK(publishBoostSignal)->Name("publish/boost-signals2")->Args({96, 1})->Args({96, 16});
BENCHMARK(publishSigcSignal)->Name("publish/sigc++")->Args({96, 1})->Args({96, 16});
BENCHMARK(unheardDirect)->Name("unheard/direct")->Arg(96);
BENCHMARK(unheardBus)->Name("unheard/panorel")->Arg(96);
BENCHMARK(unheardNaive)->Name("unheard/naive")->Arg(96);
BENCHMARK(makeDirect)->Name("make/direct");
BENCHMARK(makeMessage)->Name("make/panorel");
BENCHMARK(makeNaive)->Name("make/naive");
