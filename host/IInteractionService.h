#pragma once

#include "host/Export.h"
#include "host/Interaction.h"

#include <QObject>

/// Starts and ends interactions with the user in front of the robot.
class PANOREL_HOST_EXPORT IInteractionService : public QObject
{
    Q_OBJECT

public:
    explicit IInteractionService(QObject *parent = nullptr);
    ~IInteractionService() override;

    virtual void start() = 0;
    virtual void stop() = 0;

Q_SIGNALS:
    void started(Interaction::Reason reason);
    void finished();
};
