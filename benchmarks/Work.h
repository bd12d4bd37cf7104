#pragma once

#include "host/FaceInfo.h"

#include <QString>
#include <QVariantMap>
#include <QVector>

// What the benchmarks carry over the bus.

/// The attributes of a short message.
QVariantMap attributes();

/// Topic @p number of a table of any size; the first 96 are the library's.
QString topic(int number);

/// The attributes with which the page learns of @p faces.
QVariantMap faceAttributes(const QVector<FaceInfoPtr> &faces);
