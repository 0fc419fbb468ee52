#include <kalodata/traces.h>

#include <algorithm>

#include "session/query_frame.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloNoAnalogTrace) == 6 && sizeof(KaloNoIoTrace) == 6);

// Reads the first row of a statement with `fill`.
template <class Fill>
Status ReadFirst(const OnDaoError& onError, const CString& statement, Status empty, Fill fill) {
    return Locked(onError, [&]() -> Status {
        Rows rows(statement);
        if (rows.Empty()) return empty;
        fill(rows);
        return kOk;
    });
}

// Writes one element to each of the caller's `count` elements.
template <class Element>
void Repeat(const Element& element, std::uint16_t count, Element* elements) {
    std::fill_n(elements, count, element);
}

}  // namespace

KaloStatus KALO_CALL KaloGetTraceNoSettingValue(std::int32_t axis, std::uint16_t count,
                                                KaloNoAnalogTrace* analog, KaloNoIoTrace* io) {
    enum : Status {
        kNoAxis = 0x2BFF1698,
        kLookupFailed = 0x2BFF1699,
        kNoTable = 0x2BFF169A,
        kNotOpen = 0x2BFF169B,
        kReadFailed = 0x2BFF169C,
        kEmpty = 0x2BFF169F
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    const auto findTable = [axis](const char* column, CString& table) {
        return FindTable({"SELECT * FROM [tablemanager] WHERE axis_num = %d", column, kNoAxis, kNoTable,
                          DaoCode(kLookupFailed)},
                         axis, table);
    };
    CString table;
    KaloNoAnalogTrace noAnalog = {};
    KaloNoIoTrace noIo = {};
    Status status = findTable("analogtrace_table", table);
    if (status != kOk) return status;
    status = ReadFirst(DaoCode(kReadFailed), Sql("SELECT * FROM [%s] ORDER BY [order] DESC", table), kEmpty,
                       [&](Rows& rows) {
                           noAnalog.analog_id = rows.NumberOr("analog_id", noAnalog.analog_id);
                           noAnalog.target_name_id = rows.NumberOr("target_name_id", noAnalog.target_name_id);
                       });
    if (status != kOk) return status;
    if (count > 0) analog[0] = noAnalog;
    status = findTable("iotrace_table", table);
    if (status != kOk) return status;
    status = ReadFirst(DaoCode(kReadFailed), Sql("SELECT * FROM [%s] ORDER BY [order] DESC", table), kEmpty,
                       [&](Rows& rows) {
                           noIo.value = rows.NumberOr("value", noIo.value);
                           noIo.io_id = rows.NumberOr("io_id", noIo.io_id);
                       });
    if (status != kOk) return status;
    Repeat(noAnalog, count, analog);
    Repeat(noIo, count, io);
    return kOk;
}

KaloStatus KALO_CALL KaloGetTraceOfflineNoSettingValue(std::uint32_t /*reserved*/, std::uint16_t count,
                                                       KaloNoAnalogTrace* analog, KaloNoIoTrace* io) {
    enum : Status { kNotOpen = 0x2BFF16AB, kReadFailed = 0x2BFF16AC, kEmpty = 0x2BFF16AF };
    if (!DatabaseIsOpen()) return kNotOpen;
    KaloNoAnalogTrace noAnalog = {};
    KaloNoIoTrace noIo = {};
    Status status =
        ReadFirst(DaoCode(kReadFailed), "SELECT * FROM [AnalogTraceInfo] ORDER BY [target_name_id] DESC",
                  kEmpty, [&](Rows& rows) {
                      noAnalog.target_name_id = rows.NumberOr("target_name_id", noAnalog.target_name_id);
                  });
    if (status != kOk) return status;
    if (count > 0) analog[0] = noAnalog;
    status = ReadFirst(DaoCode(kReadFailed), "SELECT * FROM [IOTraceInfo] ORDER BY [io_id] DESC", kEmpty,
                       [&](Rows& rows) {
                           noIo.io_id = rows.NumberOr("io_id", noIo.io_id);
                           noIo.value = rows.NumberOr("value", noIo.value);
                       });
    if (status != kOk) return status;
    Repeat(noAnalog, count, analog);
    Repeat(noIo, count, io);
    return kOk;
}
