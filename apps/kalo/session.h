#pragma once

#include "options.h"
#include "working_copy.h"

namespace cli {

// The library, open on a copy of the user's file.
class Session {
  public:
    // Throws Failure where the database cannot be opened.
    explicit Session(const CommonOptions& options);
    // The tables of the indexer in place of the standard ones.
    Session(const CommonOptions& options, bool indexer);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

  private:
    WorkingCopy copy_;
};

}  // namespace cli
