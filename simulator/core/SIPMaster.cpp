#include "host/SIPMaster.h"

#include "simulator/core/TelephoneLine.h"

#include <QList>
#include <QTimer>

using simulator::TelephoneLine;

/// One line: the ordinary call has it first, then the queued calls, one after the other.
struct SIPMaster::Private
{
    struct QueuedCall
    {
        QUuid id;
        QString number;
        int attempts = 1; // that are left
    };

    explicit Private(SIPMaster *master);
    ~Private();
    Q_DISABLE_COPY(Private)

    QUuid enqueue(const QString &content, const QString &number, int recallCount);
    void dialNext();
    void step();
    void stepPublicCall();
    void stepQueuedCall();
    void stepUnansweredCall(CallState state);
    void endPublicCall(CallState state);
    void setQueuedState(CallState state);
    void endQueuedCall(bool success, CallState state);
    void hangUp();
    void setPublicState(CallState state);
    void dropCall();

    SIPMaster *q;
    QTimer timer;
    CallState publicState = CallStateIdle;
    bool publicCall = false;
    CallState queuedState = CallStateIdle; // of the first queued call
    QList<QueuedCall> queue;
};

SIPMaster::Private::Private(SIPMaster *master)
    : q(master)
{
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, q, [this] { step(); });

    TelephoneLine &line = TelephoneLine::instance();
    QObject::connect(&line, &TelephoneLine::keyPressed, q, [this](int tone) {
        if (publicState == CallStateConnected || queuedState == CallStateConnected)
            Q_EMIT q->signalTone(tone);
    });
    QObject::connect(&line, &TelephoneLine::hungUp, q, [this] {
        if (publicState == CallStateConnected || queuedState == CallStateConnected)
            hangUp();
    });
}

SIPMaster::Private::~Private() { dropCall(); }

QUuid SIPMaster::Private::enqueue(const QString &content, const QString &number, int recallCount)
{
    if (content.isEmpty() || number.isEmpty())
        return {};
    const int attempts = 1 + qBound(0, recallCount, 100);
    const QUuid id = QUuid::createUuid();
    queue.append({id, number, attempts});
    dialNext();
    return id;
}

// Nothing is reported before the caller has its answer, so dialling begins with the timer.
void SIPMaster::Private::dialNext()
{
    if (!timer.isActive() && !publicCall && queuedState == CallStateIdle && !queue.isEmpty())
        timer.start(0);
}

void SIPMaster::Private::step()
{
    if (publicCall)
        stepPublicCall();
    else if (!queue.isEmpty())
        stepQueuedCall();
}

void SIPMaster::Private::stepPublicCall()
{
    const TelephoneLine &line = TelephoneLine::instance();
    if (publicState == CallStateIdle) {
        timer.start(line.diallingTime());
        setPublicState(CallStateCalling);
    } else if (publicState == CallStateCalling && line.outcome() == TelephoneLine::Outcome::Busy) {
        endPublicCall(CallStateBusy);
    } else if (publicState == CallStateCalling) {
        timer.start(line.ringingTime());
        setPublicState(CallStateRinging);
    } else if (line.outcome() == TelephoneLine::Outcome::Answered) {
        setPublicState(CallStateConnected); // until somebody hangs up
    } else {
        endPublicCall(CallStateFailed);
    }
}

void SIPMaster::Private::stepQueuedCall()
{
    TelephoneLine &line = TelephoneLine::instance();
    switch (queuedState) {
    case CallStateIdle:
        timer.start(line.diallingTime() + line.ringingTime());
        line.reportDialled(queue.constFirst().number);
        setQueuedState(CallStateCalling);
        break;
    case CallStateCalling:
        if (line.outcome() == TelephoneLine::Outcome::Answered) {
            timer.start(line.playingTime());
            setQueuedState(CallStateConnected);
            break;
        }
        stepUnansweredCall(line.outcome() == TelephoneLine::Outcome::Busy ? CallStateBusy
                                                                          : CallStateFailed);
        break;
    default:
        endQueuedCall(true, CallStateEnded);
        break;
    }
}

// Once more, or never again.
void SIPMaster::Private::stepUnansweredCall(CallState state)
{
    if (--queue.first().attempts > 0) {
        queuedState = CallStateIdle;
        timer.start(TelephoneLine::instance().diallingTime());
        TelephoneLine::instance().reportState(state);
    } else {
        endQueuedCall(false, state);
    }
}

void SIPMaster::Private::endPublicCall(CallState state)
{
    timer.stop();
    publicCall = false;
    publicState = CallStateIdle;
    dialNext();
    TelephoneLine::instance().reportState(state);
    Q_EMIT q->signalPublicCallState(state);
}

void SIPMaster::Private::setQueuedState(CallState state)
{
    queuedState = state;
    TelephoneLine::instance().reportState(state);
}

void SIPMaster::Private::endQueuedCall(bool success, CallState state)
{
    timer.stop();
    queuedState = CallStateIdle;
    const QUuid id = queue.takeFirst().id;
    dialNext();
    TelephoneLine::instance().reportState(state);
    Q_EMIT q->signalHiddenCallResult(id, success);
}

void SIPMaster::Private::hangUp()
{
    if (publicCall)
        endPublicCall(CallStateEnded);
    else if (queuedState != CallStateIdle)
        endQueuedCall(false, CallStateEnded);
}

void SIPMaster::Private::setPublicState(CallState state)
{
    publicState = state;
    TelephoneLine::instance().reportState(state);
    Q_EMIT q->signalPublicCallState(state);
}

// The line is free; nobody else is told.
void SIPMaster::Private::dropCall()
{
    if (publicState != CallStateIdle || queuedState != CallStateIdle)
        TelephoneLine::instance().reportState(CallStateEnded);
}

SIPMaster::SIPMaster(QObject *parent)
    : QObject(parent)
    , d(new Private(this))
{ }

SIPMaster::~SIPMaster() { delete d; }

bool SIPMaster::callToNumber(const QString &number)
{
    if (number.isEmpty() || d->publicCall || d->queuedState != CallStateIdle)
        return false;
    d->publicCall = true;
    d->timer.start(0);
    TelephoneLine::instance().reportDialled(number);
    return true;
}

QUuid SIPMaster::playFileToNumber(const QString &file, const QString &number,
                                  const int &recallCount)
{
    return d->enqueue(file, number, recallCount);
}

QUuid SIPMaster::playTextToNumber(const QString &text, const QString &number,
                                  const int &recallCount)
{
    return d->enqueue(text, number, recallCount);
}

void SIPMaster::clearQueue()
{
    if (!d->publicCall) {
        d->timer.stop();
        d->dropCall();
    }
    d->queuedState = CallStateIdle;
    d->queue.clear();
}

void SIPMaster::stopCall() { d->hangUp(); }
