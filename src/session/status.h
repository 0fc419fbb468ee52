#pragma once

#include <cstdint>

namespace kalo {

// What every exported function returns: 0, or a code that names the function and the case.
using Status = std::uint32_t;

constexpr Status kOk = 0;

// What a locked stretch answers when a CDaoException is caught in it. After a caught exception the lock stays
// held by the calling thread, unless the stretch says that it leaves it.
class OnDaoError {
  public:
    constexpr OnDaoError(Status base, bool addsNumber, bool leavesLock)
        : base_(base), addsNumber_(addsNumber), leavesLock_(leavesLock) {}

    constexpr Status StatusOf(std::int32_t daoError) const {
        return addsNumber_ ? base_ + static_cast<Status>(daoError) : base_;
    }
    constexpr bool LeavesLock() const { return leavesLock_; }

    // The same answer, but the lock is left.
    constexpr OnDaoError AndLeaveLock() const { return {base_, addsNumber_, true}; }

  private:
    Status base_;
    bool addsNumber_;
    bool leavesLock_;
};

// `base` + the DAO error number; keeps the lock.
constexpr OnDaoError DaoBase(Status base) {
    return {base, true, false};
}

// `code` without the DAO error number; keeps the lock.
constexpr OnDaoError DaoCode(Status code) {
    return {code, false, false};
}

}  // namespace kalo
