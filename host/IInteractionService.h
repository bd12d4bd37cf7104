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

    /// Begins an interaction; started() tells that it has begun.
    virtual void start() = 0;
    /// Ends the interaction; finished() tells that it has ended.
    virtual void stop() = 0;

Q_SIGNALS:
    /// An interaction began, for whatever @p reason, the page's wish or another.
    void started(Interaction::Reason reason);
    /// The interaction ended.
    void finished();
};
