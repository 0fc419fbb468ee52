#pragma once

#include <kalodata/types.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Words for the library's status codes, from the registers beside its sources, and for DAO's error numbers.
namespace cli {

struct StatusEntry {
    KaloStatus code;
    bool withDao;           // a DAO error number is added to the code
    const char* functions;  // comma-separated
    const char* words;      // the case
};

// Every row of the registers.
std::span<const StatusEntry> StatusRegister();

// What a code may mean: the rows that have it, then those that have it with a DAO error number added.
struct StatusMeaning {
    const StatusEntry* entry;
    int daoError;  // 0: none
};
std::vector<StatusMeaning> MeaningsOf(KaloStatus status);

// Words for a DAO error number; "DAO error N" for one without.
std::string DaoWords(int error);

// One line for a status that a function returned, with the code.
std::string StatusWords(std::string_view function, KaloStatus status);

// Throws Failure with these words unless the status is 0.
void Check(std::string_view function, KaloStatus status);

}  // namespace cli
