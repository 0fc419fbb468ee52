#include <kalodata/traces.h>

#include "trace/io_trace_info.h"

using namespace kalo;

namespace {

// A trace id as the other drive generation knows it. Ids of one group stand for the same quantity.
struct TraceIdPair {
    std::uint32_t groupId = 0;
    std::uint32_t convertedId = 0;
};

// Looks up an analog id.
Status FindAnalogId(std::uint32_t targetNameId, TraceIdPair& pair) {
    enum : Status { kNotOpen = 0x2BFF16C8, kUnknownId = 0x2BFF16CB, kReadFailed = 0x2BFF16CC };
    if (!DatabaseIsOpen()) return kNotOpen;
    return Locked(DaoCode(kReadFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [AnalogTraceInfo] WHERE [target_name_id] = %ld", targetNameId));
        if (rows.Empty()) return kUnknownId;
        rows.Number("group_id", pair.groupId);
        rows.Number("tavroiii_name_id", pair.convertedId);
        return kOk;
    });
}

// Looks up an I/O id of a drive.
Status FindIoId(std::uint32_t servoId, std::uint16_t ioId, TraceIdPair& pair) {
    enum : Status {
        kNotOpen = 0x2BFF16DB,
        kFindTableFailed = 0x2BFF16DC,
        kReadFailed = 0x2BFF16DD,
        kNoTableName = 0x2BFF16DE,
        kUnknownId = 0x2BFF16DF
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status found = FindIoTraceInfoTable(servoId, kNoTableName, DaoCode(kFindTableFailed), table);
    if (found != kOk) return found;
    return Locked(DaoCode(kReadFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s] WHERE [io_id] = %ld", table, ioId));
        if (rows.Empty()) return kUnknownId;
        rows.Number("group_id", pair.groupId);
        rows.Number("tavroiii_io_id", pair.convertedId);
        return kOk;
    });
}

constexpr std::uint16_t kAnalog = 1;

}  // namespace

KaloStatus KALO_CALL KaloCheckTraceID(std::uint16_t kind, std::uint32_t a1, std::uint32_t /*a2*/,
                                      std::uint32_t a3, std::uint32_t b1, std::uint32_t /*b2*/,
                                      std::uint32_t b3, std::uint16_t* different) {
    TraceIdPair a;
    TraceIdPair b;
    const auto find = [kind](std::uint32_t id1, std::uint32_t id3, TraceIdPair& pair) {
        return kind == kAnalog ? FindAnalogId(static_cast<std::uint16_t>(id1), pair)
                               : FindIoId(id1, static_cast<std::uint16_t>(id3), pair);
    };
    const bool same = find(a1, a3, a) == kOk && find(b1, b3, b) == kOk && a.groupId == b.groupId;
    *different = same ? 0 : 1;
    return kOk;
}

KaloStatus KALO_CALL KaloConvertTraceID(std::uint32_t axis, std::uint16_t kind, std::uint32_t x2,
                                        std::uint32_t /*x3*/, std::uint16_t x4, std::uint32_t* converted) {
    TraceIdPair pair;
    const Status found = kind == kAnalog ? FindAnalogId(x2, pair) : FindIoId(x2, x4, pair);
    if (found != kOk) return found;
    const auto axisNumber = static_cast<std::int16_t>(axis);
    const auto id = static_cast<std::int32_t>(pair.convertedId);
    KaloAnalogTrace analog;
    KaloIoTrace io;
    const Status known = kind == kAnalog ? KaloGetAnalogtraceInfo(axisNumber, id, &analog)
                                         : KaloGetIotraceInfo(axisNumber, id, &io);
    if (known == kOk) *converted = pair.convertedId;
    return known;
}
