#pragma once

#include <stdexcept>

namespace cli {

// The question cannot be answered: its text goes to standard error, and the program ends with exit code 1.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The database engine refused what it was asked: "error 3078: …".
class EngineFailure : public Failure {
  public:
    using Failure::Failure;
};

}  // namespace cli
