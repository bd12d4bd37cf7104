#include "tests/page/WidgetTestCase.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/PageRequest.h"
#include "tests/support/RecordFields.h"
#include "tests/support/Topics.h"

#include "host/FaceRect.h"

#include "panorel/MessageQueueBrocker.h"

#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>

#include <algorithm>

using panorel::Message;
using panorel::PanorelProxy;

namespace {

QStringList faceKeys()
{
    return {
        QStringLiteral("age"),     QStringLiteral("emotion"),  QStringLiteral("gender"),
        QStringLiteral("id"),      QStringLiteral("id_track"), QStringLiteral("is_tracking"),
        QStringLiteral("matches"), QStringLiteral("type"),
    };
}

FaceInfoPtr someFace()
{
    auto face = FaceInfoPtr::create();
    face->setId(9007199254740991);
    face->setType(FaceInfo::User);
    face->setTracking(true);
    face->setIdTrack(-3);
    face->setGender(GenderFemale);
    face->setAge(41.5);
    face->setEmotion(QStringLiteral("joy"));
    face->setMatches({{2, 7, 0.75}, {1, 8, 0.125}, {-17, 9007199254740991, 1.0}});
    return face;
}

bool isBracedUuid(const QString &key)
{
    static const QRegularExpression form(
        QStringLiteral("^\\{[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}\\}$"));
    return form.match(key).hasMatch() && !QUuid(key).isNull();
}

/// The matches, which come in any order, sorted by the person's id.
QVariantMap sortedFields(FaceInfo face)
{
    QVector<FaceInfo::FaceScore> matches = face.matches();
    std::sort(matches.begin(), matches.end(),
              [](const FaceInfo::FaceScore &left, const FaceInfo::FaceScore &right) {
                  return left.id < right.id;
              });
    face.setMatches(matches);
    return fields(face);
}

} // namespace

class FaceEventsTest : public WidgetTestCase
{
    Q_OBJECT

private:
    /// The faces of the message for the page that reporting @p faces publishes.
    QVariantMap published(const QVector<FaceInfoPtr> &faces)
    {
        MessageRecorder recorder;
        recorder.watch(screen->brocker(), forwardedTopics() + topicsKeptInside());
        log().skipDebug();
        screen->faceInfo(faces);
        if (recorder.topics() != QStringList({m_touchTopic, m_infoTopic})) {
            QTest::qFail(qPrintable(recorder.topics().join(QLatin1Char(' '))), __FILE__, __LINE__);
            return {};
        }
        recorder.take();
        const Message message = recorder.take();
        screen->brocker()->clear(); // the recorder goes
        const QVariantMap attributes = message.attributes();
        if (attributes.size() != 1 || attributes.value(m_key).userType() != QMetaType::QVariantMap)
            QTest::qFail(qPrintable(debugText(attributes)), __FILE__, __LINE__);
        return attributes.value(m_key).toMap();
    }

    void touch(double x, double y)
    {
        proxy()->sendMessage({{QStringLiteral("type"), m_touchTopic},
                              {QStringLiteral("x"), x},
                              {QStringLiteral("y"), y}});
    }

    static HostCall tracked(long long idTrack)
    {
        return {QStringLiteral("faceTracking"), {idTrack}};
    }

    const QString m_key = QStringLiteral("info");
    const QString m_touchTopic = QStringLiteral("system.general.touch");
    const QString m_infoTopic = QStringLiteral("face.recognize.info");
    const QString m_settedTopic = QStringLiteral("system.general.setted");

private Q_SLOTS:
    void handsTheRecordsToTheTouchHandlerFirst();
    void givesAFace();
    void givesAnEmptyFace();
    void givesNoFaces();
    void keysMatchesApart();
    void keysEqualFacesApart();
    void keysEachReportAnew();
    void keepsWideIds();
    void givesEveryFaceAsItIs();
    void passesOverNullEntries();
    void reachesThePageWithoutTheTouchMessage();
    void letsAFaceBeTouched();
    void knowsTheFacesBeforeThePageDoes();
    void forgetsTheFacesAfterAnEmptyReport();
    void takesAFaceBack();
};

void FaceEventsTest::handsTheRecordsToTheTouchHandlerFirst()
{
    for (const QVector<FaceInfoPtr> &faces :
         {QVector<FaceInfoPtr>{someFace(), someFace()}, QVector<FaceInfoPtr>()}) {
        MessageRecorder recorder;
        recorder.watch(screen->brocker(), forwardedTopics() + topicsKeptInside());
        screen->faceInfo(faces);
        QCOMPARE(recorder.topics(), QStringList({m_touchTopic, m_infoTopic}));
        const Message forTouch = recorder.take();
        const Message forPage = recorder.take();
        screen->brocker()->clear();
        QCOMPARE(forTouch.attributes().keys(), QStringList({m_key}));
        const QVariant value = forTouch.attributes().value(m_key);
        QCOMPARE(value.typeName(), "QVector<FaceInfoPtr>");
        QCOMPARE(value.value<QVector<FaceInfoPtr>>(), faces);
        QVERIFY(forTouch.id() != forPage.id());
    }
}

void FaceEventsTest::givesAFace()
{
    const QVariantMap faces = published({someFace()});
    QCOMPARE(faces.size(), 1);
    QVERIFY2(isBracedUuid(faces.firstKey()), qPrintable(faces.firstKey()));
    QVariantMap face = faces.first().toMap();
    QCOMPARE(face.keys(), faceKeys());
    QCOMPARE(face.take(QStringLiteral("matches")).toMap().size(), 3);
    const QVariantMap expected{
        {QStringLiteral("id"), 9007199254740991LL},
        {QStringLiteral("type"), 2},
        {QStringLiteral("is_tracking"), true},
        {QStringLiteral("id_track"), -3},
        {QStringLiteral("gender"), 2},
        {QStringLiteral("age"), 41.5},
        {QStringLiteral("emotion"), QStringLiteral("joy")},
    };
    QCOMPARE(face, expected);
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it)
        QCOMPARE(face.value(it.key()).userType(), it.value().userType());
}

void FaceEventsTest::givesAnEmptyFace()
{
    const QVariantMap faces = published({FaceInfoPtr::create()});
    QCOMPARE(faces.size(), 1);
    const QVariantMap face = faces.first().toMap();
    QCOMPARE(face.keys(), faceKeys());
    QCOMPARE(face.value(QStringLiteral("emotion")), QVariant(QString()));
    QCOMPARE(face.value(QStringLiteral("matches")).userType(), int(QMetaType::QVariantMap));
    QCOMPARE(face.value(QStringLiteral("matches")).toMap(), QVariantMap());
}

void FaceEventsTest::givesNoFaces() { QCOMPARE(published({}), QVariantMap()); }

void FaceEventsTest::keysMatchesApart()
{
    const QVariantMap faces = published({someFace()});
    const QVariantMap matches = faces.first().toMap().value(QStringLiteral("matches")).toMap();
    QMap<long long, QVariantMap> byId;
    for (auto it = matches.constBegin(); it != matches.constEnd(); ++it) {
        QVERIFY2(isBracedUuid(it.key()), qPrintable(it.key()));
        QVERIFY(it.key() != faces.firstKey());
        const QVariantMap match = it.value().toMap();
        QCOMPARE(match.value(QStringLiteral("type")).userType(), int(QMetaType::Int));
        QCOMPARE(match.value(QStringLiteral("id")).userType(), int(QMetaType::LongLong));
        QCOMPARE(match.value(QStringLiteral("score")).userType(), int(QMetaType::Double));
        byId.insert(match.value(QStringLiteral("id")).toLongLong(), match);
    }
    const auto match = [](int type, long long id, double score) {
        return QVariantMap{{QStringLiteral("type"), type},
                           {QStringLiteral("id"), id},
                           {QStringLiteral("score"), score}};
    };
    QCOMPARE(byId.values(),
             QList<QVariantMap>(
                 {match(2, 7, 0.75), match(1, 8, 0.125), match(-17, 9007199254740991, 1.0)}));
}

void FaceEventsTest::keysEqualFacesApart()
{
    const FaceInfoPtr face = someFace();
    face->setMatches({{2, 7, 0.75}, {2, 7, 0.75}});
    const QVariantMap faces = published({face, face, someFace()});
    QCOMPARE(faces.size(), 3);
    QSet<QString> keys;
    int matches = 0;
    for (auto it = faces.constBegin(); it != faces.constEnd(); ++it) {
        QVERIFY2(isBracedUuid(it.key()), qPrintable(it.key()));
        keys.insert(it.key());
        const QStringList names =
            it.value().toMap().value(QStringLiteral("matches")).toMap().keys();
        matches += names.size();
        for (const QString &name : names)
            keys.insert(name);
    }
    QCOMPARE(matches, 2 + 2 + 3);
    QCOMPARE(keys.size(), 3 + matches); // no key stands twice anywhere
}

void FaceEventsTest::keysEachReportAnew()
{
    const QVector<FaceInfoPtr> faces{someFace()};
    const QVariantMap first = published(faces);
    const QVariantMap second = published(faces);
    QVERIFY(first.firstKey() != second.firstKey());
    const auto matchKeys = [](const QVariantMap &report) {
        const QStringList keys =
            report.first().toMap().value(QStringLiteral("matches")).toMap().keys();
        return QSet<QString>(keys.begin(), keys.end());
    };
    QVERIFY(!matchKeys(first).intersects(matchKeys(second)));
}

void FaceEventsTest::keepsWideIds()
{
    const FaceInfoPtr face = someFace();
    const long long person = 9007199254740993; // no double holds it
    face->setId(person);
    face->setIdTrack((1LL << 32) + 5);
    face->setMatches({{2, person, 0.5}});
    const QVariantMap map = published({face}).constBegin()->toMap();
    QCOMPARE(map.value(QStringLiteral("id")).toLongLong(), person);
    QCOMPARE(map.value(QStringLiteral("id_track")).userType(), int(QMetaType::Int));
    QCOMPARE(map.value(QStringLiteral("id_track")).toInt(), 5);
    const QVariantMap match = map.value(QStringLiteral("matches")).toMap().first().toMap();
    QCOMPARE(match.value(QStringLiteral("id")).toLongLong(), person);
}

void FaceEventsTest::givesEveryFaceAsItIs()
{
    // Nothing is sorted out or rounded: neither poor matches nor odd values.
    const FaceInfoPtr face = FaceInfoPtr::create();
    face->setAge(-1.25);
    face->setGender(static_cast<Gender>(99));
    face->setType(static_cast<FaceInfo::Type>(-5));
    face->setEmotion(QStringLiteral("Joy \"2\""));
    face->setMatches({{0, 0, 0.0}, {0, 0, 1e-9}});
    QCOMPARE(published({FaceInfoPtr::create(), face, someFace()}).size(), 3);
    const QVariantMap map = published({face}).constBegin()->toMap();
    QCOMPARE(map.value(QStringLiteral("age")), QVariant(-1.25));
    QCOMPARE(map.value(QStringLiteral("gender")), QVariant(99));
    QCOMPARE(map.value(QStringLiteral("type")), QVariant(-5));
    QCOMPARE(map.value(QStringLiteral("emotion")), QVariant(QStringLiteral("Joy \"2\"")));
    QCOMPARE(map.value(QStringLiteral("matches")).toMap().size(), 2);
}

void FaceEventsTest::passesOverNullEntries()
{
    QCOMPARE(published({FaceInfoPtr(), someFace(), FaceInfoPtr()}).size(), 1);
}

void FaceEventsTest::reachesThePageWithoutTheTouchMessage()
{
    defaultHandlers();
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    log().skipDebug();
    screen->faceInfo({someFace()});
    QCOMPARE(toPage.count(), 1);
    const QJsonObject message = toPage.first().first().toJsonObject();
    QCOMPARE(message.value(QStringLiteral("type")).toString(), m_infoTopic);
    QCOMPARE(message.keys(), QStringList({QStringLiteral("id"), m_key, QStringLiteral("type")}));
    // One line: the faces for the touch handler are not logged.
    QCOMPARE(log().takeTexts(QStringLiteral("panorel")), QStringList({debugText(message)}));
    QCOMPARE(log().takeTexts(QStringLiteral("default")), QStringList());
    const QJsonObject faces = message.value(m_key).toObject();
    QCOMPARE(faces.size(), 1);
    const QJsonObject face = faces.begin().value().toObject();
    QCOMPARE(face.keys(), faceKeys());
    QCOMPARE(face.value(QStringLiteral("id")).toDouble(), 9007199254740991.0);
    QVERIFY(face.value(QStringLiteral("is_tracking")).isBool());
    QCOMPARE(face.value(QStringLiteral("matches")).toObject().size(), 3);

    screen->faceInfo({});
    QCOMPARE(toPage.count(), 2);
    const QJsonValue none = toPage.last().first().toJsonObject().value(m_key);
    QVERIFY(none.isObject());
    QVERIFY(none.toObject().isEmpty());
}

void FaceEventsTest::letsAFaceBeTouched()
{
    defaultHandlers();
    screen->faceRect({FaceRectPtr::create(QRectF(10, 20, 30, 40), -3LL)});
    screen->faceInfo({someFace()});
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    touch(15, 25);
    QCOMPARE(plugin->calls, QVector<HostCall>({tracked(-3)}));
    QCOMPARE(toPage.count(), 1);
    const QJsonObject reply = toPage.first().first().toJsonObject();
    QCOMPARE(reply.value(QStringLiteral("type")).toString(), m_settedTopic);
    QCOMPARE(reply.value(QStringLiteral("setted_id")).toDouble(), 9007199254740991.0);
}

void FaceEventsTest::knowsTheFacesBeforeThePageDoes()
{
    defaultHandlers();
    screen->faceRect({FaceRectPtr::create(QRectF(10, 20, 30, 40), -3LL)});
    // The user touches the face in the very moment in which the page shows it.
    screen->registerEventHandler(m_infoTopic, [this](const Message &) { touch(15, 25); });
    MessageRecorder replies;
    replies.watch(screen->brocker(), {m_settedTopic});
    screen->faceInfo({someFace()});
    QCOMPARE(replies.topics(), QStringList({m_settedTopic}));
    screen->brocker()->clear();
}

void FaceEventsTest::forgetsTheFacesAfterAnEmptyReport()
{
    defaultHandlers();
    screen->faceRect({FaceRectPtr::create(QRectF(10, 20, 30, 40), -3LL)});
    screen->faceInfo({someFace()});
    screen->faceInfo({});
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    touch(15, 25);
    QCOMPARE(plugin->calls, QVector<HostCall>({tracked(-3)})); // the rectangle stays
    QCOMPARE(toPage.count(), 0);
}

void FaceEventsTest::takesAFaceBack()
{
    defaultHandlers();
    QSignalSpy toPage(proxy(), &PanorelProxy::message);
    screen->faceInfo({someFace()});
    QCOMPARE(toPage.count(), 1);
    const QJsonObject faces = toPage.first().first().toJsonObject().value(m_key).toObject();
    QCOMPARE(faces.size(), 1);
    for (const QString &topic :
         {QStringLiteral("dialog.replica.get"), QStringLiteral("dialog.say")}) {
        plugin->faces.clear();
        proxy()->sendMessage({{QStringLiteral("type"), topic},
                              {QStringLiteral("step"), QStringLiteral("intro")},
                              {QStringLiteral("face"), faces.begin().value()}});
        QCOMPARE(plugin->faces.size(), 1);
        QCOMPARE(sortedFields(plugin->faces.first()), sortedFields(*someFace()));
    }
}

QTEST_MAIN(FaceEventsTest)
#include "tst_faceevents.moc"
