#pragma once

#include <cstdint>
#include <memory>

#include "dao/session.h"

namespace daoengine {

// What a CDaoDatabase holds: the session of the file that it has open, if any.
class DatabaseState {
  public:
    bool IsOpen() const { return session_ != nullptr; }
    void Open(std::unique_ptr<DatabaseFile> file) {
        session_ = std::make_unique<daoengine::Session>(std::move(file));
    }
    void Close() { session_.reset(); }

    // The open session; throws `number` when there is none.
    daoengine::Session& Session(int number) {
        if (!session_) Throw(number);
        return *session_;
    }

    std::int64_t rowsAffected = 0;

  private:
    std::unique_ptr<daoengine::Session> session_;
};

}  // namespace daoengine
