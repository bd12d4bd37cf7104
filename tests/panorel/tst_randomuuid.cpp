#include "panorel/RandomUuid.h"

#include "panorel/Message.h"
#include "tests/support/TestCase.h"

#include <algorithm>
#include <array>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

using panorel::Message;
using panorel::randomUuid;

using Source = QUuid (*)();
Q_DECLARE_METATYPE(Source)

namespace {

using Uuids = std::vector<QUuid>;

QUuid idOfAMessage() { return Message(QStringLiteral("system.log")).id(); }

QUuid idOfAMessageWithAttributes() { return Message(QStringLiteral("system.log"), {}).id(); }

Uuids draw(int count, Source source = randomUuid)
{
    Uuids uuids(static_cast<std::size_t>(count));
    std::generate(uuids.begin(), uuids.end(), source);
    return uuids;
}

bool isOfTheRandomKind(const QUuid &uuid)
{
    return uuid.version() == QUuid::Random && uuid.variant() == QUuid::DCE;
}

bool allDiffer(Uuids uuids)
{
    std::sort(uuids.begin(), uuids.end());
    return std::adjacent_find(uuids.begin(), uuids.end()) == uuids.end();
}

/// What a forked child draws next.
Uuids drawInAChild(int count, Source source)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    const std::size_t bytes = static_cast<std::size_t>(count) * sizeof(QUuid);
    const pid_t child = fork();
    if (child == 0) {
        const Uuids uuids = draw(count, source);
        const bool written =
            write(ends[1], uuids.data(), bytes) == static_cast<ssize_t>(bytes); // fits the pipe
        _exit(written ? 0 : 1);
    }
    close(ends[1]);
    Uuids uuids(static_cast<std::size_t>(count));
    const bool isRead = read(ends[0], uuids.data(), bytes) == static_cast<ssize_t>(bytes);
    close(ends[0]);
    int status = 1;
    waitpid(child, &status, 0);
    return isRead && status == 0 ? uuids : Uuids();
}

} // namespace

class RandomUuidTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void neverRepeats_data() { addSources(); }
    void neverRepeats();
    void setsEachOtherBitHalfTheTime();
    void threadsNeverRepeatEachOther_data() { addSources(); }
    void threadsNeverRepeatEachOther();
    void aForkNeverRepeatsItsParent_data() { addSources(); }
    void aForkNeverRepeatsItsParent();

private:
    void addSources();
};

void RandomUuidTest::addSources()
{
    QTest::addColumn<Source>("source");
    QTest::newRow("alone") << &randomUuid;
    QTest::newRow("message") << &idOfAMessage;
    QTest::newRow("message with attributes") << &idOfAMessageWithAttributes;
}

void RandomUuidTest::neverRepeats()
{
    QFETCH(Source, source);
    const Uuids uuids = draw(1000000, source);
    QVERIFY(std::all_of(uuids.begin(), uuids.end(), isOfTheRandomKind));
    QVERIFY(allDiffer(uuids));
}

void RandomUuidTest::setsEachOtherBitHalfTheTime()
{
    const int count = 100000;
    std::array<int, 128> set{};
    for (const QUuid &uuid : draw(count)) {
        const QByteArray bytes = uuid.toRfc4122();
        for (std::size_t bit = 0; bit < set.size(); ++bit)
            set[bit] += bytes.at(static_cast<int>(bit / 8)) >> (7 - bit % 8) & 1;
    }
    for (std::size_t bit = 0; bit < set.size(); ++bit) {
        const bool isFixed = (bit >= 48 && bit < 52) || bit == 64 || bit == 65;
        // Ten standard deviations (158 each): no chance of failing by chance.
        if (!isFixed)
            QVERIFY2(std::abs(set[bit] - count / 2) < 1580, qPrintable(QString::number(bit)));
    }
}

void RandomUuidTest::threadsNeverRepeatEachOther()
{
    QFETCH(Source, source);
    Uuids all = draw(3, source); // a block is begun
    std::array<Uuids, 4> drawn;
    std::vector<std::thread> threads;
    threads.reserve(drawn.size());
    for (Uuids &uuids : drawn)
        threads.emplace_back([&uuids, source] { uuids = draw(50000, source); });
    const Uuids meanwhile = draw(50000, source);
    for (std::thread &thread : threads)
        thread.join();
    all.insert(all.end(), meanwhile.begin(), meanwhile.end());
    for (const Uuids &uuids : drawn)
        all.insert(all.end(), uuids.begin(), uuids.end());
    QVERIFY(std::all_of(all.begin(), all.end(), isOfTheRandomKind));
    QVERIFY(allDiffer(all));
}

void RandomUuidTest::aForkNeverRepeatsItsParent()
{
    QFETCH(Source, source);
    const int count = 1000;
    Uuids all = draw(3, source); // a block is begun
    for (int i = 0; i < 2; ++i) { // siblings, too
        const Uuids ofTheChild = drawInAChild(count, source);
        QCOMPARE(ofTheChild.size(), static_cast<std::size_t>(count));
        all.insert(all.end(), ofTheChild.begin(), ofTheChild.end());
    }
    const Uuids ofTheParent = draw(count, source);
    all.insert(all.end(), ofTheParent.begin(), ofTheParent.end());
    QVERIFY(std::all_of(all.begin(), all.end(), isOfTheRandomKind));
    QVERIFY(allDiffer(all));
}

QTEST_GUILESS_MAIN(RandomUuidTest)
#include "tst_randomuuid.moc"
