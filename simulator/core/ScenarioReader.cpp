#include "simulator/core/ScenarioReader.h"

#include "simulator/core/ScenarioBuilder.h"
#include "simulator/core/ScenarioObject.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace simulator {

namespace {

QString lineAndColumn(const QByteArray &text, int offset)
{
    const QByteArray before = text.left(offset);
    return QStringLiteral("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(before.size() - before.lastIndexOf('\n'));
}

} // namespace

ScenarioReader::ScenarioReader(const QString &path)
{
    const QString file = path.isEmpty() ? findSample() : path;
    if (!isRead())
        return;
    readFile(file);
    if (!isRead()) {
        m_error = QDir::toNativeSeparators(file) + QStringLiteral(": ") + m_error;
        m_scenario = {};
    }
}

QString ScenarioReader::findSample()
{
    const QString source = QStringLiteral(PANOREL_SAMPLE_SCENARIO);
    const QDir program(QCoreApplication::applicationDirPath());
    // An installed program speaks what was installed with it.
    const QStringList files = {
        program.filePath(QStringLiteral("../share/panorel/scenarios/reception.json")),
        source,
        program.filePath(QStringLiteral("../../../simulator/scenarios/reception.json")),
        program.filePath(QStringLiteral("reception.json")),
    };
    for (const QString &file : files) {
        if (QFileInfo(file).isFile())
            return QFileInfo(file).canonicalFilePath();
    }
    m_error = QStringLiteral("The sample scenario is not there; it is looked for at %1.\n"
                             "Name a scenario of your own with --scenario.")
                  .arg(source);
    return {};
}

void ScenarioReader::readFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        m_error = QStringLiteral("there is no scenario to read; give --scenario a JSON file.");
        return;
    }
    const QByteArray text = file.readAll();
    QJsonParseError mistake;
    const QJsonDocument document = QJsonDocument::fromJson(text, &mistake);
    if (mistake.error != QJsonParseError::NoError) {
        m_error = QStringLiteral("%1: this is no JSON (%2); correct it here.")
                      .arg(lineAndColumn(text, mistake.offset), mistake.errorString());
        return;
    }
    const QJsonValue content = document.isObject() ? document.object() : QJsonValue();
    m_scenario = ScenarioBuilder(ScenarioObject(content, QString(), &m_error)).scenario();
}

} // namespace simulator
