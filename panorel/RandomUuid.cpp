#include "panorel/RandomUuid.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include <pthread.h>
#include <sys/random.h>

namespace panorel {

namespace {

constexpr std::size_t bytesOfUuid = 16;

/// How often this process was forked off another one, as far as anybody asked.
std::atomic<unsigned> forks{0};

/// Counts forks from the first call on. What was drawn before the child began is the parent's.
unsigned forkCount()
{
    static const int registered =
        pthread_atfork(nullptr, nullptr, [] { forks.fetch_add(1, std::memory_order_relaxed); });
    Q_UNUSED(registered)
    return forks.load(std::memory_order_relaxed);
}

/// One thread's randomness that nobody has used yet.
struct Block
{
    std::array<unsigned char, 256 * bytesOfUuid> bytes;
    std::size_t used;
    unsigned fork;
};

// All zeros at first, so that reaching it costs no initialisation: a block of fork 0 counts as full
// only once it was filled.
thread_local Block block;
thread_local bool hasBlock = false;

bool fill(Block &target)
{
    std::size_t filled = 0;
    while (filled < target.bytes.size()) {
        const ssize_t got =
            getrandom(target.bytes.data() + filled, target.bytes.size() - filled, 0);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false; // a kernel without it
        filled += static_cast<std::size_t>(got);
    }
    target.used = 0;
    return true;
}

} // namespace

QUuid randomUuid()
{
    const unsigned fork = forkCount();
    if (!hasBlock || block.fork != fork || block.used == block.bytes.size()) {
        hasBlock = fill(block);
        block.fork = fork;
        if (!hasBlock)
            return QUuid::createUuid();
    }
    QUuid uuid;
    unsigned char *const source = block.bytes.data() + block.used;
    static_assert(sizeof uuid == bytesOfUuid, "a UUID is its 16 bytes");
    std::memcpy(&uuid, source, bytesOfUuid);
    std::memset(source, 0, bytesOfUuid); // an id given away can be read nowhere else
    block.used += bytesOfUuid;

    uuid.data3 = static_cast<ushort>((uuid.data3 & 0x0fff) | (QUuid::Random << 12));
    uuid.data4[0] = static_cast<uchar>((uuid.data4[0] & 0x3f) | 0x80);
    return uuid;
}

} // namespace panorel
