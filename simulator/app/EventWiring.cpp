#include "simulator/app/EventWiring.h"

#include "host/FaceTrainStatus.h"
#include "host/UserData.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDialogModule.h"
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
    connectTo(core->dialog(), &SimulatedDialogModule::heard, &Screen::userSaid);
    connectTo(core->dialog(), &SimulatedDialogModule::greetingChosen, &Screen::greeting);
    connectTo(core->dialog(), &SimulatedDialogModule::extraReplicaChosen, &Screen::extraReplica);
    connectTo(core->dialog(), &SimulatedDialogModule::answerFound, &Screen::answerResult);
    connectTo(core->speech(), &SimulatedSpeech::started, &Screen::robotReplicStart);
    connectTo(core->speech(), &SimulatedSpeech::finished, &Screen::robotReplicFinish);
    connectTo(core->drive(), &SimulatedDrive::modeChanged, &Screen::driveMode);
    connectTo(core->drive(), &SimulatedDrive::statusChanged, &Screen::driveStatus);
    connectTo(core->drive(), &SimulatedDrive::chargerStatusChanged, &Screen::driveChargerStatus);
    connectTo(core->scripts(), &SimulatedScripts::finished, &Screen::scriptEnd);
    connectTo(core->operatorDesk(), &OperatorDesk::responded, &Screen::operatorResponse);
    connectTo(core->operatorDesk(), &OperatorDesk::controlChanged, &Screen::operatorControl);
    connectTo(core->faces(), &SimulatedFaces::trainStatusChanged, &Screen::faceAddStatus);
    connectTo(&core->plugin()->applicationSettings(), &SettingsStore::changed,
              &Screen::updateSettings);
    connectTo(&core->plugin()->systemSettings(), &SettingsStore::changed, &Screen::updateSettings);
    connectTo(core->camera(), &SimulatedCamera::userSeen, &Screen::hasUser);
    connectTo(core->camera(), &SimulatedCamera::userLost, &Screen::lostUser);
    connectTo(core->camera(), &SimulatedCamera::mainFaceChanged, &Screen::faceGeneral);
    connectTo(core->camera(), &SimulatedCamera::reported,
              [screen](const QVector<FaceRectPtr> &rects, const QVector<FaceInfoPtr> &faces) {
                  screen->faceRect(rects);
                  screen->faceInfo(faces);
              });
    // Rectangles are reported in pixels of the page, which fills the screen.
    QObject::connect(screen, &Screen::resized, core->camera(), &SimulatedCamera::setPictureSize);

    // Last: the page hears of the person before the robot greets.
    // The robot talks with the first whom it knows, until nobody whom it knows is left.
    QObject::connect(core->camera(), &SimulatedCamera::userSeen, core->dialog(),
                     [core](const UserData &person) {
                         if (core->camera()->knownPeople() == 1)
                             core->dialog()->meet(person);
                     });
    QObject::connect(core->camera(), &SimulatedCamera::userLost, core->dialog(), [core] {
        if (core->camera()->knownPeople() == 0)
            core->dialog()->part();
    });
}

} // namespace simulator
