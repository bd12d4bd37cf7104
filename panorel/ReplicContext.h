#pragma once

#include "panorel/Export.h"

#include "host/FaceInfo.h"
#include "host/Replica.h"

#include <QMap>
#include <QMutex>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

class IMacrosReplacer;
class PluginInterface;

namespace panorel {

/// What the dialog handlers of one widget share: the road to the host's replicas, and the macro
/// values that the page lends the host for one dialog turn.
///
/// Every macro in the table has been put into the host's replacer and not yet been withdrawn.
class PANOREL_EXPORT ReplicContext
{
public:
    /// @p plugin is not owned; null is allowed and means that there are no replicas.
    explicit ReplicContext(PluginInterface *plugin);

    /// Withdraws nothing: call clear() first where that matters.
    ~ReplicContext();

    /// Asks the host for a replica of a type. @p category holds an ID or a category name. Null when
    /// the host has none.
    QSharedPointer<Replica> getReplic(const Replica::Type &type, const QVariant &category,
                                      const bool &useGeneral, const bool &useBiometry,
                                      const FaceInfo &face);

    /// Asks the host for the replica of an application step; otherwise like getReplic.
    QSharedPointer<Replica> getAppReplic(const QString &step, const QVariant &category,
                                         const bool &useGeneral, const bool &useBiometry,
                                         const FaceInfo &face);

    /// Lends the host a macro value until the next clear(). May be called on any thread.
    void putMacrosValue(QString name, QString value);

    /// Withdraws every macro value, in ascending order of the names. May be called on any thread.
    void clear();

private:
    Q_DISABLE_COPY(ReplicContext)

    QMutex m_mutex; // guards m_macros, and is held during the replacer's operations
    QMap<QString, QString> m_macros;
    PluginInterface *const m_plugin;
    // Only keeps the first replacer alive. The host may replace it, so each use asks anew.
    const QSharedPointer<IMacrosReplacer> m_replacer;
};

} // namespace panorel
