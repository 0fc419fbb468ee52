#pragma once

#include <cstdint>

#include "dao/limits.h"

struct sqlite3;

namespace daoengine {

// Counts what running statements cost and stops one that runs away. One per engine connection.
class RunMeter {
  public:
    // What one statement has used so far.
    struct Account {
        std::int64_t mostSteps = limits::kSelectSteps;
        std::int64_t steps = 0;
        std::int64_t memoryAtStart = -1;
    };

    // While it lives, what the connection runs is charged to an account.
    class Charge {
      public:
        Charge(RunMeter& meter, Account& account) : meter_(meter) { meter_.account_ = &account; }
        ~Charge() { meter_.account_ = nullptr; }
        Charge(const Charge&) = delete;
        Charge& operator=(const Charge&) = delete;

      private:
        RunMeter& meter_;
    };

    void Attach(sqlite3* engine);

  private:
    static int OnProgress(void* self);
    bool Exceeded() const;

    Account* account_ = nullptr;
};

}  // namespace daoengine
