#include "panorel/handlers/StatisticEventHandler.h"

#include "tests/support/HandlerTestCase.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <ctime>

#include <sys/resource.h>
#include <sys/time.h>

using panorel::StatisticEventHandler;

namespace {

/// What this program takes for now, in seconds since 1970; the system's time when it is 0.
std::time_t pretendedNow = 0;

} // namespace

// Take the place of the C library's, whose parameters have reserved names, for Qt and the library
// alike.

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" std::time_t time(std::time_t *result) noexcept
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const std::time_t seconds = pretendedNow != 0 ? pretendedNow : now.tv_sec;
    if (result)
        *result = seconds;
    return seconds;
}

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int gettimeofday(timeval *result, void *) noexcept
{
    result->tv_sec = time(nullptr);
    result->tv_usec = 0;
    return 0;
}

class StatisticEventHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        HandlerTestCase::setUp();
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_directory = m_folder->path() + QStringLiteral("/deep/statistic/");
        m_handler = new StatisticEventHandler(m_directory);
        subscribe(m_handler, QStringLiteral("system.statistic"));
    }
    void tearDown() override
    {
        HandlerTestCase::tearDown();
        m_folder.reset();
        pretendedNow = 0;
    }

    /// Sends a record and checks that the handler itself logs nothing.
    void record(const QVariantMap &attributes)
    {
        request(attributes, QString());
        QCOMPARE(log().take(), QVector<LogLine>()); // the handler itself logs nothing
    }
    void record(const QString &topic, const QStringList &data)
    {
        record({{QStringLiteral("topic"), topic}, {QStringLiteral("data"), data}});
    }

    /// The files below the root, with their content.
    QMap<QString, QByteArray> files() const
    {
        QMap<QString, QByteArray> found;
        const QDir root(m_directory);
        const auto folders = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &folder : folders) {
            const auto names = QDir(root.filePath(folder)).entryList(QDir::Files | QDir::Hidden);
            for (const QString &name : names) {
                const QString path = folder + QLatin1Char('/') + name;
                QFile file(root.filePath(path));
                if (file.open(QIODevice::ReadOnly))
                    found.insert(path, file.readAll());
            }
        }
        return found;
    }

    static QString today() { return QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_directory;
    StatisticEventHandler *m_handler = nullptr;

private Q_SLOTS:
    void namesTheFolderAfterThePeriod_data();
    void namesTheFolderAfterThePeriod();
    void appendsRecordsByteForByte();
    void runsRecordsTogether();
    void createsAnEmptyFileForEmptyData();
    void createsAnEmptyFileWithoutData();
    void writesOneFileForEachTopic();
    void needsATopic_data();
    void needsATopic();
    void refusesTopicsThatLeaveTheFolder_data();
    void refusesTopicsThatLeaveTheFolder();
    void changesThePeriodForTheNextRecord();
    void changesTheFolderAtMidnight_data();
    void changesTheFolderAtMidnight();
    void createsAFolderThatWasRemoved();
    void losesRecordsSilently();
    void losesWhatDoesNotFitOnTheDisk();
};

void StatisticEventHandlerTest::namesTheFolderAfterThePeriod_data()
{
    QTest::addColumn<QString>("periodicity");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("folder");
    const auto row = [](const char *name, const char *periodicity, const QDate &date,
                        const char *folder) {
        QTest::newRow(name) << QString::fromLatin1(periodicity) << date
                            << QString::fromLatin1(folder);
    };
    const QDate wednesday(2019, 6, 5);
    row("year", "year", wednesday, "2019");
    row("month", "month", wednesday, "06.2019");
    row("week", "week", wednesday, "03.06.2019-09.06.2019");
    row("week, its Monday", "week", QDate(2019, 6, 3), "03.06.2019-09.06.2019");
    row("week, its Sunday", "week", QDate(2019, 6, 9), "03.06.2019-09.06.2019");
    row("week over two years", "week", QDate(2020, 1, 1), "30.12.2019-05.01.2020");
    row("day", "day", wednesday, "05.06.2019");
    row("empty", "", wednesday, "05.06.2019");
    row("any other word", "decade", wednesday, "05.06.2019");
    row("letter case counts", "Year", wednesday, "05.06.2019");
}

void StatisticEventHandlerTest::namesTheFolderAfterThePeriod()
{
    QFETCH(QString, periodicity);
    QFETCH(QDate, date);
    QFETCH(QString, folder);
    QCOMPARE(StatisticEventHandler::periodFolder(periodicity, date), folder);
}

void StatisticEventHandlerTest::appendsRecordsByteForByte()
{
    // Begun anew when midnight passes in between.
    QString folder;
    do {
        QDir(m_directory).removeRecursively();
        folder = today();
        record(QStringLiteral("visits"), {QStringLiteral("10:00;Grüße\r\n")});
        record(QStringLiteral("visits"), {QStringLiteral("10:01;\"x\"\n")});
    } while (folder != today());
    const QString path = folder + QStringLiteral("/visits.csv");
    QCOMPARE(files(),
             (QMap<QString, QByteArray>{{path,
                                         QByteArray("10:00;Gr\xC3\xBC\xC3\x9F"
                                                    "e\r\n10:01;\"x\"\n")}}));
}

void StatisticEventHandlerTest::runsRecordsTogether()
{
    record(QStringLiteral("visits"), {QStringLiteral("a;1"), QStringLiteral("b;2")});
    QCOMPARE(files().values(), QList<QByteArray>({"a;1b;2"}));
}

void StatisticEventHandlerTest::createsAnEmptyFileForEmptyData()
{
    record(QStringLiteral("visits"), {});
    QCOMPARE(files().values(), QList<QByteArray>({""}));
}

void StatisticEventHandlerTest::createsAnEmptyFileWithoutData()
{
    record({{QStringLiteral("topic"), QStringLiteral("visits")}});
    QCOMPARE(files().values(), QList<QByteArray>({""}));
}

void StatisticEventHandlerTest::writesOneFileForEachTopic()
{
    record(QStringLiteral("visits"), {QStringLiteral("1")});
    record(QStringLiteral("touches"), {QStringLiteral("2")});
    record(QStringLiteral("a topic: with %1 änd ."), {QStringLiteral("3")});
    const QStringList paths = files().keys();
    QStringList names;
    for (const QString &path : paths)
        names.append(path.section(QLatin1Char('/'), -1));
    names.sort();
    QCOMPARE(names,
             QStringList({QStringLiteral("a topic: with %1 änd ..csv"),
                          QStringLiteral("touches.csv"), QStringLiteral("visits.csv")}));
}

void StatisticEventHandlerTest::needsATopic_data()
{
    QTest::addColumn<QVariantMap>("attributes");
    const QVariant data = QStringList({QStringLiteral("1")});
    QTest::newRow("none") << QVariantMap{{QStringLiteral("data"), data}};
    QTest::newRow("empty") << QVariantMap{{QStringLiteral("data"), data},
                                          {QStringLiteral("topic"), QString()}};
    QTest::newRow("null") << QVariantMap{{QStringLiteral("data"), data},
                                         {QStringLiteral("topic"), QVariant::fromValue(nullptr)}};
}

void StatisticEventHandlerTest::needsATopic()
{
    QFETCH(QVariantMap, attributes);
    record(attributes);
    QVERIFY(!QDir(m_directory).exists());
}

void StatisticEventHandlerTest::refusesTopicsThatLeaveTheFolder_data()
{
    QTest::addColumn<QString>("topic");
    QTest::newRow("slash") << QStringLiteral("a/b");
    QTest::newRow("parent") << QStringLiteral("../../escaped");
    QTest::newRow("absolute") << QStringLiteral("/tmp/escaped");
    QTest::newRow("backslash") << QStringLiteral("a\\b");
    QTest::newRow("NUL") << QStringLiteral("a") + QChar(QChar::Null) + QStringLiteral("b");
}

void StatisticEventHandlerTest::refusesTopicsThatLeaveTheFolder()
{
    QFETCH(QString, topic);
    record(topic, {QStringLiteral("1")});
    QVERIFY(!QDir(m_directory).exists());
}

void StatisticEventHandlerTest::changesThePeriodForTheNextRecord()
{
    m_handler->setPeriodicity(QStringLiteral("year"));
    record(QStringLiteral("visits"), {QStringLiteral("1")});
    QCOMPARE(files().size(), 1);
    const int yearLength = 4;
    QCOMPARE(files().firstKey().indexOf(QLatin1Char('/')), yearLength);
    m_handler->setPeriodicity(QStringLiteral("month"));
    record(QStringLiteral("visits"), {QStringLiteral("2")});
    QCOMPARE(files().size(), 2);
}

void StatisticEventHandlerTest::changesTheFolderAtMidnight_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("midnight");
    QTest::newRow("UTC") << QByteArray("UTC0") << "2026-11-21T00:00:00Z";
    QTest::newRow("an hour from it") << QByteArray("<+01>-1") << "2026-11-20T23:00:00Z";
    QTest::newRow("three quarters") << QByteArray("<+0545>-5:45") << "2026-11-20T18:15:00Z";
}

void StatisticEventHandlerTest::changesTheFolderAtMidnight()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, midnight);
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", zone);
    tzset();
    pretendedNow = QDateTime::fromString(midnight, Qt::ISODate).toSecsSinceEpoch() - 1;
    record(QStringLiteral("visits"), {QStringLiteral("before")});
    ++pretendedNow;
    record(QStringLiteral("visits"), {QStringLiteral("after")});
    --pretendedNow; // the clock was put back
    record(QStringLiteral("visits"), {QStringLiteral("again")});
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
    tzset();
    QCOMPARE(files(),
             (QMap<QString, QByteArray>{{QStringLiteral("20.11.2026/visits.csv"), "beforeagain"},
                                        {QStringLiteral("21.11.2026/visits.csv"), "after"}}));
}

void StatisticEventHandlerTest::createsAFolderThatWasRemoved()
{
    record(QStringLiteral("visits"), {QStringLiteral("1")});
    QVERIFY(QDir(m_directory).removeRecursively());
    record(QStringLiteral("visits"), {QStringLiteral("2")});
    QCOMPARE(files().values(), QList<QByteArray>{"2"});
}

void StatisticEventHandlerTest::losesRecordsSilently()
{
    // A file stands where the folder should be.
    QVERIFY(QDir().mkpath(QFileInfo(m_directory.chopped(1)).path()));
    QFile obstacle(m_directory.chopped(1));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    record(QStringLiteral("visits"), {QStringLiteral("1")});
    QCOMPARE(obstacle.size(), 0LL);
}

void StatisticEventHandlerTest::losesWhatDoesNotFitOnTheDisk()
{
    // A limit of the process stands for a full disk: what fits is written, and then nothing more.
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handling = std::signal(SIGXFSZ, SIG_IGN);
    rlimit full = before;
    full.rlim_cur = 4;
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &full), 0);
    record(QStringLiteral("visits"), {QStringLiteral("123456")});
    record(QStringLiteral("visits"), {QStringLiteral("7")});
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handling);
    QCOMPARE(files().values(), QList<QByteArray>({"1234"}));

    record(QStringLiteral("visits"), {QStringLiteral("8")});
    QCOMPARE(files().values(), QList<QByteArray>({"12348"}));
}

QTEST_GUILESS_MAIN(StatisticEventHandlerTest)
#include "tst_statisticeventhandler.moc"
