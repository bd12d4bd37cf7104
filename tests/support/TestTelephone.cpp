#include "tests/support/TestTelephone.h"

#include "host/SIPMaster.h"

namespace {

TestTelephone &kept(const char *call, const QVariantList &arguments = {})
{
    TestTelephone &telephone = TestTelephone::instance();
    telephone.calls.append({QString::fromLatin1(call), arguments});
    if (telephone.duringCall)
        telephone.duringCall();
    return telephone;
}

} // namespace

TestTelephone &TestTelephone::instance()
{
    static TestTelephone telephone;
    return telephone;
}

struct SIPMaster::Private
{ };

SIPMaster::SIPMaster(QObject *parent)
    : QObject(parent)
    , d(new Private)
{
    TestTelephone::instance().client = this;
    ++TestTelephone::instance().clients;
}

SIPMaster::~SIPMaster()
{
    --TestTelephone::instance().clients;
    delete d;
}

bool SIPMaster::callToNumber(const QString &number)
{
    return kept("callToNumber", {number}).started;
}

QUuid SIPMaster::playFileToNumber(const QString &file, const QString &number,
                                  const int &recallCount)
{
    return kept("playFileToNumber", {file, number, recallCount}).queued;
}

QUuid SIPMaster::playTextToNumber(const QString &text, const QString &number,
                                  const int &recallCount)
{
    return kept("playTextToNumber", {text, number, recallCount}).queued;
}

void SIPMaster::clearQueue() { kept("clearQueue"); }

void SIPMaster::stopCall() { kept("stopCall"); }
