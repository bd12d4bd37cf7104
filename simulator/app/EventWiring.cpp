#include "simulator/app/EventWiring.h"

#include "host/FaceTrainStatus.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SimulatedScripts.h"
#include "simulator/core/SimulatedSpeech.h"

namespace simulator {

void wireEvents(RobotCore *core, RobotScreen *screen)
{
    using Screen = RobotScreen;
    const auto connectTo = [screen](auto *part, auto signal, auto method) {
        QObject::connect(part, signal, screen, method);
    };
    connectTo(core->speech(), &SimulatedSpeech::started, &Screen::robotReplicStart);
    connectTo(core->speech(), &SimulatedSpeech::finished, &Screen::robotReplicFinish);
    connectTo(core->drive(), &SimulatedDrive::modeChanged, &Screen::driveMode);
    connectTo(core->drive(), &SimulatedDrive::statusChanged, &Screen::driveStatus);
    connectTo(core->drive(), &SimulatedDrive::chargerStatusChanged, &Screen::driveChargerStatus);
    connectTo(core->scripts(), &SimulatedScripts::finished, &Screen::scriptEnd);
    connectTo(core->operatorDesk(), &OperatorDesk::responded, &Screen::operatorResponse);
    connectTo(core->operatorDesk(), &OperatorDesk::controlChanged, &Screen::operatorControl);
    connectTo(core->faces(), &SimulatedFaces::trainStatusChanged, &Screen::faceAddStatus);
}

} // namespace simulator
