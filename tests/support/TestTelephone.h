#pragma once

#include "tests/support/HostCall.h"

#include <QPointer>
#include <QUuid>

#include <functional>

class SIPMaster;

/// The telephone in a program that is linked with TestTelephone.cpp: it defines SIPMaster instead of
/// the simulator. The calls are kept, the signals are the test's to emit. GUI thread.
struct TestTelephone
{
    static TestTelephone &instance();

    /// "callToNumber" (number), "playFileToNumber" (file, number, count), "playTextToNumber" (text,
    /// number, count), "clearQueue", "stopCall", in the order in which they were made.
    QVector<HostCall> calls;

    QPointer<SIPMaster> client; ///< the one made last
    int clients = 0; ///< that live
    bool started = true; ///< answered to every ordinary call
    QUuid queued; ///< answered to every queued call
    std::function<void()> duringCall; ///< called before each operation returns
};
