#pragma once

#include <QCoreApplication>
#include <QList>
#include <QMap>
#include <QString>

namespace simulator {

/// A ready-made result of a scanner.
struct ScanSample
{
    /// As it is shown to people.
    QString name;
    /// Field name to text.
    QMap<QString, QString> fields;

    /// Passports of several scripts, the one of the robot's start first, and an empty result.
    static QList<ScanSample> passports();
    /// The same for documents.
    static QList<ScanSample> documents();

    Q_DECLARE_TR_FUNCTIONS(simulator::ScanSample)
};

} // namespace simulator
