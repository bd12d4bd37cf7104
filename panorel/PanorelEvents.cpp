// The widget's event methods: what happens on the robot, as messages.

#include "panorel/Constants.h"
#include "panorel/MessageQueueBrocker.h"
#include "panorel/Panorel.h"
#include "panorel/Panorel_p.h"
#include "panorel/RecordConversion.h"
#include "panorel/ReplicContext.h"

#include "host/FaceInfo.h"
#include "host/FaceRect.h"
#include "host/FaceTrainStatus.h"
#include "host/UserData.h"

namespace panorel {

using namespace constants;

void Panorel::hasUser(const UserData &user)
{
    QVariantMap attributes = user.toJson().toVariantMap();
    // The envelope's "id" hides the person's, so the page learns it under a second name.
    attributes.insert(QStringLiteral("user_id"), attributes.value(QStringLiteral("id")));
    d->brocker->publish(Message(USER_HAS, attributes));
}

void Panorel::lostUser() { d->brocker->publish(Message(USER_LOST)); }

void Panorel::userSaid(const QString &text, bool isFinish)
{
    d->brocker->publish(Message(
        USER_SAID, {{QStringLiteral("text"), text}, {QStringLiteral("is_finish"), isFinish}}));
}

void Panorel::greeting(const QSharedPointer<Replica> &replica)
{
    if (!replica)
        return;
    // A greeting is shown by its spoken text alone.
    d->brocker->publish(Message(
        LOAD_GREETING, {{QStringLiteral("greeting"), toMap(*replica, ScreenText::LeftOut)}}));
}

void Panorel::extraReplica(const QSharedPointer<Replica> &replica)
{
    if (!replica)
        return;
    d->brocker->publish(
        Message(LOAD_EXTRA_REPLICA, {{QStringLiteral("replica"), toMap(*replica)}}));
}

void Panorel::answerResult(const QSharedPointer<Answer> &answer)
{
    if (!answer)
        return;
    d->brocker->publish(Message(LOAD_ANSWER, {{QStringLiteral("answer"), toMap(*answer)}}));
}

void Panorel::userAction(const QStringList &meta)
{
    d->brocker->publish(Message(USER_ACTION, {{QStringLiteral("meta"), meta}}));
}

void Panorel::robotReplicStart(const QString &text)
{
    d->brocker->publish(Message(ROBOT_REPLIC_START, {{QStringLiteral("text"), text}}));
}

void Panorel::robotReplicFinish()
{
    d->brocker->publish(Message(ROBOT_REPLIC_FINISH));
    if (d->context)
        d->context->clear();
}

void Panorel::updateSettings() { d->brocker->publish(Message(SETTINGS_UPDATE)); }

void Panorel::scriptEnd() { d->brocker->publish(Message(SCRIPTS_END)); }

void Panorel::customEvent(const QMap<QString, QVariant> &attributes)
{
    d->brocker->publish(Message(CUSTOM_EVENT_CORE, attributes));
}

void Panorel::applicationFinish(const QString &name, const RetData::FinishStatus &status,
                                const QVariant &result)
{
    d->brocker->publish(Message(APPLICATION_FINISH,
                                {{QStringLiteral("name"), name},
                                 {QStringLiteral("status"), static_cast<int>(status)},
                                 {QStringLiteral("data"), result}}));
}

void Panorel::driveMode(const DriveMode &mode)
{
    d->brocker->publish(Message(DRIVE_MODE, {{QStringLiteral("mode"), static_cast<int>(mode)}}));
}

void Panorel::driveStatus(const MovementStatus &status)
{
    d->brocker->publish(
        Message(DRIVE_STATUS, {{QStringLiteral("status"), static_cast<int>(status)}}));
}

void Panorel::driveChargerStatus(const ChargerMovementStatus &status)
{
    d->brocker->publish(
        Message(DRIVE_CHARGE, {{QStringLiteral("charge"), static_cast<int>(status)}}));
}

void Panorel::faceAddStatus(const FaceTrainStatus &status)
{
    d->brocker->publish(Message(FACE_ADD_STATUS, {{QStringLiteral("status"), status.step()}}));
}

void Panorel::faceGeneral(const long long &general)
{
    d->brocker->publish(Message(FACE_RECOGNIZE_GENERAL, {{QStringLiteral("general"), general}}));
}

void Panorel::faceInfo(const QVector<QSharedPointer<FaceInfo>> &faces)
{
    const QString key = QStringLiteral("info");
    // A copy: a subscriber may make the host drop its vector.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QVector<QSharedPointer<FaceInfo>> seen = faces;
    // First the touch handler, so that it knows the faces no later than the page.
    d->brocker->publish(Message(GENERAL_TOUCH, {{key, QVariant::fromValue(seen)}}));

    d->brocker->publish(Message(FACE_RECOGNIZE_INFO, {{key, toMap(seen)}}));
}

void Panorel::faceRect(const QVector<QSharedPointer<FaceRect>> &rects)
{
    d->brocker->publish(
        Message(GENERAL_TOUCH, {{QStringLiteral("rect"), QVariant::fromValue(rects)}}));
}

void Panorel::operatorControl(const bool &status)
{
    d->brocker->publish(Message(OPERATOR_CONTROL_STATUS, {{QStringLiteral("status"), status}}));
}

void Panorel::operatorResponse(const unsigned char &response)
{
    // Text, not a number: pages compare it with text.
    d->brocker->publish(
        Message(OPERATOR_CALL_RESPONSE, {{QStringLiteral("response"), QString::number(response)}}));
}

void Panorel::pageHidden(const bool &close)
{
    d->brocker->publish(Message(SYSTEM_PAGE_HIDDEN, {{QStringLiteral("close"), close}}));
}

} // namespace panorel
