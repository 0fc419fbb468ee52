#pragma once

#include <exception>
#include <new>
#include <string>

#include "jet/error.h"

// The boundary of the DAO classes: what fails inside leaves as a CDaoException*, and as nothing else.
namespace daoengine {

// Throws a CDaoException* with the number and its text (UTF-8).
[[noreturn]] void ThrowDaoException(int number, const std::string& text);

// Runs a member's work and turns whatever it throws into a CDaoException*.
template <typename Work>
auto Guard(Work&& work) -> decltype(work()) {
    try {
        return work();
    } catch (const jet::Error& error) {
        ThrowDaoException(error.Number(), error.what());
    } catch (const std::bad_alloc&) {
        ThrowDaoException(3035, {});
    } catch (const std::exception& error) {
        ThrowDaoException(3001, error.what());
    }
}

}  // namespace daoengine
