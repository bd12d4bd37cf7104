// A host's use of the library from outside: every class that it may want is exported.

#include "host/Answer.h"
#include "host/FaceRect.h"
#include "host/FaceTrainStatus.h"
#include "host/UserData.h"
#include "panorel/AsyncExecutor.h"
#include "panorel/AsyncTask.h"
#include "panorel/Constants.h"
#include "panorel/FunctionalHandler.h"
#include "panorel/Panorel.h"
#include "panorel/PanorelMessageHandler.h"
#include "panorel/PanorelProxy.h"
#include "panorel/PanorelQuestionHandler.h"
#include "panorel/PanorelQueueBrocker.h"
#include "panorel/Panorel_p.h"
#include "panorel/ReplicContext.h"
#include "panorel/RobotPaths.h"
#include "panorel/handlers/AbortRobotReplicHandler.h"
#include "panorel/handlers/DispenserHandler.h"
#include "panorel/handlers/DocumentScannerHandler.h"
#include "panorel/handlers/DriveControlHandler.h"
#include "panorel/handlers/FaceRecognizeControlHandler.h"
#include "panorel/handlers/GeneralTouchHandler.h"
#include "panorel/handlers/GetEnvironmentHandler.h"
#include "panorel/handlers/GetReplicHandler.h"
#include "panorel/handlers/GetSettingHandler.h"
#include "panorel/handlers/InteractionHandler.h"
#include "panorel/handlers/KeyboardControlHandler.h"
#include "panorel/handlers/LanguageHandler.h"
#include "panorel/handlers/LogEventHandler.h"
#include "panorel/handlers/MailSenderHandler.h"
#include "panorel/handlers/OperatorCallHandler.h"
#include "panorel/handlers/PassportScannerHandler.h"
#include "panorel/handlers/PlayExternalHandler.h"
#include "panorel/handlers/PrintHandler.h"
#include "panorel/handlers/PrintStateHandler.h"
#include "panorel/handlers/RecordAudioHandler.h"
#include "panorel/handlers/ReplicEventHandler.h"
#include "panorel/handlers/SIPControlHandler.h"
#include "panorel/handlers/ScriptControlHandler.h"
#include "panorel/handlers/SoundEventHandler.h"
#include "panorel/handlers/StatisticEventHandler.h"
#include "panorel/handlers/UserDatabaseHandler.h"

#include <cstdio>

using namespace panorel;

namespace {

int failures = 0;

void check(bool right, const char *what)
{
    if (!right) {
        std::fprintf(stderr, "wrong: %s\n", what);
        ++failures;
    }
}

/// Linked, not run: a widget needs a display.
class Screen : public Panorel
{
public:
    Screen()
        : Panorel(*new PanorelPrivate)
    { }
};

void checkBus()
{
    PanorelQueueBrocker bus;
    int received = 0;
    bus.subscribe(constants::LOG, [&received](const Message &) { ++received; });
    bus.subscribe(constants::LOG,
                  new FunctionalHandler([&received](const Message &) { ++received; }));
    bus.publish(Message(constants::LOG));
    check(received == 2, "delivery");
}

void checkHandlers()
{
    PanorelQueueBrocker bus;
    PanorelProxy proxy(&bus);
    ReplicContext context(nullptr);
    const PanorelQuestionHandler question(&bus);
    const auto add = [&bus](auto *handler) { bus.subscribe(handler->topic(), handler); };
    add(new AbortRobotReplicHandler(&context, nullptr));
    add(new DispenserHandler(nullptr, &bus));
    add(new DocumentScannerHandler(nullptr, &bus));
    add(new DriveControlHandler(nullptr));
    add(new FaceRecognizeControlHandler(nullptr));
    add(new GeneralTouchHandler(nullptr, &bus));
    add(new GetEnvironmentHandler(&bus));
    add(new GetReplicHandler(&context, &bus));
    add(new GetSettingHandler(nullptr, &bus));
    add(new InteractionHandler(nullptr, &bus));
    add(new KeyboardControlHandler(nullptr, &bus));
    add(new LanguageHandler(nullptr));
    add(new LogEventHandler);
    add(new MailSenderHandler(nullptr, &bus));
    add(new OperatorCallHandler(nullptr));
    add(new PassportScannerHandler(nullptr, &bus));
    add(new PlayExternalHandler(&bus));
    add(new PrintHandler(nullptr, &bus));
    add(new PrintStateHandler(nullptr, &bus));
    add(new RecordAudioHandler(&bus));
    add(new ReplicEventHandler(&context, nullptr, nullptr));
    add(new SIPControlHandler(&bus));
    add(new ScriptControlHandler(nullptr, &bus));
    add(new SoundEventHandler(&bus));
    add(new StatisticEventHandler(QString()));
    add(new UserDatabaseHandler(nullptr, &bus));
    new PanorelMessageHandler(&proxy);
    QStringList toPage;
    QObject::connect(&proxy, &PanorelProxy::message, [&toPage](const QJsonObject &message) {
        toPage.append(message.value(QStringLiteral("type")).toString());
    });
    proxy.sendMessage({{QStringLiteral("type"), constants::DATABASE_USER_REQUEST}});
    check(toPage == QStringList({constants::DATABASE_USER_RESPONSE}), "request and reply");
}

void checkTasks()
{
    int calls = 0;
    AsyncTask([&calls] { ++calls; }).run();
    {
        AsyncExecutor executor(1);
        executor.execute([&calls] { ++calls; });
    }
    check(calls == 2, "tasks");
}

void checkRecords()
{
    Replica replica;
    replica.setActions(QStringLiteral("wave,nod"));
    Answer answer;
    answer.setReplica(replica);
    check(answer.replica().actions().size() == 2, "dialog records");
    UserData user;
    FaceInfo face;
    face.setId(7);
    user.setInfo(face);
    check(user.toJson().value(QStringLiteral("id")).toInt() == 7, "people");
    check(FaceRect(QRectF(), 3).idTrack() + FaceTrainStatus(4).step() == 7, "faces");
}

} // namespace

int main(int argc, char **)
{
    if (argc > 1)
        Screen().show();
    checkBus();
    checkHandlers();
    checkTasks();
    checkRecords();
    check(paths::statisticDirectory() == QStringLiteral("/home/karvel/.karvel/statistic/"),
          "default folder of the statistics");
    return failures;
}
