#pragma once

#include "host/Export.h"

/// How far the training of a new face has come.
class PANOREL_HOST_EXPORT FaceTrainStatus
{
public:
    FaceTrainStatus() = default;
    explicit FaceTrainStatus(const int &step);

    /// The training step, in the recognition's own numbering.
    int step() const;
    void setStep(const int &step);

private:
    int m_step = 0;
};
