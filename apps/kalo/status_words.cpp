#include "status_words.h"

#include <fmt/format.h>

#include <algorithm>

#include "failure.h"

namespace cli {
namespace {

constexpr KaloStatus kDaoDigits = 0xFFFF;

struct DaoError {
    int number;
    const char* words;
};

constexpr DaoError kDaoErrors[] = {
    {3001, "invalid argument"},
    {3010, "the table already exists"},
    {3021, "there is no such row"},
    {3022, "a duplicate value in a unique index"},
    {3024, "the file does not exist"},
    {3026, "not enough space on disk"},
    {3027, "the file is read-only"},
    {3031, "the password is wrong"},
    {3035, "out of resources"},
    {3043, "disk or network error"},
    {3045, "the file is in use"},
    {3049, "the database is damaged"},
    {3051, "the file cannot be opened or written"},
    {3061, "a name in the statement is unknown"},
    {3075, "syntax error in an expression"},
    {3078, "a table or query does not exist"},
    {3197, "the data is damaged or was changed meanwhile"},
    {3211, "the table is in use"},
    {3218, "the row is locked"},
    {3265, "no such column"},
    {3343, "the file is not a database"},
    {3346, "number of values and columns differ"},
    {3376, "the table does not exist"},
    {3420, "the object is closed"},
    {3464, "data types do not match"},
};

bool Names(const StatusEntry& entry, std::string_view function) {
    const std::string list = fmt::format(", {},", entry.functions);
    return list.find(fmt::format(" {},", function)) != std::string::npos;
}

}  // namespace

std::string DaoWords(int error) {
    const auto found = std::ranges::find(kDaoErrors, error, &DaoError::number);
    return found == std::end(kDaoErrors) ? fmt::format("DAO error {}", error) : found->words;
}

std::vector<StatusMeaning> MeaningsOf(KaloStatus status) {
    std::vector<StatusMeaning> meanings;
    for (const StatusEntry& entry : StatusRegister())
        if (entry.code == status) meanings.push_back({&entry, 0});
    const int error = static_cast<int>(status & kDaoDigits);
    for (const StatusEntry& entry : StatusRegister())
        if (error != 0 && entry.withDao && entry.code == (status & ~kDaoDigits))
            meanings.push_back({&entry, error});
    return meanings;
}

std::string StatusWords(std::string_view function, KaloStatus status) {
    const std::vector<StatusMeaning> meanings = MeaningsOf(status);
    const auto found = std::ranges::find_if(
        meanings, [function](const StatusMeaning& meaning) { return Names(*meaning.entry, function); });
    if (found == meanings.end()) return fmt::format("{} failed (status 0x{:08X})", function, status);
    if (found->daoError == 0)
        return fmt::format("{} (status 0x{:08X} of {})", found->entry->words, status, function);
    return fmt::format("{}: {} (DAO error {}, status 0x{:08X} of {})", found->entry->words,
                       DaoWords(found->daoError), found->daoError, status, function);
}

void Check(std::string_view function, KaloStatus status) {
    if (status != 0) throw Failure(StatusWords(function, status));
}

}  // namespace cli
