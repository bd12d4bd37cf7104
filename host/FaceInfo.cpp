#include "host/FaceInfo.h"

long long FaceInfo::id() const { return m_id; }

void FaceInfo::setId(const long long &id) { m_id = id; }

FaceInfo::Type FaceInfo::type() const { return m_type; }

void FaceInfo::setType(const Type &type) { m_type = type; }

bool FaceInfo::isTracking() const { return m_tracking; }

void FaceInfo::setTracking(const bool &tracking) { m_tracking = tracking; }

int FaceInfo::idTrack() const { return static_cast<int>(m_idTrack); }

void FaceInfo::setIdTrack(const long long &idTrack) { m_idTrack = idTrack; }

Gender FaceInfo::gender() const { return m_gender; }

void FaceInfo::setGender(const Gender &gender) { m_gender = gender; }

double FaceInfo::age() const { return m_age; }

void FaceInfo::setAge(const double &age) { m_age = age; }

QString FaceInfo::emotion() const { return m_emotion; }

void FaceInfo::setEmotion(const QString &emotion) { m_emotion = emotion; }

QVector<FaceInfo::FaceScore> FaceInfo::matches() const { return m_matches; }

void FaceInfo::setMatches(const QVector<FaceInfo::FaceScore> &matches) { m_matches = matches; }
