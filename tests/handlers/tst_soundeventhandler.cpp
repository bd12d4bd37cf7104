#include "panorel/handlers/SoundEventHandler.h"

#include "tests/support/HandlerTestCase.h"
#include "tests/support/PageRequest.h"
#include "tests/support/TestPlatform.h"

using panorel::Message;
using panorel::SoundEventHandler;

namespace {

const HostCall readVolume{QStringLiteral("getSoundVolume"), {}};
const HostCall readMicrophone{QStringLiteral("getMicVolume"), {}};

HostCall setVolume(int volume) { return {QStringLiteral("setSoundVolume"), {volume}}; }
HostCall setMicrophone(int level) { return {QStringLiteral("setMicVolume"), {level}}; }

} // namespace

Q_DECLARE_METATYPE(QVector<HostCall>)

class SoundEventHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        HandlerTestCase::setUp();
        TestPlatform::instance() = TestPlatform();
        TestPlatform::instance().soundVolume = 50;
        TestPlatform::instance().microphoneLevel = 70;
        watch(QStringLiteral("system.sound.load"));
        subscribe(new SoundEventHandler(brocker()), QStringLiteral("system.sound.properties"));
    }

private Q_SLOTS:
    void readsAndSets_data();
    void readsAndSets();
    void readsNumbersByConversion_data();
    void readsNumbersByConversion();
    void repliesWithIntegers();
};

void SoundEventHandlerTest::readsAndSets_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVector<HostCall>>("calls");
    QTest::addColumn<QVariantMap>("sound"); // empty without a reply
    using Calls = QVector<HostCall>;
    const QVariantMap volume{{QStringLiteral("volume"), 50}};
    const QVariantMap microphone{{QStringLiteral("mic"), 70}};
    const QVariantMap both{{QStringLiteral("volume"), 50}, {QStringLiteral("mic"), 70}};
    const auto row = [](const char *json, const Calls &calls, const QVariantMap &sound) {
        QTest::newRow(json) << QByteArray(json) << calls << sound;
    };

    row("{}", {}, {});
    row(R"({"volume": 3})", {}, {});
    row(R"({"get_volume": true})", {readVolume}, volume);
    row(R"({"get_volume": false})", {readVolume}, volume); // presence counts
    row(R"({"get_volume": null})", {readVolume}, volume);
    row(R"({"get_mic": 1})", {readMicrophone}, microphone);
    row(R"({"get_mic": null, "get_volume": {}})", {readVolume, readMicrophone}, both);
    row(R"({"set_volume": 30})", {setVolume(30)}, {});
    row(R"({"set_mic": 40})", {setMicrophone(40)}, {});
    row(R"({"set_mic": 40, "set_volume": 30})", {setVolume(30), setMicrophone(40)}, {});
    // Read before it is set.
    row(R"({"set_volume": 30, "get_volume": true})", {readVolume, setVolume(30)}, volume);
    row(R"({"set_mic": 40, "get_mic": true})", {readMicrophone, setMicrophone(40)}, microphone);
    row(R"({"set_mic": 1, "get_mic": 1, "set_volume": 2, "get_volume": 1})",
        {readVolume, setVolume(2), readMicrophone, setMicrophone(1)}, both);
}

void SoundEventHandlerTest::readsAndSets()
{
    QFETCH(QByteArray, json);
    QFETCH(QVector<HostCall>, calls);
    QFETCH(QVariantMap, sound);
    makesUpAttributes({"volume"});
    request(fromPage(json), QStringLiteral("SoundEventHandler"));
    QCOMPARE(TestPlatform::instance().calls, calls);
    if (!sound.isEmpty())
        QCOMPARE(replies().take().attributes(), QVariantMap({{QStringLiteral("sound"), sound}}));
    QVERIFY(replies().isEmpty());
}

void SoundEventHandlerTest::readsNumbersByConversion_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("number");
    QTest::newRow("text") << QByteArray("\"30\"") << 30;
    QTest::newRow("no number") << QByteArray("\"loud\"") << 0;
    QTest::newRow("empty text") << QByteArray("\"\"") << 0;
    QTest::newRow("null") << QByteArray("null") << 0;
    QTest::newRow("list") << QByteArray("[30]") << 0;
    QTest::newRow("object") << QByteArray("{}") << 0;
    QTest::newRow("true") << QByteArray("true") << 1;
    QTest::newRow("fraction") << QByteArray("29.6") << 30;
    // The scale is the mixer's, so nothing is held back here.
    QTest::newRow("negative") << QByteArray("-5") << -5;
    QTest::newRow("large") << QByteArray("70000") << 70000;
    // Beyond 32 bits the lowest ones count; beyond 64 nothing does.
    QTest::newRow("33 bits") << QByteArray("4294967301") << 5;
    QTest::newRow("2^63") << QByteArray("9223372036854775808") << 0;
    QTest::newRow("far beyond") << QByteArray("1e300") << 0;
    QTest::newRow("far below") << QByteArray("-1e300") << 0;
    QTest::newRow("text beyond 32 bits") << QByteArray("\"4294967301\"") << 5;
}

void SoundEventHandlerTest::readsNumbersByConversion()
{
    QFETCH(QByteArray, value);
    QFETCH(int, number);
    request(fromPage("{\"set_volume\": " + value + ", \"set_mic\": " + value + "}"),
            QStringLiteral("SoundEventHandler"));
    QCOMPARE(TestPlatform::instance().calls,
             QVector<HostCall>({setVolume(number), setMicrophone(number)}));
}

void SoundEventHandlerTest::repliesWithIntegers()
{
    request(fromPage(R"({"get_volume": 1, "get_mic": 1})"), QStringLiteral("SoundEventHandler"));
    const Message reply = replies().take();
    QCOMPARE(reply.type(), QStringLiteral("system.sound.load"));
    const QVariantMap sound = reply.attributes().value(QStringLiteral("sound")).toMap();
    QCOMPARE(sound.value(QStringLiteral("volume")).userType(), int(QMetaType::Int));
    QCOMPARE(sound.value(QStringLiteral("mic")).userType(), int(QMetaType::Int));
}

QTEST_GUILESS_MAIN(SoundEventHandlerTest)
#include "tst_soundeventhandler.moc"
