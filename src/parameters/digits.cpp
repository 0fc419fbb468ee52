#include <kalodata/digits.h>

#include <vector>

#include "session/query_frame.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloDigit) == 278);
static_assert(offsetof(KaloDigit, pos) == 4 && offsetof(KaloDigit, size) == 6);
static_assert(offsetof(KaloDigit, access_level) == 8 && offsetof(KaloDigit, initial_value) == 10);
static_assert(offsetof(KaloDigit, name) == 12 && offsetof(KaloDigit, value_count) == 268);
static_assert(offsetof(KaloDigit, content_id) == 270 && offsetof(KaloDigit, reserved) == 274);

// A getter of digit records: its statement over the axis's digit table and its codes.
struct DigitGetter {
    const char* statement;
    Status notOpen;
    Status noAxis;
    Status noTable;
    Status noDigit;
    Status lookupFailed;
    Status readFailed;
    Status namesFailed;
    Status valuesFailed;
};

Status FindDigitTable(std::int32_t axis, Status noAxis, Status noTable, Status lookupFailed, CString& table) {
    return FindTable({"SELECT [nibble_table] FROM [tablemanager] WHERE axis_num = %d", "nibble_table", noAxis,
                      noTable, DaoCode(lookupFailed)},
                     axis, table);
}

// Everything but the names and the number of values; remembers the name ids for a second walk.
Status ReadDigits(const DigitGetter& getter, const CString& statement, std::uint16_t count,
                  KaloDigit* records, std::vector<std::int32_t>& nameIds) {
    return Locked(DaoCode(getter.readFailed), [&]() -> Status {
        Rows rows(statement);
        if (rows.Empty()) return getter.noDigit;
        for (rows.First(); !rows.AtEnd() && nameIds.size() < count; rows.Next()) {
            KaloDigit& record = records[nameIds.size()];
            record.nibble_data_id = rows.Value("nibble_data_id");
            record.pos = static_cast<std::uint16_t>(rows.Value("pos"));
            record.size = static_cast<std::uint16_t>(rows.Value("size"));
            record.access_level = static_cast<std::uint16_t>(rows.Value("access_level"));
            record.initial_value = static_cast<std::uint16_t>(rows.Value("initial_value"));
            record.content_id = rows.Value("content_id");
            nameIds.push_back(rows.Value("nibble_name_id"));
        }
        return kOk;
    });
}

Status ReadDigitName(const DigitGetter& getter, std::uint16_t countryId, std::int32_t nameId,
                     KaloDigit& record) {
    std::memset(record.name, 0, sizeof record.name);
    return Locked(DaoCode(getter.namesFailed), [&] {
        Rows rows(Sql("SELECT [name_str] FROM [nibble_ex_name] WHERE [country_id] = %d AND [name_id] = %d",
                      countryId, nameId));
        if (!rows.Empty()) rows.Text("name_str", record.name);
        return kOk;
    });
}

Status DescribeDigits(const DigitGetter& getter, std::int32_t axis,
                      std::initializer_list<std::int32_t> numbers, std::uint16_t count,
                      std::uint16_t countryId, KaloDigit* records) {
    if (!DatabaseIsOpen()) return getter.notOpen;
    CString table;
    Status status = FindDigitTable(axis, getter.noAxis, getter.noTable, getter.lookupFailed, table);
    if (status != kOk) return status;
    std::vector<std::int32_t> nameIds;
    status = ReadDigits(getter, SqlOnTable(getter.statement, table, numbers), count, records, nameIds);
    for (std::size_t i = 0; status == kOk && i < nameIds.size(); ++i) {
        status = ReadDigitName(getter, countryId, nameIds[i], records[i]);
    }
    for (std::size_t i = 0; status == kOk && i < nameIds.size(); ++i) {
        const std::int32_t contentId = records[i].content_id;
        std::uint16_t valueCount = 0;
        status = CountRows(DaoCode(getter.valuesFailed),
                           Sql("SELECT * FROM [nibble_ex_content] WHERE [content_id]= %d ", contentId),
                           &valueCount);
        records[i].value_count = valueCount;
    }
    return status;
}

}  // namespace

KaloStatus KALO_CALL KaloGetNibbleInfoNum(std::int16_t axis, std::int32_t nibbleDataId,
                                          std::uint16_t* count) {
    enum : Status {
        kNoAxis = 0x2BFF1198,
        kLookupFailed = 0x2BFF1199,
        kNoTable = 0x2BFF119A,
        kNotOpen = 0x2BFF119B,
        kCountFailed = 0x2BFF119C
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status found = FindDigitTable(axis, kNoAxis, kNoTable, kLookupFailed, table);
    if (found != kOk) return found;
    return CountRows(DaoCode(kCountFailed),
                     Sql("SELECT * FROM [%s] WHERE [nibble_data_id]= %d ", table, nibbleDataId), count);
}

KaloStatus KALO_CALL KaloGetAllNibbleInfoNum(std::int32_t axis, std::uint16_t* count) {
    enum : Status {
        kNoAxis = 0x2BFF11A8,
        kLookupFailed = 0x2BFF11A9,
        kNoTable = 0x2BFF11AA,
        kNotOpen = 0x2BFF11AB,
        kCountFailed = 0x2BFF11AC
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status found = FindDigitTable(axis, kNoAxis, kNoTable, kLookupFailed, table);
    if (found != kOk) return found;
    return CountRows(DaoCode(kCountFailed), Sql("SELECT * FROM [%s]", table), count);
}

KaloStatus KALO_CALL KaloGetNibbleInfoBase(std::int16_t axis, std::int32_t nibbleDataId, std::uint16_t count,
                                           std::uint16_t countryId, KaloDigit* records) {
    constexpr DigitGetter kGetter{
        .statement = "SELECT * FROM [%s] WHERE [nibble_data_id]= %d ORDER BY [pos]",
        .notOpen = 0x2BFF11BB,
        .noAxis = 0x2BFF11B8,
        .noTable = 0x2BFF11BA,
        .noDigit = 0x2BFF11BF,
        .lookupFailed = 0x2BFF11B9,
        .readFailed = 0x2BFF11BC,
        .namesFailed = 0x2BFF11BD,
        .valuesFailed = 0x2BFF11BE,
    };
    return DescribeDigits(kGetter, axis, {nibbleDataId}, count, countryId, records);
}

KaloStatus KALO_CALL KaloGetAllNibbleInfoBase(std::uint32_t axis, std::uint16_t count,
                                              std::uint16_t countryId, KaloDigit* records) {
    constexpr DigitGetter kGetter{
        .statement = "SELECT * FROM [%s] ORDER BY [nibble_data_id], [pos]",
        .notOpen = 0x2BFF11CB,
        .noAxis = 0x2BFF11C8,
        .noTable = 0x2BFF11CA,
        .noDigit = 0x2BFF11CF,
        .lookupFailed = 0x2BFF11C9,
        .readFailed = 0x2BFF11CC,
        .namesFailed = 0x2BFF11CD,
        .valuesFailed = 0x2BFF11CE,
    };
    return DescribeDigits(kGetter, static_cast<std::int32_t>(axis), {}, count, countryId, records);
}

KaloStatus KALO_CALL KaloGetNibbleParamName(std::uint16_t fixedId, std::uint16_t countryId,
                                            std::uint8_t* name) {
    enum : Status { kNotOpen = 0x2BFF11F0, kReadFailed = 0x2BFF11F1, kNoName = 0x2BFF1200 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return Locked(DaoCode(kReadFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [nibble_ex_name] WHERE ([fixed_id] = %u AND [country_id] = %hu)",
                      fixedId, countryId));
        if (rows.Empty()) return kNoName;
        rows.Text("name_str", reinterpret_cast<char*>(name), sizeof KaloDigit::name);
        return kOk;
    });
}
