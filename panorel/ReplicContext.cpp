#include "panorel/ReplicContext.h"

#include "panorel/Logging.h"

#include "host/IMacrosReplacer.h"
#include "host/PluginInterface.h"

#include <QMutexLocker>

namespace panorel {

namespace {

QSharedPointer<IMacrosReplacer> currentReplacer(const PluginInterface *plugin)
{
    return plugin ? plugin->macrosReplacer() : QSharedPointer<IMacrosReplacer>();
}

} // namespace

ReplicContext::ReplicContext(PluginInterface *plugin)
    : m_plugin(plugin)
    , m_replacer(currentReplacer(plugin))
{ }

ReplicContext::~ReplicContext() = default;

QSharedPointer<Replica> ReplicContext::getReplic(const Replica::Type &type,
                                                 const QVariant &category, const bool &useGeneral,
                                                 const bool &useBiometry, const FaceInfo &face)
{
    qCDebug(lcPanorel) << "ReplicContext getReplic" << static_cast<int>(type);
    if (!m_plugin)
        return {};
    return Q_EMIT m_plugin->signalGetReplica(type, category, useGeneral, useBiometry, face);
}

QSharedPointer<Replica> ReplicContext::getAppReplic(const QString &step, const QVariant &category,
                                                    const bool &useGeneral, const bool &useBiometry,
                                                    const FaceInfo &face)
{
    qCDebug(lcPanorel) << "ReplicContext getAppReplic" << step;
    if (!m_plugin)
        return {};
    return Q_EMIT m_plugin->signalGetAppReplica(step, category, useGeneral, useBiometry, face);
}

void ReplicContext::putMacrosValue(QString name, QString value)
{
    qCDebug(lcPanorel) << "ReplicContext putMacrosValue " << name << value;
    const QMutexLocker locker(&m_mutex);
    m_macros.insert(name, value);
    if (const auto replacer = currentReplacer(m_plugin))
        replacer->setMacros(name, value);
}

void ReplicContext::clear()
{
    qCDebug(lcPanorel) << "ReplicContext.clear()";
    const QMutexLocker locker(&m_mutex);
    for (auto macro = m_macros.constBegin(); macro != m_macros.constEnd(); ++macro) {
        qCDebug(lcPanorel) << "ReplicContext remove" << macro.key();
        if (const auto replacer = currentReplacer(m_plugin))
            replacer->removeMacros(macro.key());
    }
    m_macros.clear();
}

} // namespace panorel
