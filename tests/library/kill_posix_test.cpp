#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "support/library_fixture.h"

// A process killed anywhere in a session is followed by a KaloCopy and a session that hold what they always
// hold.

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int32_t kNone = KALO_NO_OPTION;

class KillTest : public support::LibraryTest {
  protected:
    void SetUp() override { ShipSample(); }

    // A session up to its end: two axes, one of which goes again.
    static bool BeginSession() {
        return KaloCopy(0) == 0 && KaloOpen(0) == 0 && KaloUparaCreate(0, 18, 5, 202, 4, 3, 3, 202, 1) == 0 &&
               KaloModelInfoCreate(18, 5, 202, 4, 3, 3, 202, 302, 4, 3, 1) == 0 &&
               KaloUparaCreate(0, 17, 6, 101, 3, kNone, 0, 0, 2) == 0 && KaloDeleteAxisTable(2) == 0;
    }

    static bool EndSession() { return KaloDeleteAxisTable(1) == 0 && KaloClose() == 0; }

    // What a session holds at its end, row by row.
    static std::string Contents() {
        std::string text;
        for (const char* table :
             {"mdbname", "tablemanager", "model", "MonitorID", "AMPB200_FN_5_202_4_3_202_Upara",
              "AMPB200_FN_5_202_4_3_202_nibble", "AMPB200_FN_5_202_4_3_202_dec", "FirmUPara", "paraname"}) {
            text += std::string(table) + "\n" + Dump(std::string("SELECT * FROM [") + table + "]");
        }
        return text;
    }

    // Runs sessions in a process of their own, which is killed after a while.
    static void RunAndKill(Clock::duration after) {
        const pid_t child = fork();
        ASSERT_NE(child, -1);
        if (child == 0) {
            while (BeginSession() && EndSession()) {
            }
            _exit(1);
        }
        std::this_thread::sleep_for(after);
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status)) << "the session failed by itself";
    }
};

TEST_F(KillTest, TheNextSessionWorks) {
    constexpr int kRounds = 16;
    const auto start = Clock::now();
    ASSERT_TRUE(BeginSession());
    const std::string contents = Contents();
    ASSERT_TRUE(EndSession());
    const auto duration = Clock::now() - start;
    for (int round = 0; round < kRounds; ++round) {
        // Every other round begins without a working file, with its conversion.
        if (round % 2 == 0) KaloRemove();
        RunAndKill(duration * round / kRounds);
        ASSERT_TRUE(BeginSession()) << "round " << round;
        EXPECT_EQ(Contents(), contents) << "round " << round;
        ASSERT_TRUE(EndSession()) << "round " << round;
    }
}

}  // namespace
