#include "panorel/handlers/FaceRecognizeControlHandler.h"

#include "tests/support/HandlerTestCase.h"
#include "tests/support/PageRequest.h"

#include <limits>

using panorel::FaceRecognizeControlHandler;

class FaceRecognizeControlHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host)
    {
        subscribe(new FaceRecognizeControlHandler(host), QStringLiteral("face.recognize.control"));
    }

    const QString m_name = QStringLiteral("FaceRecognizeControlHandler");

private Q_SLOTS:
    void switches_data();
    void switches();
    void namesAFace_data();
    void namesAFace();
    void keepsAll64BitsOfTheHostsOwn();
    void doesAllInOrder();
    void switchesTrackingBeforeTheHead();
    void doesNothingWithoutACommand();
    void dropsRequestsWithoutAHost();
};

void FaceRecognizeControlHandlerTest::switches_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("on");
    const QVector<QPair<const char *, const char *>> keys{{"tracking_auto", "faceTrackingAuto"},
                                                          {"head_enabled", "headEnable"}};
    const QVector<QPair<const char *, bool>> values{
        {"true", true}, {"false", false},     {"1", true},      {"0", false},   {"null", false},
        {"[]", false},  {"\"false\"", false}, {"\"on\"", true}, {"\"\"", false}};
    for (const auto &key : keys) {
        for (const auto &value : values) {
            QTest::addRow("%s %s", key.first, value.first)
                << QString::fromLatin1(key.first) << QByteArray(value.first)
                << QString::fromLatin1(key.second) << value.second;
        }
    }
}

void FaceRecognizeControlHandlerTest::switches()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, value);
    QFETCH(QString, call);
    QFETCH(bool, on);
    create(plugin());
    request(fromPage("{\"" + key.toLatin1() + "\": " + value + '}'), m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({{call, {on}}}));
    QCOMPARE(log().take(), QVector<LogLine>()); // and no reply, which the broker would log
}

void FaceRecognizeControlHandlerTest::namesAFace_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("call");
    QTest::addColumn<long long>("id");
    const QVector<QPair<const char *, const char *>> keys{
        {"tracking_face", "faceTracking"}, {"add_face", "faceAdd"}, {"del_face", "faceDelete"}};
    const QVector<QPair<const char *, long long>> values{
        {"7", 7},
        {"-7", -7},
        {"0", 0},
        {"4294967296", 4294967296},
        {"4503599627370497", 4503599627370497}, // 2^52 + 1, which rounds to an even number
        {"-4503599627370497", -4503599627370497},
        {"9007199254740991", 9007199254740991},
        {"-9007199254740991", -9007199254740991},
        {"9007199254740992", 9007199254740992},
        {"\"7\"", 7},
        {"\"9223372036854775807\"", std::numeric_limits<long long>::max()},
        {"\"7.5\"", 0},
        {"\"seven\"", 0},
        {"2.4", 2},
        {"2.6", 3},
        {"true", 1},
        {"null", 0},
        {"[7]", 0},
        {"{}", 0},
        {"1e300", 0},
        {"-1e300", 0},
        {"9223372036854775808", 0},
        {"-9223372036854775808", std::numeric_limits<long long>::min()},
    };
    for (const auto &key : keys) {
        for (const auto &value : values) {
            QTest::addRow("%s %s", key.first, value.first)
                << QString::fromLatin1(key.first) << QByteArray(value.first)
                << QString::fromLatin1(key.second) << value.second;
        }
    }
}

void FaceRecognizeControlHandlerTest::namesAFace()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, value);
    QFETCH(QString, call);
    QFETCH(long long, id);
    create(plugin());
    request(fromPage("{\"" + key.toLatin1() + "\": " + value + '}'), m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({{call, {id}}}));
    QCOMPARE(log().take(), QVector<LogLine>());
}

void FaceRecognizeControlHandlerTest::keepsAll64BitsOfTheHostsOwn()
{
    // The host itself may publish, and its numbers are integers.
    create(plugin());
    const long long id = std::numeric_limits<long long>::max();
    request({{QStringLiteral("add_face"), id}}, m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({{QStringLiteral("faceAdd"), {id}}}));
}

void FaceRecognizeControlHandlerTest::doesAllInOrder()
{
    create(plugin());
    request(fromPage(R"({"add_face": 2, "del_face": 3, "head_enabled": false, "tracking_auto": true,
                         "tracking_face": 1})"),
            m_name);
    QCOMPARE(takeCalls(),
             QVector<HostCall>({{QStringLiteral("faceTrackingAuto"), {true}},
                                {QStringLiteral("faceTracking"), {1LL}},
                                {QStringLiteral("faceAdd"), {2LL}},
                                {QStringLiteral("faceDelete"), {3LL}},
                                {QStringLiteral("headEnable"), {false}}}));
    QCOMPARE(log().take(), QVector<LogLine>());
}

void FaceRecognizeControlHandlerTest::switchesTrackingBeforeTheHead()
{
    create(plugin());
    request(fromPage(R"({"head_enabled": true, "tracking_auto": false})"), m_name);
    QCOMPARE(takeCalls(),
             QVector<HostCall>({{QStringLiteral("faceTrackingAuto"), {false}},
                                {QStringLiteral("headEnable"), {true}}}));
}

void FaceRecognizeControlHandlerTest::doesNothingWithoutACommand()
{
    makesUpAttributes({"face", "tracking"});
    create(plugin());
    request({}, m_name);
    request(fromPage(R"({"tracking": true, "face": 7})"), m_name);
    QCOMPARE(log().take(), QVector<LogLine>());
}

void FaceRecognizeControlHandlerTest::dropsRequestsWithoutAHost()
{
    create(nullptr);
    request(fromPage(R"({"add_face": 2, "del_face": 3, "head_enabled": false, "tracking_auto": true,
                         "tracking_face": 1})"),
            m_name);
    QCOMPARE(log().take(), QVector<LogLine>());
}

QTEST_GUILESS_MAIN(FaceRecognizeControlHandlerTest)
#include "tst_facerecognizecontrolhandler.moc"
