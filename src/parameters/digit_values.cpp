#include <kalodata/digits.h>

#include <vector>

#include "session/query_frame.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloDigitValue) == 270);

// The caller's array, filled from its front.
struct ValueArray {
    KaloDigitValue* values;
    std::uint16_t capacity;
    std::uint16_t filled = 0;
};

// Appends the values of one content id, with the name that the stored query gives.
Status ReadValues(const OnDaoError& onError, std::int32_t contentId, ValueArray& array) {
    return Locked(onError, [&] {
        Rows rows(
            Sql("SELECT * FROM [nibble_ex_content_query] WHERE [content_id]= %d ORDER BY [content_value]",
                contentId));
        if (rows.Empty()) return kOk;
        for (rows.First(); !rows.AtEnd() && array.filled < array.capacity; rows.Next()) {
            KaloDigitValue& value = array.values[array.filled++];
            value = {};
            value.access_level = rows.NumberOr("access_level", value.access_level);
            value.content_value = rows.NumberOr("content_value", value.content_value);
            value.message_type = rows.NumberOr("message_type", value.message_type);
            value.content_name_id = rows.NumberOr("content_name_id", value.content_name_id);
            rows.Text("name_str", value.name);
            value.message_id = rows.NumberOr("message_id", value.message_id);
        }
        return kOk;
    });
}

// Replaces the names of values from `first` on by those of the caller's language, where it has them.
Status LocaliseValues(const OnDaoError& onError, const char* statement, std::uint16_t countryId,
                      std::uint16_t first, const ValueArray& array) {
    Status status = kOk;
    for (std::uint16_t i = first; status == kOk && i < array.filled; ++i) {
        KaloDigitValue& value = array.values[i];
        const std::int32_t nameId = value.content_name_id;
        status = Locked(onError, [&] {
            Rows rows(Sql(statement, countryId, nameId));
            if (!rows.Empty()) rows.Text("name_str", value.name);
            return kOk;
        });
    }
    return status;
}

}  // namespace

KaloStatus KALO_CALL KaloGetNibbleInfo(std::int16_t axis, std::int32_t nibbleDataId, std::uint16_t count,
                                       std::uint16_t countryId, KaloDigitValue* values) {
    enum : Status {
        kNoAxis = 0x2BFF11D8,
        kLookupFailed = 0x2BFF11D9,
        kNoTable = 0x2BFF11DA,
        kNotOpen = 0x2BFF11DB,
        kDigitsFailed = 0x2BFF11DC,
        kValuesFailed = 0x2BFF11DD,
        kNamesFailed = 0x2BFF11DE,
        kNoDigit = 0x2BFF11DF
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    Status status = FindTable({"SELECT [nibble_table] FROM [tablemanager] WHERE axis_num = %d",
                               "nibble_table", kNoAxis, kNoTable, DaoCode(kLookupFailed)},
                              axis, table);
    if (status != kOk) return status;
    std::vector<std::int32_t> contentIds;
    status = Locked(DaoCode(kDigitsFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s] WHERE [nibble_data_id]= %d ORDER BY [pos]", table, nibbleDataId));
        if (rows.Empty()) return kNoDigit;
        for (rows.First(); !rows.AtEnd(); rows.Next())
            contentIds.push_back(rows.Value("content_id"));
        return kOk;
    });
    ValueArray array{values, count};
    for (std::size_t i = 0; status == kOk && i < contentIds.size(); ++i) {
        const std::uint16_t first = array.filled;
        status = ReadValues(DaoCode(kValuesFailed), contentIds[i], array);
        if (status != kOk) return status;
        status = LocaliseValues(
            DaoCode(kNamesFailed),
            "SELECT [name_str] FROM [nibble_ex_name] WHERE [country_id] = %d AND [name_id] = %d", countryId,
            first, array);
    }
    return status;
}

KaloStatus KALO_CALL KaloGetNibbleInfoElem(std::uint32_t /*axis*/, std::int32_t contentId,
                                           std::uint16_t count, std::uint16_t countryId,
                                           KaloDigitValue* values) {
    enum : Status {
        kNotOpen = 0x2BFF11EB,
        kValuesFailed = 0x2BFF11ED,
        kNamesFailed = 0x2BFF11EE,
        kNoValue = 0x2BFF11EF
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    ValueArray array{values, count};
    const Status status = ReadValues(DaoCode(kValuesFailed), contentId, array);
    if (status != kOk) return status;
    if (array.filled == 0 && count > 0) return kNoValue;
    return LocaliseValues(
        DaoCode(kNamesFailed),
        "SELECT [name_str] FROM [nibble_ex_name] WHERE [country_id] = %d AND [name_id] = %ld", countryId, 0,
        array);
}
