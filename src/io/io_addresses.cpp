#include <kalodata/io.h>

#include "session/query_frame.h"

using namespace kalo;

namespace {

constexpr Status kNotOpen = 0x2A00002C;

constexpr TableLookup IoTable(Status noAxis, const OnDaoError& onError) {
    return {"SELECT * FROM [tablemanager] WHERE axis_num = %d", "io_table", noAxis, 0x2A00002F, onError};
}

// The addresses that carry allocations: for inputs those of mode-selection rows too.
CString AddressStatement(const CString& table, std::int16_t ioCode) {
    constexpr std::int16_t kInputs = 1;
    if (ioCode == kInputs) {
        return Sql("SELECT DISTINCT [address] FROM [%s] WHERE [io_code] = %d ORDER BY [address] ", table,
                   ioCode);
    }
    return Sql(
        "SELECT DISTINCT [address] FROM [%s] WHERE ([io_code] = %d AND [mode_select] = 0) ORDER BY "
        "[address] ",
        table, ioCode);
}

}  // namespace

KaloStatus KALO_CALL KaloGetIONum(std::int16_t axis_num, std::int16_t io_code, std::uint16_t* count) {
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status = FindTable(IoTable(0x2A00002E, DaoBase(0x2BC10000)), axis_num, table);
    if (status != kOk) return status;
    return CountRows(DaoBase(0x2BC20000), AddressStatement(table, io_code), count);
}

KaloStatus KALO_CALL KaloGetIOAddress(std::int16_t axis_num, std::int16_t io_code, std::int16_t index,
                                      std::int32_t* address) {
    constexpr Status kNoParameter = 0x2BC30000;
    constexpr Status kNoAddress = 0x2BC40000;
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status = FindTable(IoTable(0x2A00002E, DaoBase(0x2BC10000)), axis_num, table);
    if (status != kOk) return status;
    return Locked(DaoBase(0x2BC50000), [&] {
        Rows rows(AddressStatement(table, io_code));
        if (rows.Empty()) return kNoParameter;
        rows.Seek(index);
        return rows.Number("address", *address) ? kOk : kNoAddress;
    });
}

KaloStatus KALO_CALL KaloGetIOSelectAddress(std::int16_t axis_num, std::int16_t io_code,
                                            std::int32_t* address) {
    constexpr Status kNoAddress = 0x2A00007C;
    constexpr std::int32_t kNoSelection = -1;
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status = FindTable(IoTable(0x2BC70000, DaoBase(0x2BCF0000)), axis_num, table);
    if (status != kOk) return status;
    return Locked(DaoBase(0x2BD00000), [&] {
        Rows rows(Sql("SELECT * FROM [%s] WHERE ([io_code] = %d AND [mode_select] = 1)", table, io_code));
        if (rows.Empty()) {
            *address = kNoSelection;
            return kOk;
        }
        return rows.Number("address", *address) ? kOk : kNoAddress;
    });
}
