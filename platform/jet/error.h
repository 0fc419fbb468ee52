#pragma once

#include <stdexcept>
#include <string>

namespace jet {

// A failed operation of the engine, by the error number that DAO documents for the condition (3024, 3078, …).
// The DAO classes turn it into a CDaoException at their boundary.
class Error : public std::runtime_error {
  public:
    Error(int number, const std::string& text) : std::runtime_error(text), number_(number) {}
    int Number() const { return number_; }

  private:
    int number_;
};

}  // namespace jet
