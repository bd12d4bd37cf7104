#pragma once

#include <QStringList>

#include <functional>

class ByteReader;
class JsonSource;
class Robot;

/// Something that the robot does by itself, and what it may publish: at most so many messages.
struct Signal
{
    std::function<void()> emitSignal;
    int most;
    QStringList topics;
};

/// Draws a signal of a device, a service or the multimedia system, or a robot event of the widget.
Signal drawSignal(Robot *robot, ByteReader *reader, JsonSource *source);
