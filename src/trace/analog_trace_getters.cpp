#include <kalodata/traces.h>

#include "trace/trace_rows.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloAnalogTrace) == 130);
static_assert(offsetof(KaloAnalogTrace, target_name) == 8 && offsetof(KaloAnalogTrace, display_flag) == 58);
static_assert(offsetof(KaloAnalogTrace, unit) == 60 && offsetof(KaloAnalogTrace, unit_multiplier) == 90);
static_assert(offsetof(KaloAnalogTrace, unit_name) == 94 &&
              offsetof(KaloAnalogTrace, conversion_type) == 114);
static_assert(offsetof(KaloAnalogTrace, limit) == 116 && offsetof(KaloAnalogTrace, max_level) == 120);
static_assert(offsetof(KaloAnalogTrace, min_level) == 124 && offsetof(KaloAnalogTrace, default_flag) == 128);
static_assert(sizeof(KaloTraceMap) == 12);

// The fields that a target has with and without an axis.
void ReadDescription(Rows& rows, KaloAnalogTrace& record) {
    const void* end = &record + 1;
    rows.TextWhole("target_name", record.target_name, end);
    rows.TextWhole("unit", record.unit, end);
    record.unit_multiplier = rows.NumberOr("unit_multiplier", record.unit_multiplier);
    rows.TextWhole("unit_name", record.unit_name, end);
    record.limit = rows.NumberOr("limit", record.limit);
    record.max_level = rows.NumberOr("max_level", record.max_level);
    record.min_level = rows.NumberOr("min_level", record.min_level);
}

void ClearRecord(KaloAnalogTrace& record, std::int32_t targetNameId) {
    record = {};
    record.target_name_id = static_cast<std::uint32_t>(targetNameId);
}

}  // namespace

KaloStatus KALO_CALL KaloGetAnalogtraceNum(std::int16_t axis, std::uint32_t kind, std::uint16_t wordCount,
                                           const std::uint16_t* support, std::uint16_t counts[2]) {
    constexpr TraceGetter kGetter{
        .column = "analogtrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BFF0018,
        .noAxis = 0x2BFF0019,
        .noTable = 0x2BFF001A,
        .lookupFailed = 0x2BFF001B,
        .onReadError = DaoCode(0x2BFF001C),
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        const SupportBitmap bitmap{support, wordCount};
        std::uint16_t shown = 0;
        std::uint16_t hidden = 0;
        CountOffered(rows, [&](Rows& row) {
            if (!bitmap.Supports(row) || !IsOfTraceKind(row, kind)) return false;
            std::int32_t flag = -1;  // a NULL is neither
            row.Number("display_flag", flag);
            if (flag == 1) ++shown;
            if (flag == 0) ++hidden;
            return true;
        });
        counts[0] = shown;
        counts[1] = hidden;
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetAnalogtraceIDList(std::int16_t axis, std::uint32_t kind, std::uint16_t wordCount,
                                              const std::uint16_t* support, std::uint32_t* targetNameIds) {
    constexpr TraceGetter kGetter{
        .column = "analogtrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BFF122B,
        .noAxis = 0x2BFF1228,
        .noTable = 0x2BFF122A,
        .lookupFailed = 0x2BFF1229,
        .onReadError = DaoCode(0x2BFF122C),
        .empty = 0x2BFF122F,
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        const SupportBitmap bitmap{support, wordCount};
        const auto offered = [&](Rows& row) {
            return bitmap.Supports(row) && IsOfTraceKind(row, kind) && row.Read("display_flag") &&
                   row.Value("display_flag") == 1;
        };
        ListOffered(rows, offered, [&](std::uint16_t position) {
            targetNameIds[position] = static_cast<std::uint32_t>(rows.Value("target_name_id"));
        });
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetAnalogtraceInfoId(std::int16_t axis, std::uint32_t kind, std::uint16_t position,
                                              std::uint16_t displayFlag, std::uint32_t* targetNameId) {
    constexpr TraceGetter kGetter{
        .column = "analogtrace_table",
        .statement = "SELECT * FROM [%s] WHERE (display_flag = %d) ORDER BY [order]",
        .notOpen = 0x2BFF001D,
        .noAxis = 0x2BFF001E,
        .noTable = 0x2BFF001F,
        .lookupFailed = 0x2BFF0020,
        .onReadError = DaoBase(0x2BF90000),
    };
    return OverTraceTable(kGetter, axis, {displayFlag}, [&](Rows& rows) {
        if (SeekOffered(rows, position, OfTraceKind(kind))) {
            *targetNameId = static_cast<std::uint32_t>(rows.Value("target_name_id"));
        }
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetAnalogtraceInfo(std::int16_t axis, std::int32_t targetNameId,
                                            KaloAnalogTrace* record) {
    constexpr Status kUnknownId = 0x2BFE0000;
    constexpr TraceGetter kGetter{
        .axisStatement = "SELECT [analogtrace_table] FROM [tablemanager] WHERE [axis_num] = %d",
        .column = "analogtrace_table",
        .statement = "SELECT * FROM [%s] WHERE [target_name_id] = %ld",
        .notOpen = 0x2BFF0022,
        .noAxis = 0x2BFF06F2,
        .noTable = 0x2BFF06F2,
        .lookupFailed = 0x2BFF0021,
        .onReadError = DaoCode(0x2BFF06F5),
    };
    return OverTraceTable(kGetter, axis, {targetNameId}, [&](Rows& rows) -> Status {
        ClearRecord(*record, targetNameId);
        if (rows.Empty()) return kUnknownId;
        record->analog_id = rows.NumberOr("analog_id", record->analog_id);
        ReadDescription(rows, *record);
        record->display_flag = rows.NumberOr("display_flag", record->display_flag);
        record->conversion_type = rows.NumberOr("conversion_type", record->conversion_type);
        record->default_flag = rows.NumberOr("default_flag", record->default_flag);
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetAnalogtraceOfflineInfo(std::uint32_t /*reserved*/, std::int32_t targetNameId,
                                                   KaloAnalogTrace* record) {
    enum : Status { kNotOpen = 0x2BFF1400, kReadFailed = 0x2BFF1401, kUnknownId = 0x2BFF1413 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return Locked(DaoCode(kReadFailed), [&]() -> Status {
        Rows rows(
            Sql("SELECT * FROM [%s] WHERE [target_name_id] = %ld", "AnalogTraceInfoQuery", targetNameId));
        ClearRecord(*record, targetNameId);
        if (rows.Empty()) return kUnknownId;
        ReadDescription(rows, *record);
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetAnalogtraceMapNum(std::int16_t axis, std::uint32_t kind, std::uint16_t* count) {
    constexpr TraceGetter kGetter{
        .column = "analogtrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BFF153B,
        .noAxis = 0x2BFF1538,
        .noTable = 0x2BFF153A,
        .lookupFailed = 0x2BFF1539,
        .onReadError = DaoCode(0x2BFF153C),
        .empty = 0x2BFF153F,
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        const std::uint16_t offered = CountOffered(rows, OfTraceKind(kind));
        *count = static_cast<std::uint16_t>(*count + offered);
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetAnalogtraceMap(std::int16_t axis, std::uint32_t kind, KaloTraceMap* elements) {
    constexpr TraceGetter kGetter{
        .column = "analogtrace_table",
        .statement = "SELECT * FROM [%s] ORDER BY [order]",
        .notOpen = 0x2BFF154B,
        .noAxis = 0x2BFF1548,
        .noTable = 0x2BFF154A,
        .lookupFailed = 0x2BFF1549,
        .onReadError = DaoCode(0x2BFF154C),
        .empty = 0x2BFF154F,
    };
    return OverTraceTable(kGetter, axis, {}, [&](Rows& rows) {
        const auto offered = OfTraceKind(kind);
        ListOffered(rows, offered, [&](std::uint16_t position) {
            KaloTraceMap& element = elements[position];
            element.id = static_cast<std::uint32_t>(rows.Value("target_name_id"));
            element.index = static_cast<std::uint32_t>(rows.Value("index"));
            element.bitindex = static_cast<std::uint8_t>(rows.Value("bitindex"));
            element.support = static_cast<std::uint16_t>(rows.Value("support"));
        });
        return kOk;
    });
}
