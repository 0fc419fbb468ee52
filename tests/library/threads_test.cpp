#include <atomic>
#include <thread>

#include "support/library_fixture.h"

namespace {

using namespace support;

constexpr int kThreads = 4;
constexpr int kRounds = 40;

// What one thread asks in one round, as one string of bytes.
std::string Ask(std::int16_t axis, std::int32_t id) {
    KaloUserParameter parameter = {};
    KaloMonitor monitor = {};
    KaloAlarm alarm = {};
    std::uint16_t count = 0;
    std::uint32_t monitorId = 0;
    std::string answer;
    const auto append = [&answer](KaloStatus status, const void* record, std::size_t size) {
        answer.append(reinterpret_cast<const char*>(&status), sizeof status);
        answer.append(static_cast<const char*>(record), size);
    };
    append(KaloGetUParaInfo(axis, id, &parameter), &parameter, sizeof parameter);
    append(KaloGetMonitorId(axis, 1, 2, &monitorId), &monitorId, sizeof monitorId);
    append(KaloGetMonitorInfo(axis, static_cast<std::int32_t>(monitorId), &monitor), &monitor,
           sizeof monitor);
    append(KaloGetAlarmInfo(axis, 0xA30A, &alarm), &alarm, sizeof alarm);
    append(KaloGetUParaNum(axis, &count), &count, sizeof count);
    return answer;
}

class ThreadTest : public LibraryTest {};

TEST_F(ThreadTest, ManyThreadsGetTheAnswersOfOne) {
    OpenSession();
    for (const std::int16_t axis : {std::int16_t{1}, std::int16_t{2}}) {
        const std::int32_t firmware = axis == 1 ? 6 : 1;
        ASSERT_EQ(KaloUparaCreate(0, 17, firmware, 0, 3, KALO_NO_OPTION, 0, 0, axis), 0u);
        ASSERT_EQ(KaloMonCreate(0, 17, firmware, 0, 3, KALO_NO_OPTION, 0, 0, axis), 0u);
        ASSERT_EQ(KaloAlarmCreate(0, 17, firmware, 0, 3, KALO_NO_OPTION, 0, 0, axis), 0u);
    }
    const std::string expected[] = {Ask(1, 0x200), Ask(2, 0x200)};
    ASSERT_NE(expected[0], expected[1]) << "the firmware changes the limit";
    std::atomic<int> different = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int round = 0; round < kRounds; ++round) {
                const int which = (thread + round) % 2;
                if (Ask(static_cast<std::int16_t>(which + 1), 0x200) != expected[which]) ++different;
            }
        });
    }
    // Meanwhile a third axis is built and goes again.
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(KaloUparaCreate(0, 34, 4, 202, 4, KALO_NO_OPTION, 0, 0, 3), 0u);
        EXPECT_EQ(KaloDeleteAxisTable(3), 0u);
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(different, 0);
}

}  // namespace
