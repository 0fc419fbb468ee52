#include <kalodata/catalogue.h>

#include <algorithm>

#include "catalogue/row_reading.h"

namespace kalo {
namespace {

enum : Status { kNotOpen = 0x2A00001A, kNoSuchSelector = 0x2A00001B };

enum : std::uint16_t { kAmplifier = 1, kOptionUnit = 2 };

constexpr char kUnknownName[KALO_NAME_SIZE] = "UNKNOWN(xxxxH)";

// The two names of a model: the amplifier's column and the option unit's.
struct NameColumns {
    const char* amplifier;
    const char* optionUnit;
};

Status ReadModelName(std::uint16_t selector, const CString& statement, const NameColumns& columns,
                     char* name) {
    if (!DatabaseIsOpen()) return kNotOpen;
    if (selector != kAmplifier && selector != kOptionUnit) {
        std::fill_n(name, KALO_NAME_SIZE, '\0');
        return kNoSuchSelector;
    }
    return Locked(DaoBase(0x2B530000), [&] {
        Rows rows(statement);
        if (rows.Empty()) {
            std::copy_n(kUnknownName, KALO_NAME_SIZE, name);
            return kOk;
        }
        rows.First();
        rows.Text(selector == kAmplifier ? columns.amplifier : columns.optionUnit, name, KALO_NAME_SIZE);
        return kOk;
    });
}

}  // namespace
}  // namespace kalo

using namespace kalo;

KaloStatus KALO_CALL KaloGetModelOffName(std::uint16_t selector, std::uint32_t modelId,
                                         std::uint32_t optionId, char* name) {
    return ReadModelName(
        selector,
        Sql("SELECT * FROM [model] WHERE (servo_id = %ld AND option_id = %ld AND off_flag = 1)", modelId,
            optionId),
        {"servo_name_string", "option_name_string"}, name);
}

KaloStatus KALO_CALL KaloGetModelOnName(std::uint16_t selector, std::uint32_t modelId, std::uint32_t optionId,
                                        char* name) {
    return ReadModelName(
        selector, Sql("SELECT * FROM [model] WHERE (servo_id = %ld AND option_id = %ld)", modelId, optionId),
        {"on_servo_name_string", "on_option_name_string"}, name);
}
