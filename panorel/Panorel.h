#pragma once

#include "panorel/Export.h"
#include "panorel/Message.h"

#include "host/ChargerMovementStatus.h"
#include "host/DriveMode.h"
#include "host/MovementStatus.h"
#include "host/RetData.h"

#include <QMap>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <QWidget>

#include <functional>

class Answer;
class FaceInfo;
class FaceRect;
class FaceTrainStatus;
class KarvelDialogModule;
class PluginInterface;
class Replica;
class UserData;

namespace panorel {

class MessageHandler;
class MessageQueueBrocker;
class PanorelPrivate;

/// The widget on the robot's screen: shows the page, and joins it over a message bus to the robot.
///
/// Start-up: construct; setStatisticPeriodicity(), if wanted; defaultHandlers(); then
/// registerEventHandler() for topics of the host's own; load(); show. From then on report what
/// happens on the robot with the event methods: each publishes one message, which every subscriber
/// has handled when the method returns. All of it on the GUI thread.
///
/// Must not be deleted while one of its messages is delivered; use deleteLater() from a handler.
class PANOREL_EXPORT Panorel : public QWidget
{
    Q_OBJECT

public:
    explicit Panorel(QWidget *parent = nullptr);

    /// Deletes the bus with every handler; @p plugin and dialog module of defaultHandlers() must
    /// still be alive.
    ~Panorel() override;

    /// The bus, for host code that publishes or subscribes itself. Owned by the widget.
    MessageQueueBrocker *brocker() const;

    /// Builds the standard set of handlers, after deleting every handler subscribed so far, the
    /// host's own included. Neither pointer is owned; both outlive the widget. Null pointers are
    /// survived: devices count as missing and requests that need the host are dropped. Replicas
    /// and macros keep to the plugin of the first call.
    void defaultHandlers(PluginInterface *plugin, KarvelDialogModule *dialog);

    /// Subscribes @p handler, which the bus owns from now on. Call after defaultHandlers().
    void registerEventHandler(const QString &topic, MessageHandler *handler);
    void registerEventHandler(const QString &topic, std::function<void(panorel::Message)> function);

    /// Period of one folder of statistics files: "year", "month" or "week"; anything else means a
    /// day. Counts from the next defaultHandlers() on.
    void setStatisticPeriodicity(const QString &periodicity);

    /// Forgets visited links and the HTTP cache, then loads @p url (parsed tolerantly). Any load but
    /// the first begins 200 ms later, when the cache is clear; of two in that time the later one
    /// counts. The other arguments are ignored; they keep older callers compiling.
    void load(const QString &url, const QString & = QString(), bool = false);

    // What happens on the robot. Enumerations travel as their integer values. Pointers must not be
    // null; what is null is passed over.

    /// "user.has.user": the person's attributes, and its id as "user_id".
    void hasUser(const UserData &user);
    /// "user.lost.user".
    void lostUser();
    /// "dialog.user.said": "text" and "is_finish", false while the recognition still changes it.
    void userSaid(const QString &text, bool isFinish);
    /// "dialog.greeting.load": "greeting", the replica without its screen text.
    void greeting(const QSharedPointer<Replica> &replica);
    /// "dialog.replica.extra.load": "replica".
    void extraReplica(const QSharedPointer<Replica> &replica);
    /// "dialog.answer.load": "answer", what the dialog engine answers to what the user said.
    void answerResult(const QSharedPointer<Answer> &answer);
    /// "dialog.action": "meta", a list of texts.
    void userAction(const QStringList &meta);
    /// "dialog.robot.replic.start": "text".
    void robotReplicStart(const QString &text);
    /// "dialog.robot.replic.finish"; then withdraws the macro values of this turn.
    void robotReplicFinish();
    /// "system.settings.update".
    void updateSettings();
    /// "system.scripts.end".
    void scriptEnd();
    /// "system.custom.event.core": @p attributes as they are. JSON must be able to carry them;
    /// "id" and "type" do not reach the page.
    void customEvent(const QMap<QString, QVariant> &attributes);
    /// "system.application.finish": "name", "status", and @p result, unchanged, as "data".
    void applicationFinish(const QString &name, const RetData::FinishStatus &status,
                           const QVariant &result);
    /// "system.drive.mode": "mode".
    void driveMode(const DriveMode &mode);
    /// "system.drive.status": "status".
    void driveStatus(const MovementStatus &status);
    /// "system.drive.charge": "charge".
    void driveChargerStatus(const ChargerMovementStatus &status);
    /// "face.add.status": "status", the training step.
    void faceAddStatus(const FaceTrainStatus &status);
    /// "face.recognize.general": "general", the face that counts most now, in the host's numbering.
    void faceGeneral(const long long &general);
    /// "face.recognize.info": "info", the faces that the camera sees, each under a random key; and
    /// before that, inside only, "system.general.touch" with the vector itself.
    void faceInfo(const QVector<QSharedPointer<FaceInfo>> &faces);
    /// "system.general.touch", inside only: where the faces stand, for a later touch of the page.
    void faceRect(const QVector<QSharedPointer<FaceRect>> &rects);
    /// "operator.control.status": "status", whether an operator has taken over.
    void operatorControl(const bool &status);
    /// "operator.call.response": "response", the code as decimal text.
    void operatorResponse(const unsigned char &response);
    /// "system.page.hidden": "close".
    void pageHidden(const bool &close);

protected:
    /// For subclasses with a private part of their own, which the widget owns from now on.
    explicit Panorel(PanorelPrivate &d, QWidget *parent = nullptr);

    PanorelPrivate *const d;
};

} // namespace panorel
