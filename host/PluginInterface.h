#pragma once

#include "host/Device.h"
#include "host/DriveMode.h"
#include "host/Export.h"
#include "host/FaceInfo.h"
#include "host/ID.h"
#include "host/Replica.h"

#include <QMap>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

class IDevice;
class IInteractionService;
class IKeyboard;
class IMacrosReplacer;
class IPrinter;
class IUsersDatabase;

/// The robot as the screen sees it: settings, devices, services, and the requests to the core.
///
/// The host implements the getters and connects to the signals, which the library emits on the
/// GUI thread. signalGetReplica, signalGetAppReplica and signalScriptStart return a value to the
/// library and therefore need a direct connection. The object outlives the widget.
class PANOREL_HOST_EXPORT PluginInterface : public QObject
{
    Q_OBJECT

public:
    explicit PluginInterface(QObject *parent = nullptr);
    ~PluginInterface() override;

    /// One setting of the application's store. @p key is "/group/name". @p defaultValue when
    /// absent.
    virtual QVariant appParameter(const QString &key, const QVariant &defaultValue) const = 0;
    /// The same from the system's store.
    virtual QVariant sysParameter(const QString &key, const QVariant &defaultValue) const = 0;
    /// A whole group of the application's store: setting name to value. @p group is a bare name.
    virtual QMap<QString, QVariant> appParameterGroup(const QString &group) const = 0;
    /// The same from the system's store.
    virtual QMap<QString, QVariant> sysParameterGroup(const QString &group) const = 0;
    /// The mail account: "sender", "login", "password", "host" (texts), "port" (integer) and
    /// "sequrity" (integer, MailSender::Security; the key is spelt so).
    virtual QMap<QString, QVariant> emailParameters() const = 0;

    /// Null when the robot has no such device. A card dispenser is an IDispenser, both scanners
    /// are IScanner.
    virtual QSharedPointer<IDevice> device(const Device &device) const = 0;
    /// Null when the robot has no printer.
    virtual QSharedPointer<IPrinter> printer(const Device &device) const = 0;
    virtual QSharedPointer<IKeyboard> keyboard() const = 0;
    virtual QSharedPointer<IUsersDatabase> databaseUsers() const = 0;
    virtual QSharedPointer<IInteractionService> interactionService() const = 0;
    /// Asked anew before each use: the host may replace its replacer.
    virtual QSharedPointer<IMacrosReplacer> macrosReplacer() const = 0;

Q_SIGNALS:
    /// Choose a replica of a type. @p category holds an ID or a category name. Returns null when
    /// there is none.
    QSharedPointer<Replica> signalGetReplica(const Replica::Type &type, const QVariant &category,
                                             const bool &useGeneral, const bool &useBiometry,
                                             const FaceInfo &face);
    /// Choose the replica of an application step; otherwise like signalGetReplica.
    QSharedPointer<Replica> signalGetAppReplica(const QString &step, const QVariant &category,
                                                const bool &useGeneral, const bool &useBiometry,
                                                const FaceInfo &face);
    /// Speak a text; @p terminate says whether the dialog turn ends with it.
    void signalTTSStart(const QString &text, const bool &terminate, const bool &flag, const ID &id,
                        const Replica::Type &type);
    void signalTTSCancel();
    /// The answer set that is expected next.
    void signalAnswersAnchor(const ID &anchor);
    /// Start a script; returns what the script engine has to say about it.
    QStringList signalScriptStart(const QString &script);
    void signalScriptCancel();
    /// Switch the robot's language to a code such as "en".
    void signalLanguage(const QString &language);
    /// True calls a human operator, false withdraws the call.
    void signalOperatorCall(const bool &call);
    void signalFaceTrackingAuto(const bool &automatic);
    /// Track the face with this track id.
    void signalFaceTracking(const long long &idTrack);
    /// Learn the face with this id.
    void signalFaceAdd(const long long &id);
    /// Forget the face with this id.
    void signalFaceDelete(const long long &id);
    void signalHeadEnable(const bool &enable);
    /// Drive to the point with this number.
    void signalDrivePoint(const unsigned short &point);
    /// True pauses the drive, false resumes it.
    void signalDrivePause(const bool &pause);
    void signalDriveMode(const DriveMode &mode);
    /// True goes to the charger, false leaves it.
    void signalDriveCharger(const bool &charger);
};
