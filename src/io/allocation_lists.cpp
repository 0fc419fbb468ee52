#include <kalodata/io.h>

#include <algorithm>

#include "session/query_frame.h"

using namespace kalo;

namespace {

// The user parameters of one direction have fixed ids in a range of their own.
struct AllocationRange {
    int first;
    int last;
};

constexpr AllocationRange kInputRange = {1001, 1020};
constexpr AllocationRange kOutputRange = {1101, 1120};

// A function's range and codes.
struct AllocationList {
    AllocationRange range;
    Status notOpen;
    Status noAxis;
    Status noTable;
    OnDaoError onLookup;
    OnDaoError onRead;
    Status none;
    Status noId = kOk;  // lists only
};

Status FindParameters(const AllocationList& list, std::int16_t axis, CString& statement) {
    if (!DatabaseIsOpen()) return list.notOpen;
    CString table;
    const Status status = FindTableAsStored({"SELECT * FROM [tablemanager] WHERE axis_num = %d",
                                             "userparameter_table", list.noAxis, list.noTable, list.onLookup},
                                            axis, table);
    if (status != kOk) return status;
    statement = Sql("SELECT * FROM [%s] WHERE (fixed_id >= %d AND fixed_id <= %d)", table, list.range.first,
                    list.range.last);
    return kOk;
}

// No parameter at all is a status of its own here, beside a count of 0.
Status CountParameters(const AllocationList& list, std::int16_t axis, std::uint16_t* count) {
    CString statement;
    Status status = FindParameters(list, axis, statement);
    if (status != kOk) return status;
    status = Locked(list.onRead, [&] {
        Rows rows(statement);
        *count = static_cast<std::uint16_t>(rows.Count());
        return rows.Empty() ? list.none : kOk;
    });
    return status;
}

// The ids in table order, as many as are counted and as a signed 16-bit index reaches.
Status ListParameters(const AllocationList& list, std::int16_t axis, std::int32_t* ids) {
    constexpr int kIndices = 32768;
    CString statement;
    const Status status = FindParameters(list, axis, statement);
    if (status != kOk) return status;
    return Locked(list.onRead, [&] {
        Rows rows(statement);
        if (rows.Empty()) return list.none;
        const int count = std::min<int>(static_cast<std::uint16_t>(rows.Count()), kIndices);
        rows.First();
        for (int i = 0; i < count; ++i, rows.Next()) {
            if (!rows.Number("parameter_id", ids[i])) return list.noId;
        }
        return kOk;
    });
}

}  // namespace

KaloStatus KALO_CALL KaloGetInputSignalPrmIDNum(std::int16_t axis_num, std::uint16_t* count) {
    constexpr AllocationList kList = {.range = kInputRange,
                                      .notOpen = 0x2BFF0420,
                                      .noAxis = 0x2BFF0421,
                                      .noTable = 0x2BFF0422,
                                      .onLookup = DaoCode(0x2BFF0423),
                                      .onRead = DaoCode(0x2BFF0425),
                                      .none = 0x2BFF0424};
    return CountParameters(kList, axis_num, count);
}

KaloStatus KALO_CALL KaloGetInputSignalPrmID(std::int16_t axis_num, std::int32_t* ids) {
    constexpr AllocationList kList = {.range = kInputRange,
                                      .notOpen = 0x2BFF0430,
                                      .noAxis = 0x2BFF0431,
                                      .noTable = 0x2BFF0432,
                                      .onLookup = DaoCode(0x2BFF0433),
                                      .onRead = DaoCode(0x2BFF0433),
                                      .none = 0x2BFF0434,
                                      .noId = 0x2BFF0435};
    return ListParameters(kList, axis_num, ids);
}

KaloStatus KALO_CALL KaloGetOutputSignalPrmIDNum(std::int16_t axis_num, std::uint16_t* count) {
    constexpr AllocationList kList = {.range = kOutputRange,
                                      .notOpen = 0x2BFF0440,
                                      .noAxis = 0x2BFF0441,
                                      .noTable = 0x2BFF0442,
                                      .onLookup = DaoCode(0x2BFF0443),
                                      .onRead = DaoCode(0x2BFF0445),
                                      .none = 0x2BFF0444};
    return CountParameters(kList, axis_num, count);
}

KaloStatus KALO_CALL KaloGetOutputSignalPrmID(std::int16_t axis_num, std::int32_t* ids) {
    constexpr AllocationList kList = {.range = kOutputRange,
                                      .notOpen = 0x2BFF0447,
                                      .noAxis = 0x2BFF0448,
                                      .noTable = 0x2BFF0449,
                                      .onLookup = DaoCode(0x2BFF044A),
                                      .onRead = DaoCode(0x2BFF044A),
                                      .none = 0x2BFF044B,
                                      .noId = 0x2BFF044C};
    return ListParameters(kList, axis_num, ids);
}
