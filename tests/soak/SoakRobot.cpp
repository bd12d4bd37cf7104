#include "tests/soak/SoakRobot.h"

#include "tests/soak/Texts.h"

using simulator::RobotCore;

SoakRobot::SoakRobot(QObject *parent)
    : SoakRobot(new RobotCore, parent)
{ }

SoakRobot::SoakRobot(RobotCore *core, QObject *parent)
    : SimulatedPlugin(core->devices(), parent)
    , m_core(core)
{
    m_core->setParent(this);
    // Everything goes on to the robot core. What is connected last answers the script's request.
    SimulatedPlugin *const robot = m_core->plugin();
    connect(this, &PluginInterface::signalScriptStart, robot, &PluginInterface::signalScriptStart);
    connect(this, &PluginInterface::signalScriptStart, this, &SoakRobot::startScript);
    connect(this, &PluginInterface::signalLanguage, robot, &PluginInterface::signalLanguage);
    connect(this, &PluginInterface::signalLanguage, this,
            [this](const QString &language) { m_requests.take(texts::numberOf(language)); });
    connect(this, &PluginInterface::signalTTSStart, robot, &PluginInterface::signalTTSStart);
    connect(this, &PluginInterface::signalTTSStart, this,
            [this](const QString &text) { m_requests.take(texts::numberOf(text)); });
    connect(this, &PluginInterface::signalFaceTracking, robot,
            &PluginInterface::signalFaceTracking);
    connect(this, &PluginInterface::signalFaceTracking, this,
            [this](const long long &track) { m_requests.take(static_cast<int>(track)); });
}

QVariant SoakRobot::appParameter(const QString &key, const QVariant &defaultValue) const
{
    const QString group = QStringLiteral("/soak/");
    if (!key.startsWith(group))
        return SimulatedPlugin::appParameter(key, defaultValue);
    m_requests.take(texts::numberOf(key.mid(group.size())));
    return ++m_issued;
}

QStringList SoakRobot::startScript(const QString &script)
{
    m_requests.take(texts::numberOf(script));
    return {QString::number(issue()), script};
}
