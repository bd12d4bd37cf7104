#pragma once

#include "simulator/core/Pace.h"
#include "simulator/core/RobotDevices.h"
#include "simulator/core/SimulatedDialogModule.h" // so that both convert to what the host takes
#include "simulator/core/SimulatedPlugin.h"

#include <QObject>
#include <QStringList>

namespace simulator {

class OperatorDesk;
class SimulatedCamera;
class SimulatedDrive;
class SimulatedFaces;
class SimulatedLanguage;
class SimulatedReplicas;
class SimulatedScripts;
class SimulatedSpeech;

/// The robot on the desk: it owns every part and joins the plug-in's requests to them. Outlives the
/// screen that it is handed to. It speaks the sample scenario until its replicas get another; where
/// the sample cannot be read it has no words. Its pace also becomes the telephone line's and the
/// mail server's. GUI thread.
class RobotCore : public QObject
{
    Q_OBJECT

public:
    /// Which devices the robot has; the others are null in the plug-in. And where it keeps its data.
    struct Equipment
    {
        bool printer = true;
        bool dispenser = true;
        bool passportScanner = true;
        bool documentScanner = true;
        bool keyboard = true;
        bool users = true;
        /// Made when it is not there; empty keeps all data in memory.
        QString dataFolder = {};
        /// Where its settings lie, in three INI files; as above.
        QString settingsFolder = {};
    };

    explicit RobotCore(QObject *parent = nullptr);
    explicit RobotCore(const Equipment &equipment, QObject *parent = nullptr);

    /// Why what lies in data and settings folder is not used, and what to do; empty when all is well.
    QStringList problems() const;

    /// Copies share the robot's speed.
    Pace pace() const;

    // The core owns what these return.
    SimulatedPlugin *plugin() const;
    SimulatedDialogModule *dialog() const;
    SimulatedSpeech *speech() const;
    SimulatedDrive *drive() const;
    SimulatedScripts *scripts() const;
    SimulatedLanguage *language() const;
    SimulatedFaces *faces() const;
    SimulatedCamera *camera() const;
    SimulatedReplicas *replicas() const;
    OperatorDesk *operatorDesk() const;

    /// What the plug-in hands out; null for what the robot does not have.
    const RobotDevices &devices() const;

private:
    void readData(const Equipment &equipment);
    void fillSettings();
    void fillDevices();
    void connectPlugin();

    Pace m_pace;
    QStringList m_problems;
    RobotDevices m_devices;
    SimulatedSpeech *m_speech;
    SimulatedDrive *m_drive;
    SimulatedScripts *m_scripts;
    SimulatedLanguage *m_language;
    SimulatedFaces *m_faces;
    SimulatedCamera *m_camera;
    SimulatedReplicas *m_replicas;
    OperatorDesk *m_operatorDesk;
    SimulatedDialogModule *m_dialog;
    SimulatedPlugin *m_plugin;
};

} // namespace simulator
