#pragma once

#include "host/FaceInfo.h"

#include <QVariantMap>
#include <QVector>

/// What the camera sees: so many faces, each with so many matches.
QVector<FaceInfoPtr> faceReport(int faces, int matches);

namespace naive {

/// The straightforward form for the page: maps filled one key after the other, ids from the system.
QVariantMap faceInfo(const QVector<FaceInfoPtr> &faces);

} // namespace naive
