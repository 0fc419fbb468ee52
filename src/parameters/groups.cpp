#include <kalodata/digits.h>

#include <algorithm>
#include <vector>

#include "merge/on_demand_table.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloGroup) == 132);

constexpr MergeColumn kMemberColumns[] = {
    {ColumnKind::Key, "fixed_id"},
    {ColumnKind::Key, "category_id"},
    {ColumnKind::Data, "order"},
};

constexpr OnDemandTable kMemberTable = {"tempparacategorylist",
                                        "paracategorylist",
                                        {"firmparacategorylist", "cmodparacategorylist", kMemberColumns}};

// No parameter of the axis has the member's fixed id.
constexpr std::int32_t kNoParameter = -1;

Status CountGroups(const CString& table, const OnDaoError& onCategories, const OnDaoError& onAdditional,
                   std::uint16_t& count) {
    std::uint16_t categories = 0;
    Status status =
        CountRows(onCategories, Sql("SELECT DISTINCT [category_id] FROM [%s]", table), &categories);
    if (status != kOk) return status;
    std::uint16_t additional = 0;
    status =
        CountRows(onAdditional, "SELECT *  FROM [paracategory] WHERE [category_id] > 40000", &additional);
    count = static_cast<std::uint16_t>(categories + additional);
    return status;
}

// The caller's array, filled from its front.
struct GroupArray {
    KaloGroup* groups;
    std::uint16_t capacity;
    std::uint16_t filled = 0;
};

Status AppendGroups(const OnDaoError& onError, const CString& statement, GroupArray& array) {
    return Locked(onError, [&] {
        Rows rows(statement);
        if (rows.Empty()) return kOk;
        for (rows.First(); !rows.AtEnd() && array.filled < array.capacity; rows.Next()) {
            KaloGroup& group = array.groups[array.filled++];
            group = {};
            group.category_id = rows.NumberOr("category_id", group.category_id);
            rows.Text("category_name", group.category_name);
        }
        return kOk;
    });
}

// Fixed ids of a group's members, in its order.
Status ReadMembers(std::int32_t categoryId, std::vector<std::int32_t>& fixedIds) {
    enum : Status { kReadFailed = 0x2BFF165C, kNoMember = 0x2BFF165F };
    return Locked(DaoCode(kReadFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s]  WHERE [category_id] = %ld ORDER BY [order]",
                      kMemberTable.workTable, categoryId));
        const auto count = static_cast<std::uint16_t>(rows.Count());
        if (count == 0) return kNoMember;
        for (rows.First(); fixedIds.size() < count && !rows.AtEnd(); rows.Next()) {
            fixedIds.push_back(rows.Value("fixed_id"));
        }
        return kOk;
    });
}

// Parameter ids of the members, into the caller's array.
Status MapMembers(std::int32_t axis, const std::vector<std::int32_t>& fixedIds, std::int32_t* parameterIds) {
    enum : Status {
        kNoAxis = 0x2BFF1658,
        kNoTable = 0x2BFF165A,
        kLookupFailed = 0x2BFF165D,
        kReadFailed = 0x2BFF165E
    };
    CString table;
    Status status = FindTable({"SELECT [userparameter_table] FROM [tablemanager] WHERE axis_num = %d",
                               "userparameter_table", kNoAxis, kNoTable, DaoCode(kLookupFailed)},
                              axis, table);
    for (std::size_t i = 0; status == kOk && i < fixedIds.size(); ++i) {
        status = Locked(DaoCode(kReadFailed), [&] {
            Rows rows(Sql("SELECT [parameter_id] FROM [%s] where [fixed_id] = %ld", table, fixedIds[i]));
            parameterIds[i] = rows.Empty() ? kNoParameter : rows.Value("parameter_id");
            return kOk;
        });
    }
    return status;
}

}  // namespace

KaloStatus KALO_CALL KaloGetAllGroupNum(std::int32_t axis, std::uint16_t* count) {
    enum : Status {
        kNoAxis = 0x2BFF1628,
        kLookupFailed = 0x2BFF1629,
        kNoTable = 0x2BFF162A,
        kNotOpen = 0x2BFF162B,
        kCategoriesFailed = 0x2BFF162C,
        kAdditionalFailed = 0x2BFF162D
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    Status status = FindTable({"SELECT [userparameter_table] FROM [tablemanager] WHERE axis_num = %d",
                               "userparameter_table", kNoAxis, kNoTable, DaoCode(kLookupFailed)},
                              axis, table);
    if (status != kOk) return status;
    std::uint16_t groups = 0;
    status = CountGroups(table, DaoCode(kCategoriesFailed), DaoCode(kAdditionalFailed), groups);
    if (status == kOk) *count = groups;
    return status;
}

KaloStatus KALO_CALL KaloGetAllGroupInfo(std::int32_t axis, std::uint16_t count, KaloGroup* groups) {
    enum : Status {
        kNoAxis = 0x2BFF1638,
        kLookupFailed = 0x2BFF1639,
        kNoTable = 0x2BFF163A,
        kNotOpen = 0x2BFF163B,
        kCategoriesFailed = 0x2BFF163C,
        kAdditionalFailed = 0x2BFF163D,
        kCountFailed = 0x2BFF163E
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    Status status = FindTable({"SELECT [userparameter_table] FROM [tablemanager] WHERE axis_num = %d",
                               "userparameter_table", kNoAxis, kNoTable, DaoCode(kLookupFailed)},
                              axis, table);
    if (status != kOk) return status;
    std::uint16_t counted = 0;
    status = CountGroups(table, DaoCode(kCountFailed), DaoCode(kCountFailed), counted);
    if (status != kOk) return status;
    GroupArray array{groups, std::min(count, counted)};
    status = AppendGroups(
        DaoCode(kCategoriesFailed),
        Sql("SELECT DISTINCT [category_id], [category_name] FROM [%s] ORDER BY [category_id]", table), array);
    if (status != kOk) return status;
    return AppendGroups(DaoCode(kAdditionalFailed),
                        "SELECT *  FROM [paracategory] WHERE [category_id] > 40000 ORDER BY [category_id]",
                        array);
}

KaloStatus KALO_CALL KaloGetAddGroupPrmNum(std::int32_t axis, std::int32_t categoryId, std::uint16_t* count) {
    constexpr Status kBase = 0x2BFF1640;
    enum : Status {
        kUnknownAxis = kBase + 8,
        kNotOpen = 0x2BFF164A,
        kNoAxis = 0x2BFF164B,
        kCountFailed = 0x2BFF164C
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    const BaseFilter filter{"category_id", categoryId};
    const Status status = WithOnDemandTable(kMemberTable, axis, &filter, kBase, kBase, [&] {
        return CountRows(
            DaoCode(kCountFailed),
            Sql("SELECT * FROM [%s] WHERE [category_id] = %ld", kMemberTable.workTable, categoryId), count);
    });
    return status == kUnknownAxis ? Status{kNoAxis} : status;
}

KaloStatus KALO_CALL KaloGetAddGroupPrmList(std::int32_t axis, std::int32_t categoryId,
                                            std::int32_t* parameterIds) {
    constexpr Status kBase = 0x2BFF1650;
    constexpr Status kNotOpen = 0x2BFF165B;
    if (!DatabaseIsOpen()) return kNotOpen;
    const BaseFilter filter{"category_id", categoryId};
    return WithOnDemandTable(kMemberTable, axis, &filter, kBase, kBase, [&] {
        std::vector<std::int32_t> fixedIds;
        const Status status = ReadMembers(categoryId, fixedIds);
        return status != kOk ? status : MapMembers(axis, fixedIds, parameterIds);
    });
}
