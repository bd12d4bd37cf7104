#pragma once

#include <QObject>

/// What a test notes of a signal. It is the connection's context, too, so that nothing is noted any
/// more once the value has gone.
template <typename Value>
struct Noted : QObject
{
    Value value{};
};
