#include <kalodata/monitors.h>

#include "session/query_frame.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloMonitorListElement) == 144);
static_assert(offsetof(KaloMonitorListElement, monitor_name) == 6);
static_assert(offsetof(KaloMonitorListElement, display_type) == 134);

// False for a monitor without id.
bool ReadElement(Rows& rows, KaloMonitorListElement& element) {
    if (!rows.Read("monitor_id")) return false;
    element = {};
    element.monitor_id = rows.NumberOr("monitor_id", element.monitor_id);
    element.monitor_name_id = rows.NumberOr("monitor_name_id", element.monitor_name_id);
    rows.Text("monitor_name", element.monitor_name);
    element.display_type = rows.NumberOr("display_type", element.display_type);
    return true;
}

}  // namespace

KaloStatus KALO_CALL KaloGetMonitorListNumWithCategory(std::uint16_t category_name_id, std::uint32_t* count) {
    constexpr Status kNotOpen = 0x2BFF1030;
    if (!DatabaseIsOpen()) return kNotOpen;
    return Locked(DaoBase(0x2C000000), [&] {
        Rows rows(Sql("SELECT * FROM [MonitorID] WHERE category_name_id = %d AND display_type < 100",
                      category_name_id));
        *count = static_cast<std::uint32_t>(rows.Count());
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetMonitorListWithCategory(std::uint16_t category_name_id,
                                                    KaloMonitorListElement* elements) {
    constexpr Status kNotOpen = 0x2BFF1033;
    constexpr Status kNoMonitor = 0x2BFF1034;
    constexpr Status kNoId = 0x2BFF1035;
    if (!DatabaseIsOpen()) return kNotOpen;
    return Locked(DaoBase(0x2C010000), [&] {
        Rows rows(
            Sql("SELECT * FROM [MonitorID] WHERE category_name_id = %d  AND display_type < 100 ORDER BY "
                "display_order",
                category_name_id));
        if (rows.Empty()) return kNoMonitor;
        for (; !rows.AtEnd(); rows.Next()) {
            if (!ReadElement(rows, *elements++)) return kNoId;
        }
        return kOk;
    });
}
