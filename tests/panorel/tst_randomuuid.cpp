#include "panorel/RandomUuid.h"

#include "tests/support/TestCase.h"

#include <algorithm>
#include <array>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

using panorel::randomUuid;

namespace {

using Uuids = std::vector<QUuid>;

Uuids draw(int count)
{
    Uuids uuids(static_cast<std::size_t>(count));
    std::generate(uuids.begin(), uuids.end(), randomUuid);
    return uuids;
}

bool allDiffer(Uuids uuids)
{
    std::sort(uuids.begin(), uuids.end());
    return std::adjacent_find(uuids.begin(), uuids.end()) == uuids.end();
}

/// What a forked child draws next.
Uuids drawInAChild(int count)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    const std::size_t bytes = static_cast<std::size_t>(count) * sizeof(QUuid);
    const pid_t child = fork();
    if (child == 0) {
        const Uuids uuids = draw(count);
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
    void isOfTheRandomKind();
    void neverRepeats();
    void setsEachOtherBitHalfTheTime();
    void threadsNeverRepeatEachOther();
    void aForkNeverRepeatsItsParent();
};

void RandomUuidTest::isOfTheRandomKind()
{
    for (const QUuid &uuid : draw(10000)) {
        QCOMPARE(uuid.version(), QUuid::Random);
        QCOMPARE(uuid.variant(), QUuid::DCE);
    }
}

void RandomUuidTest::neverRepeats() { QVERIFY(allDiffer(draw(1000000))); }

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
    std::array<Uuids, 4> drawn;
    std::vector<std::thread> threads;
    for (Uuids &uuids : drawn)
        threads.emplace_back([&uuids] { uuids = draw(50000); });
    for (std::thread &thread : threads)
        thread.join();
    Uuids all = draw(50000);
    for (const Uuids &uuids : drawn)
        all.insert(all.end(), uuids.begin(), uuids.end());
    QVERIFY(allDiffer(all));
}

void RandomUuidTest::aForkNeverRepeatsItsParent()
{
    const int count = 1000;
    Uuids all = draw(3); // a block is begun
    for (int i = 0; i < 2; ++i) { // siblings, too
        const Uuids ofTheChild = drawInAChild(count);
        QCOMPARE(ofTheChild.size(), static_cast<std::size_t>(count));
        all.insert(all.end(), ofTheChild.begin(), ofTheChild.end());
    }
    const Uuids ofTheParent = draw(count);
    all.insert(all.end(), ofTheParent.begin(), ofTheParent.end());
    QVERIFY(allDiffer(all));
}

QTEST_GUILESS_MAIN(RandomUuidTest)
#include "tst_randomuuid.moc"
