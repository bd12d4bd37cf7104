#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A sound server of the test's own: PulseAudio with one null sink, which is everybody's loudspeaker
/// and whose monitor is everybody's microphone. What this program plays, it can record.
///
/// To be made before anything plays or records, since it is found through the environment.
class SoundServer
{
public:
    SoundServer();
    ~SoundServer();

    /// Whether the server takes connections; otherwise error() says why not.
    bool isRunning() const;
    QString error() const;

private:
    class Process : public QProcess
    {
    protected:
        void setupChildProcess() override; // it goes when the test goes, however that ends
    };

    QTemporaryDir m_folder;
    Process m_process;
    QString m_error;
};
