#include "panorel/handlers/GeneralTouchHandler.h"

#include "tests/support/HandlerTestCase.h"
#include "tests/support/Noted.h"
#include "tests/support/PageRequest.h"

using panorel::GeneralTouchHandler;
using panorel::Message;

namespace {

FaceRectPtr rectAt(const QRectF &rect, long long idTrack)
{
    return FaceRectPtr::create(rect, idTrack);
}

FaceInfoPtr faceOf(long long idTrack, long long id)
{
    auto face = FaceInfoPtr::create();
    face->setIdTrack(idTrack);
    face->setId(id);
    return face;
}

} // namespace

class GeneralTouchHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host)
    {
        watch(m_settedTopic);
        subscribe(new GeneralTouchHandler(host, brocker()), m_topicName);
    }

    /// As a report of the robot or a message of the page. Nothing of it is logged.
    void report(const QVariantMap &attributes)
    {
        log().skipDebug();
        brocker()->publish(Message(m_topicName, attributes));
        QCOMPARE(log().take(), QVector<LogLine>());
    }
    void reportRects(const QVector<FaceRectPtr> &rects)
    {
        report({{QStringLiteral("rect"), QVariant::fromValue(rects)}});
    }
    void reportFaces(const QVector<FaceInfoPtr> &faces)
    {
        report({{QStringLiteral("info"), QVariant::fromValue(faces)}});
    }

    void touch(double x, double y)
    {
        request({{QStringLiteral("x"), x}, {QStringLiteral("y"), y}}, m_name);
    }

    static HostCall tracked(long long idTrack)
    {
        return {QStringLiteral("faceTracking"), {idTrack}};
    }

    /// The persons of all replies.
    QVector<long long> takePersons()
    {
        QVector<long long> persons;
        while (!replies().isEmpty()) {
            const QVariantMap attributes = replies().take().attributes();
            persons.append(attributes.value(QStringLiteral("setted_id")).toLongLong());
        }
        return persons;
    }

    const QString m_topicName = QStringLiteral("system.general.touch");
    const QString m_settedTopic = QStringLiteral("system.general.setted");
    const QString m_name = QStringLiteral("GeneralTouchHandler");
    const QRectF m_area{10, 20, 30, 40};

private Q_SLOTS:
    void choosesTheTouchedFace();
    void answersBeforeItTracks();
    void doesNothingBeforeAnyReport();
    void onlyLogsATouchBesideTheFaces();
    void countsEdgesAsQtDoes_data();
    void countsEdgesAsQtDoes();
    void choosesEachOfOverlappingFaces();
    void answersForEachFaceOfTheTrack();
    void tracksAFaceThatNobodyKnows();
    void comparesWholeTrackIds_data();
    void comparesWholeTrackIds();
    void keepsAll64BitsOfThePerson();
    void takesTheLastReportOfEachKind();
    void forgetsWithAnEmptyReport();
    void takesRectanglesFirst();
    void dropsATouchWithoutAPoint_data();
    void dropsATouchWithoutAPoint();
    void readsPoints_data();
    void readsPoints();
    void forgetsRectanglesThatAPageSends_data();
    void forgetsRectanglesThatAPageSends();
    void forgetsFacesThatAPageSends_data();
    void forgetsFacesThatAPageSends();
    void goesOnWithTheOldReportDuringASelection();
    void answersWithTheOldFacesDuringASelection();
    void passesOverNullEntries();
    void answersWithoutAHost();
};

void GeneralTouchHandlerTest::choosesTheTouchedFace()
{
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(4, 41), faceOf(5, 51)});
    touch(15, 25.5);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
    QCOMPARE(replies().count(), 1);
    const Message reply = replies().take();
    QCOMPARE(reply.type(), m_settedTopic);
    QCOMPARE(reply.attributes(), QVariantMap({{QStringLiteral("setted_id"), 51LL}}));
    QCOMPARE(reply.attributes().value(QStringLiteral("setted_id")).userType(),
             int(QMetaType::LongLong));
    const QString category = QStringLiteral("panorel");
    const QVector<LogLine> expected{
        {QtDebugMsg, QStringLiteral("default"),
         QStringLiteral("rect QPointF(10,20) QPointF(40,60)")},
        {QtDebugMsg, category, QStringLiteral("SUCCESS SELECT 5")},
        {QtDebugMsg, category, debugText(reply.toJson())},
    };
    QCOMPARE(log().take(), expected);
}

void GeneralTouchHandlerTest::answersBeforeItTracks()
{
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(5, 51)});
    Noted<int> repliesAtCall;
    connect(plugin(), &PluginInterface::signalFaceTracking, &repliesAtCall,
            [this, &repliesAtCall] { repliesAtCall.value = replies().count(); });
    touch(15, 25);
    QCOMPARE(repliesAtCall.value, 1);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
    QCOMPARE(takePersons(), QVector<long long>({51}));
}

void GeneralTouchHandlerTest::doesNothingBeforeAnyReport()
{
    create(plugin());
    touch(15, 25);
    QCOMPARE(log().take(), QVector<LogLine>());
    reportFaces({faceOf(0, 51)});
    touch(0, 0);
    QCOMPARE(log().take(), QVector<LogLine>());
}

void GeneralTouchHandlerTest::onlyLogsATouchBesideTheFaces()
{
    create(plugin());
    reportRects({rectAt(m_area, 5), rectAt({0.5, 1, 2, 2}, 6)});
    reportFaces({faceOf(5, 51), faceOf(6, 61)});
    touch(100, 100);
    QCOMPARE(log().takeTexts(QStringLiteral("default")),
             QStringList({QStringLiteral("rect QPointF(10,20) QPointF(40,60)"),
                          QStringLiteral("rect QPointF(0.5,1) QPointF(2.5,3)")}));
    QCOMPARE(log().take(), QVector<LogLine>());
}

void GeneralTouchHandlerTest::countsEdgesAsQtDoes_data()
{
    QTest::addColumn<QRectF>("area");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<bool>("inside");
    QTest::newRow("left") << m_area << QPointF(10, 30) << true;
    QTest::newRow("right") << m_area << QPointF(40, 30) << true;
    QTest::newRow("top") << m_area << QPointF(20, 20) << true;
    QTest::newRow("bottom") << m_area << QPointF(20, 60) << true;
    QTest::newRow("corner") << m_area << QPointF(40, 60) << true;
    QTest::newRow("left of it") << m_area << QPointF(9.999, 30) << false;
    QTest::newRow("right of it") << m_area << QPointF(40.001, 30) << false;
    QTest::newRow("above") << m_area << QPointF(20, 19.999) << false;
    QTest::newRow("below") << m_area << QPointF(20, 60.001) << false;
    QTest::newRow("x and y swapped") << m_area << QPointF(55, 15) << false;
    QTest::newRow("turned over") << QRectF(40, 60, -30, -40) << QPointF(15, 25) << true;
    QTest::newRow("flat") << QRectF(10, 20, 30, 0) << QPointF(20, 20) << false;
}

void GeneralTouchHandlerTest::countsEdgesAsQtDoes()
{
    QFETCH(QRectF, area);
    QFETCH(QPointF, point);
    QFETCH(bool, inside);
    QCOMPARE(area.contains(point), inside);
    create(plugin());
    reportRects({rectAt(area, 5)});
    touch(point.x(), point.y());
    QCOMPARE(takeCalls(), inside ? QVector<HostCall>({tracked(5)}) : QVector<HostCall>());
}

void GeneralTouchHandlerTest::choosesEachOfOverlappingFaces()
{
    create(plugin());
    brocker()->subscribe(m_settedTopic, [this](const Message &reply) {
        plugin()->calls.append(
            {QStringLiteral("reply"), {reply.attributes().value(QStringLiteral("setted_id"))}});
    });
    log().skipDebug();
    reportRects({rectAt(m_area, 7), rectAt({100, 100, 1, 1}, 6), rectAt({0, 0, 50, 50}, 5)});
    reportFaces({faceOf(5, 51), faceOf(6, 61), faceOf(7, 71)});
    touch(15, 25);
    QCOMPARE(takeCalls(),
             QVector<HostCall>({{QStringLiteral("reply"), {71LL}},
                                tracked(7),
                                {QStringLiteral("reply"), {51LL}},
                                tracked(5)}));
    QCOMPARE(takePersons(), QVector<long long>({71, 51}));
    QCOMPARE(log().takeTexts(QStringLiteral("default")).size(), 3);
}

void GeneralTouchHandlerTest::answersForEachFaceOfTheTrack()
{
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(5, 52), faceOf(4, 41), faceOf(5, 51), faceOf(5, 52)});
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
    QCOMPARE(takePersons(), QVector<long long>({52, 51, 52}));
}

void GeneralTouchHandlerTest::tracksAFaceThatNobodyKnows()
{
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(4, 5)});
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
    QCOMPARE(log().takeTexts(QStringLiteral("panorel")),
             QStringList({QStringLiteral("SUCCESS SELECT 5")}));
}

void GeneralTouchHandlerTest::comparesWholeTrackIds_data()
{
    QTest::addColumn<long long>("ofRect");
    QTest::addColumn<long long>("ofFace");
    QTest::addColumn<bool>("same");
    const long long beyond = 1LL << 32;
    QTest::newRow("same") << 5LL << 5LL << true;
    QTest::newRow("zero") << 0LL << 0LL << true;
    QTest::newRow("negative") << -1LL << -1LL << true;
    // A face gives its track id's low 32 bits, with their sign.
    QTest::newRow("face without its high bits") << 5LL << 5 + beyond << true;
    QTest::newRow("rectangle with high bits") << 5 + beyond << 5LL << false;
    QTest::newRow("both with high bits") << 5 + beyond << 5 + beyond << false;
    QTest::newRow("no sign") << beyond - 1 << -1LL << false;
    QTest::newRow("sign of the face") << -1LL << beyond - 1 << true;
}

void GeneralTouchHandlerTest::comparesWholeTrackIds()
{
    QFETCH(long long, ofRect);
    QFETCH(long long, ofFace);
    QFETCH(bool, same);
    create(plugin());
    reportRects({rectAt(m_area, ofRect)});
    reportFaces({faceOf(ofFace, 51)});
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(ofRect)}));
    QCOMPARE(takePersons(), same ? QVector<long long>({51}) : QVector<long long>());
}

void GeneralTouchHandlerTest::keepsAll64BitsOfThePerson()
{
    create(plugin());
    const long long person = 9007199254740993; // no double holds it
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(5, person)});
    touch(15, 25);
    takeCalls();
    QCOMPARE(takePersons(), QVector<long long>({person}));
}

void GeneralTouchHandlerTest::takesTheLastReportOfEachKind()
{
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(5, 51), faceOf(6, 61)});
    reportRects({rectAt(m_area, 6)}); // the faces stay
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(6)}));
    QCOMPARE(takePersons(), QVector<long long>({61}));
    reportFaces({faceOf(6, 62)}); // the rectangles stay
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(6)}));
    QCOMPARE(takePersons(), QVector<long long>({62}));
}

void GeneralTouchHandlerTest::forgetsWithAnEmptyReport()
{
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(5, 51)});
    reportFaces({});
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
    reportRects({});
    log().skipDebug();
    touch(15, 25);
    QCOMPARE(log().take(), QVector<LogLine>());
}

void GeneralTouchHandlerTest::takesRectanglesFirst()
{
    create(plugin());
    reportFaces({faceOf(5, 51)});
    const QVector<FaceRectPtr> rects{rectAt(m_area, 5)};
    const QVector<FaceInfoPtr> others{faceOf(5, 52)};
    // Neither the faces nor the point count beside rectangles, ...
    report({{QStringLiteral("rect"), QVariant::fromValue(rects)},
            {QStringLiteral("info"), QVariant::fromValue(others)},
            {QStringLiteral("x"), 15},
            {QStringLiteral("y"), 25}});
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
    QCOMPARE(takePersons(), QVector<long long>({51}));
    log().skipDebug();
    // ... nor the point beside faces.
    report({{QStringLiteral("info"), QVariant::fromValue(others)},
            {QStringLiteral("x"), 15},
            {QStringLiteral("y"), 25}});
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
    QCOMPARE(takePersons(), QVector<long long>({52}));
}

void GeneralTouchHandlerTest::dropsATouchWithoutAPoint_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {"{}", R"({"x": 15})", R"({"y": 25})", R"({"X": 15, "Y": 25})"})
        QTest::newRow(json) << QByteArray(json);
}

void GeneralTouchHandlerTest::dropsATouchWithoutAPoint()
{
    QFETCH(QByteArray, json);
    makesUpAttributes({"X", "Y"});
    create(plugin());
    reportRects({rectAt({-100, -100, 1000, 1000}, 5)});
    request(fromPage(json), m_name);
    QCOMPARE(log().take(), QVector<LogLine>());
}

void GeneralTouchHandlerTest::readsPoints_data()
{
    QTest::addColumn<QByteArray>("x");
    QTest::addColumn<QByteArray>("y");
    QTest::addColumn<QPointF>("point");
    const auto row = [](const char *x, const char *y, const QPointF &point) {
        QTest::addRow("%s %s", x, y) << QByteArray(x) << QByteArray(y) << point;
    };
    row("0.25", "-7.5", {0.25, -7.5});
    row("\"12.5\"", "\"7\"", {12.5, 7}); // texts of numbers count
    row("\"left\"", "3", {0, 3});
    row("3", "\"\"", {3, 0});
    row("null", "[4]", {0, 0}); // null is present
    row("{}", "true", {0, 1});
}

void GeneralTouchHandlerTest::readsPoints()
{
    QFETCH(QByteArray, x);
    QFETCH(QByteArray, y);
    QFETCH(QPointF, point);
    create(plugin());
    const QRectF around(point - QPointF(0.1, 0.1), QSizeF(0.2, 0.2));
    reportRects({rectAt(around, 5)});
    request(fromPage("{\"x\": " + x + ", \"y\": " + y + '}'), m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
}

namespace {

/// What a page may send where the robot sends a vector.
void addPageValues()
{
    QTest::addColumn<QByteArray>("value");
    for (const char *value : {"[]", "[{\"idTrack\": 5}]", "{}", "\"x\"", "5", "true", "null"})
        QTest::newRow(value) << QByteArray(value);
}

} // namespace

void GeneralTouchHandlerTest::forgetsRectanglesThatAPageSends_data() { addPageValues(); }

void GeneralTouchHandlerTest::forgetsRectanglesThatAPageSends()
{
    QFETCH(QByteArray, value);
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    report(fromPage("{\"x\": 15, \"y\": 25, \"rect\": " + value + '}'));
    touch(15, 25);
    QCOMPARE(log().take(), QVector<LogLine>());
}

void GeneralTouchHandlerTest::forgetsFacesThatAPageSends_data() { addPageValues(); }

void GeneralTouchHandlerTest::forgetsFacesThatAPageSends()
{
    QFETCH(QByteArray, value);
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(5, 51)});
    report(fromPage("{\"x\": 15, \"y\": 25, \"info\": " + value + '}'));
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
}

void GeneralTouchHandlerTest::goesOnWithTheOldReportDuringASelection()
{
    create(plugin());
    FaceRectPtr second = rectAt(m_area, 6);
    const QWeakPointer<FaceRect> watched = second;
    reportRects({rectAt(m_area, 5), second});
    second.reset(); // only the handler holds it now
    Noted<QVector<bool>> lives;
    connect(plugin(), &PluginInterface::signalFaceTracking, &lives, [this, &lives, watched] {
        const QVector<FaceRectPtr> rects{rectAt(m_area, 8)};
        brocker()->publish(
            Message(m_topicName, {{QStringLiteral("rect"), QVariant::fromValue(rects)}}));
        lives.value.append(!watched.isNull());
    });
    touch(15, 25);
    QCOMPARE(lives.value, QVector<bool>({true, true}));
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5), tracked(6)}));
    QVERIFY(watched.isNull());
    log().skipDebug();
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(8)}));
}

void GeneralTouchHandlerTest::answersWithTheOldFacesDuringASelection()
{
    create(plugin());
    reportRects({rectAt(m_area, 5)});
    FaceInfoPtr second = faceOf(5, 52);
    const QWeakPointer<FaceInfo> watched = second;
    reportFaces({faceOf(5, 51), second});
    second.reset(); // only the handler holds it now
    QVector<bool> lives;
    brocker()->subscribe(m_settedTopic, [&, this](const Message &) {
        const QVector<FaceInfoPtr> faces{faceOf(5, 53)};
        brocker()->publish(
            Message(m_topicName, {{QStringLiteral("info"), QVariant::fromValue(faces)}}));
        lives.append(!watched.isNull());
    });
    log().skipDebug();
    touch(15, 25);
    QCOMPARE(lives, QVector<bool>({true, true}));
    QCOMPARE(takePersons(), QVector<long long>({51, 52}));
    QVERIFY(watched.isNull());
    log().skipDebug();
    touch(15, 25);
    QCOMPARE(takePersons(), QVector<long long>({53}));
    takeCalls();
}

void GeneralTouchHandlerTest::passesOverNullEntries()
{
    create(plugin());
    reportRects({FaceRectPtr(), rectAt(m_area, 5)});
    reportFaces({FaceInfoPtr(), faceOf(5, 51)});
    touch(15, 25);
    QCOMPARE(takeCalls(), QVector<HostCall>({tracked(5)}));
    QCOMPARE(takePersons(), QVector<long long>({51}));
}

void GeneralTouchHandlerTest::answersWithoutAHost()
{
    create(nullptr);
    reportRects({rectAt(m_area, 5)});
    reportFaces({faceOf(5, 51)});
    touch(15, 25);
    QCOMPARE(takePersons(), QVector<long long>({51}));
}

QTEST_GUILESS_MAIN(GeneralTouchHandlerTest)
#include "tst_generaltouchhandler.moc"
