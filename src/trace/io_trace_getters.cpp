#include <kalodata/traces.h>

#include "trace/io_trace_info.h"
#include "trace/trace_rows.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloIoTrace) == 32);
static_assert(offsetof(KaloIoTrace, io_name) == 4 && offsetof(KaloIoTrace, value) == 24);
static_assert(offsetof(KaloIoTrace, reverse) == 28 && offsetof(KaloIoTrace, default_flag) == 30);

// The fields that a signal has with and without an axis.
void ReadDescription(Rows& rows, KaloIoTrace& record) {
    rows.TextWhole("io_name", record.io_name, &record + 1);
    record.value = rows.NumberOr("value", record.value);
    record.reverse = rows.NumberOr("reverse", record.reverse);
}

void ClearRecord(KaloIoTrace& record, std::int32_t ioId) {
    record = {};
    record.io_id = static_cast<std::uint32_t>(ioId);
}

}  // namespace

KaloStatus KALO_CALL KaloGetIotraceNum(std::int16_t axis, std::uint32_t kind, std::uint16_t wordCount,
                                       const std::uint16_t* support, std::uint16_t* count) {
    constexpr TraceGetter kGetter{
        .column = "iotrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BF00000,
        .noAxis = 0x2BF10000,
        .noTable = 0x2BF20000,
        .lookupFailed = 0x2BFF0776,
        .onReadError = DaoCode(0x2BFF0777),
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        *count = CountOffered(rows, SupportedOfTraceKind({support, wordCount}, kind));
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetIotraceIDList(std::int16_t axis, std::uint32_t kind, std::uint16_t wordCount,
                                          const std::uint16_t* support, std::uint32_t* ioIds) {
    constexpr TraceGetter kGetter{
        .column = "iotrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BFF1228,
        .noAxis = 0x2BFF123A,
        .noTable = 0x2BFF1238,
        .lookupFailed = 0x2BFF1239,
        .onReadError = DaoCode(0x2BFF123C),
        .empty = 0x2BFF123F,
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        const auto offered = SupportedOfTraceKind({support, wordCount}, kind);
        ListOffered(rows, offered, [&](std::uint16_t position) {
            ioIds[position] = static_cast<std::uint32_t>(rows.Value("io_id"));
        });
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetIotraceInfoId(std::int16_t axis, std::uint32_t kind, std::uint16_t position,
                                          std::uint32_t* ioId) {
    constexpr TraceGetter kGetter{
        .column = "iotrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BF50000,
        .noAxis = 0x2BF60000,
        .noTable = 0x2BF70000,
        .lookupFailed = 0x2BFF0778,
        .onReadError = DaoBase(0x2BF90000),
        .empty = 0x2BF90000,
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        if (SeekOffered(rows, position, OfTraceKind(kind))) {
            *ioId = static_cast<std::uint32_t>(rows.Value("io_id"));
        }
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetIotraceInfo(std::int16_t axis, std::int32_t ioId, KaloIoTrace* record) {
    constexpr Status kUnknownId = 0x2BFE0000;
    constexpr TraceGetter kGetter{
        .axisStatement = "SELECT [iotrace_table] FROM [tablemanager] WHERE [axis_num] = %d",
        .column = "iotrace_table",
        .statement = "SELECT * FROM [%s] WHERE [io_id] = %ld",
        .notOpen = 0x2BFB0000,
        .noAxis = 0x2BFF077A,
        .noTable = 0x2BFF077B,
        .lookupFailed = 0x2BFF077C,
        .onReadError = DaoCode(0x2BFF077D),
    };
    return OverTraceTable(kGetter, axis, {ioId}, [&](Rows& rows) -> Status {
        ClearRecord(*record, ioId);
        if (rows.Empty()) return kUnknownId;
        ReadDescription(rows, *record);
        record->default_flag = rows.NumberOr("default_flag", record->default_flag);
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetIotraceOfflineInfo(std::uint32_t servoId, std::int32_t ioId, KaloIoTrace* record,
                                               std::uint32_t /*reserved1*/, std::uint32_t /*reserved2*/) {
    enum : Status {
        kNotOpen = 0x2BFF1410,
        kFindFailed = 0x2BFF1411,
        kReadFailed = 0x2BFF1412,
        kUnknownId = 0x2BFF1413
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status found = FindIoTraceInfoTable(servoId, kOk, DaoCode(kFindFailed), table);
    if (found != kOk) return found;
    return Locked(DaoCode(kReadFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s] WHERE [io_id] = %ld", table, ioId));
        ClearRecord(*record, ioId);
        if (rows.Empty()) return kUnknownId;
        ReadDescription(rows, *record);
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetIOtraceMapNum(std::int16_t axis, std::uint32_t kind, std::uint16_t* count) {
    constexpr TraceGetter kGetter{
        .column = "iotrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BFF155B,
        .noAxis = 0x2BFF1558,
        .noTable = 0x2BFF155A,
        .lookupFailed = 0x2BFF1559,
        .onReadError = DaoCode(0x2BFF155C),
        .empty = 0x2BFF155F,
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        *count = CountOffered(rows, OfTraceKind(kind));
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetIOtraceMap(std::int16_t axis, std::uint32_t kind, KaloTraceMap* elements) {
    constexpr TraceGetter kGetter{
        .column = "iotrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BFF156B,
        .noAxis = 0x2BFF1568,
        .noTable = 0x2BFF156A,
        .lookupFailed = 0x2BFF1569,
        .onReadError = DaoCode(0x2BFF156C),
        .empty = 0x2BFF156F,
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        const auto offered = OfTraceKind(kind);
        ListOffered(rows, offered, [&](std::uint16_t position) {
            KaloTraceMap& element = elements[position];
            element.id = static_cast<std::uint32_t>(rows.Value("io_id"));
            element.index = static_cast<std::uint32_t>(rows.Value("index"));
            element.bitindex = static_cast<std::uint16_t>(rows.Value("bitindex"));
            element.support = static_cast<std::uint16_t>(rows.Value("support"));
        });
        return kOk;
    });
}
