#include "tests/fuzz/Signals.h"

#include "panorel/Constants.h"
#include "panorel/PanorelMessageHandler.h"
#include "tests/fuzz/JsonSource.h"
#include "tests/fuzz/Robot.h"
#include "tests/support/TestTelephone.h"

#include "host/FaceInfo.h"
#include "host/FaceRect.h"
#include "host/SIPMaster.h"

#include <QAudioRecorder>
#include <QMediaPlayer>

using namespace panorel;

namespace {

Signal nothing()
{
    return {[] {}, 0, {}};
}

Signal printerSignal(TestPrinter *printer, ByteReader *reader, JsonSource *source)
{
    if (!printer)
        return nothing();
    const int number = reader->signedByte();
    if (reader->flag())
        return {[=] { Q_EMIT printer->signalState(static_cast<PrinterState>(number)); }, 0, {}};
    const QString text = source->text();
    return {[=] { Q_EMIT printer->signalError(number, text); }, 0, {}};
}

Signal dispenserSignal(TestDispenser *dispenser, ByteReader *reader)
{
    if (!dispenser)
        return nothing();
    const auto code = reader->bits<std::uint16_t>();
    return {[=] { Q_EMIT dispenser->statusChanged(code); },
            10,
            {constants::DISPENSER_NOT_CONNECTED, constants::DISPENSER_COMMUNICATION_TIMEOUT,
             constants::DISPENSER_CARD_DISPENSING, constants::DISPENSER_CARD_PREEMPTY,
             constants::DISPENSER_CARD_EMPTY, constants::DISPENSER_CARDBIN_FULL,
             constants::DISPENSER_CARD_ERROR, constants::DISPENSER_SENSOR}};
}

Signal scannerSignal(TestScanner *scanner, bool isPassport, ByteReader *reader, JsonSource *source)
{
    if (!scanner)
        return nothing();
    const int number = reader->signedByte();
    const QString text = source->text();
    switch (reader->below(4)) {
    case 0:
        return {
            [=] { Q_EMIT scanner->signalError(number, text); },
            1,
            {isPassport ? constants::SCANNER_PASSPORT_ERROR : constants::SCANNER_DOCUMENT_ERROR}};
    case 1:
        return {
            [=] { Q_EMIT scanner->signalState(static_cast<ScannerState>(number)); },
            1,
            {isPassport ? constants::SCANNER_PASSPORT_STATE : constants::SCANNER_DOCUMENT_STATE}};
    case 2: {
        const auto progress = reader->bits<double>(); // of any kind
        return {[=] { Q_EMIT scanner->signalProgress(progress); },
                isPassport ? 0 : 1,
                {constants::SCANNER_DOCUMENT_PROGRESS}};
    }
    default:
        return {
            [=] {
                Q_EMIT scanner->signalFinish({{text, text}});
            },
            1,
            {isPassport ? constants::SCANNER_PASSPORT_FINISH : constants::SCANNER_DOCUMENT_FINISH}};
    }
}

Signal telephoneSignal(SIPMaster *client, ByteReader *reader)
{
    if (!client)
        return nothing();
    const int number = reader->signedByte();
    switch (reader->below(3)) {
    case 0:
        return {[=] { Q_EMIT client->signalHiddenCallResult(QUuid::createUuid(), number > 0); },
                1,
                {constants::SIP_EVENTS}};
    case 1:
        return {[=] { Q_EMIT client->signalPublicCallState(static_cast<CallState>(number)); },
                1,
                {constants::SIP_EVENTS}};
    default:
        return {[=] { Q_EMIT client->signalTone(number); }, 1, {constants::SIP_EVENTS}};
    }
}

Signal interactionSignal(IInteractionService *service, ByteReader *reader)
{
    const auto reason = static_cast<Interaction::Reason>(reader->signedByte());
    const bool isStart = reader->flag();
    return {[=] {
                if (isStart)
                    Q_EMIT service->started(reason);
                else
                    Q_EMIT service->finished();
            },
            1,
            {constants::INTERACTION_STATE}};
}

Signal question(PanorelQuestionHandler *handler, ByteReader *reader, JsonSource *source)
{
    if (!handler)
        return nothing();
    const bool isNew = reader->flag();
    const QString text = source->text();
    return {[=] {
                QString asked = text;
                QStringList answers(text);
                if (isNew)
                    handler->setQuestion(asked, answers, false);
                else
                    handler->cancel();
            },
            1,
            {constants::QUESTION_NEW, constants::QUESTION_CANCEL}};
}

Signal mediaSignal(const Robot *robot, ByteReader *reader)
{
    QMediaPlayer *const player = robot->player();
    QAudioRecorder *const recorder = robot->recorder();
    if (!player || !recorder)
        return nothing();
    const int number = reader->below(8);
    switch (reader->below(4)) {
    case 0:
        return {[=] { Q_EMIT player->stateChanged(static_cast<QMediaPlayer::State>(number % 3)); },
                1,
                {constants::PLAY_STATUS}};
    case 1:
        return {[=] {
                    Q_EMIT player->mediaStatusChanged(
                        static_cast<QMediaPlayer::MediaStatus>(number));
                },
                1,
                {constants::PLAY_STATUS}};
    case 2:
        return {[=] { Q_EMIT player->error(static_cast<QMediaPlayer::Error>(number % 6)); },
                1,
                {constants::PLAY_STATUS}};
    default:
        return {
            [=] { Q_EMIT recorder->statusChanged(static_cast<QMediaRecorder::Status>(number)); },
            0,
            {}};
    }
}

Signal faceReport(Robot *robot, ByteReader *reader)
{
    const int count = reader->below(4);
    const QStringList topics{constants::GENERAL_TOUCH};
    if (reader->flag()) {
        QVector<FaceInfoPtr> faces;
        for (int i = 0; i < count; ++i) {
            const int id = reader->signedByte();
            faces.append(id == 0 ? FaceInfoPtr() : FaceInfoPtr::create());
            if (faces.last())
                faces.last()->setIdTrack(id);
        }
        return {[=] { robot->reportFaces(faces); }, 1, topics};
    }
    QVector<FaceRectPtr> rects;
    for (int i = 0; i < count; ++i) {
        const int id = reader->signedByte();
        const auto width = reader->bits<double>(); // of any kind
        rects.append(id == 0 ? FaceRectPtr()
                             : FaceRectPtr::create(QRectF(-10.0, -10.0, width, width), id));
    }
    return {[=] { robot->reportRects(rects); }, 1, topics};
}

Signal robotEvent(Robot *robot, ByteReader *reader, JsonSource *source)
{
    const QString topic = reader->oneOf(PanorelMessageHandler::topics());
    const Message message(topic, source->object(2).toVariantMap());
    return {[=] { robot->bus()->publish(message); }, 1, {topic}};
}

} // namespace

Signal drawSignal(Robot *robot, ByteReader *reader, JsonSource *source)
{
    TestPlugin *const plugin = robot->plugin();
    switch (reader->below(10)) {
    case 0:
        return printerSignal(plugin->printerDevice.data(), reader, source);
    case 1:
        return dispenserSignal(plugin->dispenser.data(), reader);
    case 2:
        return scannerSignal(plugin->passportScanner.data(), true, reader, source);
    case 3:
        return scannerSignal(plugin->documentScanner.data(), false, reader, source);
    case 4:
        return telephoneSignal(TestTelephone::instance().client, reader);
    case 5:
        return interactionSignal(plugin->interaction.data(), reader);
    case 6:
        return question(robot->questionHandler(), reader, source);
    case 7:
        return mediaSignal(robot, reader);
    case 8:
        return faceReport(robot, reader);
    default:
        return robotEvent(robot, reader, source);
    }
}
