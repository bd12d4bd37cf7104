#include "host/FaceTrainStatus.h"

FaceTrainStatus::FaceTrainStatus(const int &step)
    : m_step(step)
{ }

int FaceTrainStatus::step() const { return m_step; }

void FaceTrainStatus::setStep(const int &step) { m_step = step; }
