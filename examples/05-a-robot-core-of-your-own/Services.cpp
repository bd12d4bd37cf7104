// The least that a robot core defines: the services' own operations, all of them doing nothing.

#include "host/DatabaseDefaults.h"
#include "host/MailSender.h"
#include "host/RobotInfo.h"
#include "host/SIPMaster.h"
#include "host/karvel.h"

struct SIPMaster::Private
{ };

SIPMaster::SIPMaster(QObject *parent)
    : QObject(parent)
    , d(new Private)
{ }
SIPMaster::~SIPMaster() { delete d; }
bool SIPMaster::callToNumber(const QString &) { return false; }
QUuid SIPMaster::playFileToNumber(const QString &, const QString &, const int &) { return {}; }
QUuid SIPMaster::playTextToNumber(const QString &, const QString &, const int &) { return {}; }
void SIPMaster::clearQueue() { }
void SIPMaster::stopCall() { }

struct MailSender::Private
{ };

MailSender::MailSender(const QString &, const int &, const MailSender::Security &, const QString &,
                       const QString &, QObject *parent)
    : QObject(parent)
    , d(new Private)
{ }
MailSender::~MailSender() { delete d; }
void MailSender::send(const QString &, const QString &, const QString &, const QString &,
                      const QStringList &)
{ }

QUuid RobotInfo::uuidRobot() { return {}; }
QUuid RobotInfo::uuidOwner() { return {}; }
QString RobotInfo::name() { return {}; }
QDateTime RobotInfo::dateOfCreation() { return {}; }

ID DatabaseDefaults::defaultCategory() { return {}; }

QString karvel::exec(const QString &) { return {}; }
int karvel::getSoundVolume() { return 0; }
void karvel::setSoundVolume(const int &) { }
int karvel::getMicVolume() { return 0; }
void karvel::setMicVolume(const int &) { }
