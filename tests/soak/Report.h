#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

class LongDay;
class MemoryWatch;
class SoakPage;
class SoakRobot;
class StallWatch;
class Floods;

/// The figures of a soak, as text and as JSON, and the limits that were broken.
class Report
{
public:
    /// What runs on what; call at the beginning.
    void addMachine();
    void addFault(const QString &fault);
    void addDay(const LongDay &day, const SoakPage &page, const SoakRobot &robot);
    // Limits below zero are none. Those of stalls are the day's: for computing, and for computing
    // and waiting inside a handler.
    void addStalls(const StallWatch &watch, double computingLimitMs, double stallLimitMs);
    void addMemory(const MemoryWatch &memory, double limitPercent);
    void addFloods(const Floods &floods, double answerLimitMs);

    bool isGood() const { return m_faults.isEmpty(); }
    QString text() const;
    QJsonObject json() const;

private:
    void add(const QString &group, const QString &name, const QJsonValue &value,
             const QString &unit = {});
    void limit(const QString &name, double value, double most, const QString &unit);

    QStringList m_lines;
    QStringList m_faults;
    QJsonObject m_json;
};
