#pragma once

#include "host/Export.h"
#include "host/Gender.h"

#include <QMetaType>
#include <QSharedPointer>
#include <QString>
#include <QVector>

/// One face that the camera sees: who it may be and what the recognition estimates.
class PANOREL_HOST_EXPORT FaceInfo
{
public:
    /// Which table a face's id points into. Travels as its integer value.
    enum Type : int {
        Unknown = 0,
        Temporary = 1,
        /// A person of the user database.
        User = 2,
    };

    /// Similarity of this face to one known person.
    struct FaceScore
    {
        int type = 0;
        long long id = 0;
        /// 0 (no likeness) to 1 (the same).
        double score = 0.0;
    };

    FaceInfo() = default;

    /// The known person's id; 0 when unknown.
    long long id() const;
    void setId(const long long &id);

    Type type() const;
    void setType(const Type &type);

    /// Whether the robot's head follows this face.
    bool isTracking() const;
    void setTracking(const bool &tracking);

    /// The track id's low 32 bits; the setter keeps all 64.
    int idTrack() const;
    void setIdTrack(const long long &idTrack);

    Gender gender() const;
    void setGender(const Gender &gender);

    /// In years.
    double age() const;
    void setAge(const double &age);

    /// In the recognition's own words; empty when it does not tell.
    QString emotion() const;
    void setEmotion(const QString &emotion);

    /// The known persons that this face resembles.
    QVector<FaceScore> matches() const;
    void setMatches(const QVector<FaceInfo::FaceScore> &matches);

private:
    long long m_id = 0;
    Type m_type = Unknown;
    bool m_tracking = false;
    long long m_idTrack = 0;
    Gender m_gender = GenderUnknown;
    double m_age = 0.0;
    QString m_emotion;
    QVector<FaceScore> m_matches;
};

using FaceInfoPtr = QSharedPointer<FaceInfo>;

/// The vector is a meta-type too, "QVector<FaceInfoPtr>", readable as a sequential iterable.
Q_DECLARE_METATYPE(FaceInfoPtr)
