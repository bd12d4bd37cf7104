#include "tests/support/TestPlatform.h"

#include "host/RobotInfo.h"
#include "host/karvel.h"

TestPlatform &TestPlatform::instance()
{
    static TestPlatform platform;
    return platform;
}

QUuid RobotInfo::uuidRobot() { return TestPlatform::instance().robot; }
QUuid RobotInfo::uuidOwner() { return TestPlatform::instance().owner; }
QString RobotInfo::name() { return TestPlatform::instance().name; }
QDateTime RobotInfo::dateOfCreation() { return TestPlatform::instance().dateOfCreation; }

namespace karvel {

namespace {

TestPlatform &kept(const char *call, const QVariantList &arguments = {})
{
    TestPlatform &platform = TestPlatform::instance();
    platform.calls.append({QString::fromLatin1(call), arguments});
    return platform;
}

} // namespace

QString exec(const QString &command) { return kept("exec", {command}).output; }

int getSoundVolume() { return kept("getSoundVolume").soundVolume; }

void setSoundVolume(const int &volume) { kept("setSoundVolume", {volume}).soundVolume = volume; }

int getMicVolume() { return kept("getMicVolume").microphoneLevel; }

void setMicVolume(const int &level) { kept("setMicVolume", {level}).microphoneLevel = level; }

} // namespace karvel
