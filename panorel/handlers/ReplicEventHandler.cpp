#include "panorel/handlers/ReplicEventHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/RecordConversion.h"
#include "panorel/ReplicContext.h"

#include "host/KarvelDialogModule.h"
#include "host/PluginInterface.h"

#include <QDebug>

namespace panorel {

ReplicEventHandler::ReplicEventHandler(ReplicContext *context, PluginInterface *plugin,
                                       KarvelDialogModule *dialog)
    : m_context(context)
    , m_plugin(plugin)
    , m_dialog(dialog)
{ }

QString ReplicEventHandler::topic() const { return constants::SAY; }

void ReplicEventHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "ReplicEventHandler" << message.toJson();

    const QVariantMap attributes = message.attributes();
    const QString text = attributes.value(QStringLiteral("text")).toString();
    const bool terminate = boolAttribute(attributes, QStringLiteral("terminate"), true);

    // Macros come first: the host expands them in what follows.
    lendMacros(attributes.value(QStringLiteral("macroses")).toMap());
    if (!text.isEmpty())
        speak(text, terminate);
    if (attributes.contains(QStringLiteral("step")))
        playStep(attributes, terminate);
    if (attributes.contains(QStringLiteral("replica")))
        playReplica(attributes, terminate);
    if (attributes.contains(QStringLiteral("answer")))
        reportAnswer(attributes);
}

void ReplicEventHandler::lendMacros(const QVariantMap &macros)
{
    for (auto macro = macros.constBegin(); macro != macros.constEnd(); ++macro)
        m_context->putMacrosValue(macro.key(), macro.value().toString());
}

void ReplicEventHandler::speak(const QString &text, bool terminate)
{
    if (!m_plugin)
        return; // no robot behind the page: dropped
    Q_EMIT m_plugin->signalTTSStart(text, terminate, true, ID(), static_cast<Replica::Type>(0));
}

void ReplicEventHandler::playStep(const QVariantMap &attributes, bool terminate)
{
    const QString step = attributes.value(QStringLiteral("step")).toString();
    const QVariant category = readCategory(attributes);
    const bool useGeneral = boolAttribute(attributes, QStringLiteral("use_general"), true);
    const bool useBiometry = boolAttribute(attributes, QStringLiteral("use_biometry"), true);
    const FaceInfo face = readFaceAttribute(attributes);

    const auto replica = m_context->getAppReplic(step, category, useGeneral, useBiometry, face);
    if (!replica) {
        qCDebug(lcPanorel) << "Replic" << step << "is empty";
        return;
    }
    play(replica, terminate);
}

void ReplicEventHandler::playReplica(const QVariantMap &attributes, bool terminate)
{
    const QString key = QStringLiteral("replica");
    qDebug() << "attributes[\"replica\"]" << attributes.value(key);
    const QJsonObject json = objectAttribute(attributes, key);
    qDebug() << "replic_map" << json;
    play(QSharedPointer<Replica>::create(readReplica(json)), terminate);
}

void ReplicEventHandler::reportAnswer(const QVariantMap &attributes)
{
    const QJsonObject json = objectAttribute(attributes, QStringLiteral("answer"));
    qDebug() << "answer_map" << json;
    if (!m_dialog)
        return; // no dialog engine: dropped
    m_dialog->setAnswerResult(QSharedPointer<Answer>::create(readAnswer(json)), true);
}

void ReplicEventHandler::play(const QSharedPointer<Replica> &replica, bool terminate)
{
    if (m_dialog)
        m_dialog->processReplica(replica, terminate);
    if (m_plugin)
        Q_EMIT m_plugin->signalAnswersAnchor(replica->anchor());
}

} // namespace panorel
