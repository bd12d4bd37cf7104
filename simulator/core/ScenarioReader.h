#pragma once

#include "simulator/core/DialogScenario.h"

#include <QString>

namespace simulator {

/// Reads and checks a scenario file; docs/scenario.md describes its form.
class ScenarioReader
{
public:
    /// @p path names the file; empty means the sample.
    explicit ScenarioReader(const QString &path = QString());

    bool isRead() const { return m_error.isEmpty(); }
    /// Names the file, the place in it, what is wrong and what to do; empty when nothing is.
    QString error() const { return m_error; }
    /// Empty when the file could not be read.
    DialogScenario scenario() const { return m_scenario; }

private:
    QString findSample();
    void readFile(const QString &path);

    DialogScenario m_scenario;
    QString m_error;
};

} // namespace simulator
