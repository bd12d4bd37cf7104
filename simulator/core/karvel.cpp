#include "host/karvel.h"

#include "simulator/core/Mixer.h"
#include "simulator/core/ShellCommand.h"

using simulator::Mixer;

namespace karvel {

namespace {

const int TimeLimit = 10000;

} // namespace

QString exec(const QString &command) { return simulator::ShellCommand(command).run(TimeLimit); }

int getSoundVolume() { return Mixer::instance().soundVolume(); }

void setSoundVolume(const int &volume) { Mixer::instance().setSoundVolume(volume); }

int getMicVolume() { return Mixer::instance().microphoneLevel(); }

void setMicVolume(const int &volume) { Mixer::instance().setMicrophoneLevel(volume); }

} // namespace karvel
