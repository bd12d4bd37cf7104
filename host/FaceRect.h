#pragma once

#include "host/Export.h"

#include <QMetaType>
#include <QRectF>
#include <QSharedPointer>
#include <QVector>

/// Where one tracked face stands on the screen.
class PANOREL_HOST_EXPORT FaceRect
{
public:
    FaceRect() = default;
    FaceRect(const QRectF &rect, const long long &idTrack);

    /// In screen coordinates (pixels of the page).
    QRectF rect() const;
    void setRect(const QRectF &rect);

    long long idTrack() const;
    void setIdTrack(const long long &idTrack);

private:
    QRectF m_rect;
    long long m_idTrack = 0;
};

using FaceRectPtr = QSharedPointer<FaceRect>;

/// The vector is a meta-type too, "QVector<FaceRectPtr>", readable as a sequential iterable.
Q_DECLARE_METATYPE(FaceRectPtr)
