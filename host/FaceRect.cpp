#include "host/FaceRect.h"

FaceRect::FaceRect(const QRectF &rect, const long long &idTrack)
    : m_rect(rect)
    , m_idTrack(idTrack)
{ }

QRectF FaceRect::rect() const { return m_rect; }

void FaceRect::setRect(const QRectF &rect) { m_rect = rect; }

long long FaceRect::idTrack() const { return m_idTrack; }

void FaceRect::setIdTrack(const long long &idTrack) { m_idTrack = idTrack; }
