#include "host/Answer.h"
#include "host/FaceInfo.h"
#include "host/FaceRect.h"
#include "host/FaceTrainStatus.h"
#include "host/ID.h"
#include "host/Replica.h"
#include "host/UserData.h"
#include "tests/support/TestCase.h"

#include <QJsonArray>
#include <QVariant>

#include <limits>

class RecordsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void idKeepsNumberAndUuid();
    void idsCompare();
    void replicaKeepsItsFields();
    void replicaSplitsActions_data();
    void replicaSplitsActions();
    void replicaParsesItsUrl();
    void answerKeepsItsFields();
    void faceKeepsItsFields();
    void faceKeepsAllOfItsTrackId();
    void rectKeepsItsFields();
    void trainStatusKeepsItsStep();
    void userKeepsItsFields();
    void userHasAPageForm();
    void emptyUserHasEveryKey();
    void enumerationsHoldAnyInteger();
    void faceVectorsRideInVariants();
};

void RecordsTest::idKeepsNumberAndUuid()
{
    ID id;
    QCOMPARE(id.id(), 0U);
    QVERIFY(id.uuid().isNull());
    const QUuid uuid = QUuid::createUuid();
    id.setId(4294967295U);
    id.setUuid(uuid);
    QCOMPARE(id.id(), 4294967295U);
    QCOMPARE(id.uuid(), uuid);
    QVERIFY(QVariant::fromValue(id).value<ID>() == id);
}

void RecordsTest::idsCompare()
{
    const QUuid uuid = QUuid::createUuid();
    QVERIFY(ID(1, uuid) == ID(1, uuid));
    QVERIFY(ID(1, uuid) != ID(2, uuid));
    QVERIFY(ID(1, uuid) != ID(1, QUuid()));
    QVERIFY(ID() == ID(0, QUuid()));
}

void RecordsTest::replicaKeepsItsFields()
{
    Replica replica;
    QVERIFY(replica.id() == ID());
    QCOMPARE(int(replica.animation()), 0);
    QCOMPARE(int(replica.type()), 0);
    replica.setId(ID(1, QUuid()));
    replica.setAnchor(ID(2, QUuid()));
    replica.setCategory(ID(3, QUuid()));
    replica.setText(QStringLiteral("spoken"));
    replica.setScreenText(QStringLiteral("shown"));
    replica.setAnimation(AnimationNod);
    replica.setType(Replica::Extra);
    QVERIFY(replica.id() == ID(1, QUuid()));
    QVERIFY(replica.anchor() == ID(2, QUuid()));
    QVERIFY(replica.category() == ID(3, QUuid()));
    QCOMPARE(replica.text(), QStringLiteral("spoken"));
    QCOMPARE(replica.screenText(), QStringLiteral("shown"));
    QCOMPARE(replica.animation(), AnimationNod);
    QCOMPARE(replica.type(), Replica::Extra);
}

void RecordsTest::replicaSplitsActions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("actions");
    QTest::newRow("empty") << QString() << QStringList();
    QTest::newRow("one") << QStringLiteral("wave") << QStringList({QStringLiteral("wave")});
    QTest::newRow("two") << QStringLiteral("wave,nod")
                         << QStringList({QStringLiteral("wave"), QStringLiteral("nod")});
    QTest::newRow("blanks stay") << QStringLiteral(" wave , nod")
                                 << QStringList({QStringLiteral(" wave "), QStringLiteral(" nod")});
    QTest::newRow("nothing between")
        << QStringLiteral(",a,") << QStringList({QString(), QStringLiteral("a"), QString()});
}

void RecordsTest::replicaSplitsActions()
{
    QFETCH(QString, text);
    QFETCH(QStringList, actions);
    Replica replica;
    replica.setActions(QStringLiteral("former"));
    replica.setActions(text);
    QStringList raw;
    const auto parsed = replica.actions();
    for (const Action &action : parsed)
        raw.append(action.raw());
    QCOMPARE(raw, actions);

    Action action(QStringLiteral("former"));
    action.setRaw(text);
    QCOMPARE(action.raw(), text);
}

void RecordsTest::replicaParsesItsUrl()
{
    Replica replica;
    replica.setUrl(QStringLiteral("http://host/a b"));
    QCOMPARE(replica.url(), QUrl(QStringLiteral("http://host/a b")));
    replica.setUrl(QString());
    QVERIFY(replica.url().isEmpty());
}

void RecordsTest::answerKeepsItsFields()
{
    Answer answer;
    Replica replica;
    replica.setText(QStringLiteral("reply"));
    answer.setId(ID(1, QUuid()));
    answer.setSource(Answer::Page);
    answer.setIdPattern(ID(2, QUuid()));
    answer.setPattern(QStringLiteral("hello*"));
    answer.setQuestion(QStringLiteral("hello robot"));
    answer.setReplica(replica);
    QVERIFY(answer.id() == ID(1, QUuid()));
    QCOMPARE(answer.source(), Answer::Page);
    QVERIFY(answer.idPattern() == ID(2, QUuid()));
    QCOMPARE(answer.pattern(), QStringLiteral("hello*"));
    QCOMPARE(answer.question(), QStringLiteral("hello robot"));
    QCOMPARE(answer.replica().text(), QStringLiteral("reply"));
}

void RecordsTest::faceKeepsItsFields()
{
    FaceInfo face;
    face.setId(std::numeric_limits<long long>::min());
    face.setType(FaceInfo::User);
    face.setTracking(true);
    face.setGender(GenderFemale);
    face.setAge(31.5);
    face.setEmotion(QStringLiteral("joy"));
    face.setMatches({{2, 7, 0.75}});
    QCOMPARE(face.id(), std::numeric_limits<long long>::min());
    QCOMPARE(face.type(), FaceInfo::User);
    QVERIFY(face.isTracking());
    QCOMPARE(face.gender(), GenderFemale);
    QCOMPARE(face.age(), 31.5);
    QCOMPARE(face.emotion(), QStringLiteral("joy"));
    QCOMPARE(face.matches().size(), 1);
    QCOMPARE(face.matches().constFirst().type, 2);
    QCOMPARE(face.matches().constFirst().id, 7LL);
    QCOMPARE(face.matches().constFirst().score, 0.75);
}

void RecordsTest::faceKeepsAllOfItsTrackId()
{
    FaceInfo face;
    face.setIdTrack(-5);
    QCOMPARE(face.idTrack(), -5);
    face.setIdTrack((1LL << 32) + 7); // the getter has 32 bits
    QCOMPARE(face.idTrack(), 7);
}

void RecordsTest::rectKeepsItsFields()
{
    QCOMPARE(FaceRect().idTrack(), 0LL);
    FaceRect rect(QRectF(1, 2, 3, 4), 1LL << 40);
    QCOMPARE(rect.rect(), QRectF(1, 2, 3, 4));
    QCOMPARE(rect.idTrack(), 1LL << 40);
    rect.setRect(QRectF(5, 6, 7, 8));
    rect.setIdTrack(9);
    QCOMPARE(rect.rect(), QRectF(5, 6, 7, 8));
    QCOMPARE(rect.idTrack(), 9LL);
}

void RecordsTest::trainStatusKeepsItsStep()
{
    QCOMPARE(FaceTrainStatus().step(), 0);
    FaceTrainStatus status(4);
    QCOMPARE(status.step(), 4);
    status.setStep(5);
    QCOMPARE(status.step(), 5);
}

void RecordsTest::userKeepsItsFields()
{
    UserData user;
    FaceInfo face;
    face.setId(7);
    const QDateTime date(QDate(2019, 4, 1), QTime(10, 15));
    user.setInfo(face);
    user.setName(QStringLiteral("Ann"));
    user.setExtraData(QVariantList({1, 2}));
    user.setAcquaintanceDate(date);
    user.setLastVisit(date.addDays(1));
    QCOMPARE(user.info().id(), 7LL);
    QCOMPARE(user.name(), QStringLiteral("Ann"));
    QCOMPARE(user.extraData(), QVariant(QVariantList({1, 2})));
    QCOMPARE(user.acquaintanceDate(), date);
    QCOMPARE(user.lastVisit(), date.addDays(1));
}

void RecordsTest::userHasAPageForm()
{
    FaceInfo face;
    face.setId((1LL << 53) - 1); // the largest that JSON carries exactly
    face.setAge(31.5);
    face.setGender(GenderFemale);
    UserData user;
    user.setInfo(face);
    user.setName(QStringLiteral("Ann"));
    user.setExtraData(QVariantMap({{QStringLiteral("badge"), QVariantList({1})}}));
    user.setAcquaintanceDate(QDateTime(QDate(2019, 4, 1), QTime(10, 15)));
    user.setLastVisit(QDateTime(QDate(2019, 4, 2), QTime(8, 0, 5)));
    const QJsonObject json = user.toJson();
    QCOMPARE(json.value(QStringLiteral("id")).toVariant().toLongLong(), (1LL << 53) - 1);
    QCOMPARE(json.value(QStringLiteral("name")).toString(), QStringLiteral("Ann"));
    QCOMPARE(json.value(QStringLiteral("age")).toDouble(), 31.5);
    QCOMPARE(json.value(QStringLiteral("gender")).toInt(), 2);
    QCOMPARE(json.value(QStringLiteral("extra_data")).toObject(),
             QJsonObject({{QStringLiteral("badge"), QJsonArray({1})}}));
    QCOMPARE(json.value(QStringLiteral("acquaintance_date")).toString(),
             QStringLiteral("2019-04-01T10:15:00"));
    QCOMPARE(json.value(QStringLiteral("last_visit")).toString(),
             QStringLiteral("2019-04-02T08:00:05"));
}

void RecordsTest::emptyUserHasEveryKey()
{
    const QJsonObject json = UserData().toJson();
    QCOMPARE(
        json.keys(),
        QStringList({QStringLiteral("acquaintance_date"), QStringLiteral("age"),
                     QStringLiteral("extra_data"), QStringLiteral("gender"), QStringLiteral("id"),
                     QStringLiteral("last_visit"), QStringLiteral("name")}));
    QVERIFY(json.value(QStringLiteral("extra_data")).isNull());
    QCOMPARE(json.value(QStringLiteral("last_visit")).toString(), QString());
}

void RecordsTest::enumerationsHoldAnyInteger()
{
    // Pages send any number; the undefined behaviour sanitizer watches the casts.
    Replica replica;
    replica.setType(static_cast<Replica::Type>(-2147483647));
    replica.setAnimation(static_cast<Animation>(2147483647));
    QCOMPARE(static_cast<int>(replica.type()), -2147483647);
    QCOMPARE(static_cast<int>(replica.animation()), 2147483647);
}

void RecordsTest::faceVectorsRideInVariants()
{
    QCOMPARE(QMetaType::typeName(qMetaTypeId<FaceInfoPtr>()), "FaceInfoPtr");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<QVector<FaceInfoPtr>>()), "QVector<FaceInfoPtr>");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<FaceRectPtr>()), "FaceRectPtr");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<QVector<FaceRectPtr>>()), "QVector<FaceRectPtr>");

    const QVector<FaceInfoPtr> faces{FaceInfoPtr::create(), FaceInfoPtr::create()};
    const QVariant variant = QVariant::fromValue(faces);
    QCOMPARE(variant.value<QVector<FaceInfoPtr>>(), faces);
    QVERIFY(variant.canConvert<QVariantList>());
    QCOMPARE(variant.value<QSequentialIterable>().size(), 2);
}

QTEST_GUILESS_MAIN(RecordsTest)
#include "tst_records.moc"
