#include <kalodata/session.h>

#include "session/query_frame.h"
#include "session/session_state.h"

using namespace kalo;

namespace {

// A table that exists while a session is open: a copy of one of two base tables.
struct SessionTable {
    const char* name;
    const char* copy;  // with one %s for the base table
    const char* standardBase;
    const char* indexerBase;
    Status copyFailed;
};

constexpr SessionTable kSessionTables[] = {
    {"model", "SELECT * INTO [model] FROM [%s]", "tavrowinmodel", "tavroindexermodel", 0x2BFF06BD},
    {"help", "SELECT * INTO [help] FROM [%s]", "tavrowinhelp", "tavroindexerhelp", 0x2BFF06BF},
    {"wizhelp", "SELECT * INTO [wizhelp] FROM [%s]", "tavrowinwizhelp", "tavroindexerwizhelp", 0x2BFF06BC},
    {"MonitorID", "SELECT * INTO [MonitorID] FROM [%s]", "tavrowinMonitorID", "tavroindexerMonitorID",
     0x2BFF06BB},
};

// Opens the working file, under the object of an earlier open if there is one.
Status OpenConnection() {
    if (Database() == nullptr) SetDatabase(new CDaoDatabase);
    return Locked(DaoBase(0x2B010000), [] {
        if (Database()->IsOpen()) Database()->Close();
        Database()->Open(Session().fileName, FALSE, FALSE, kConnect);
        return kOk;
    });
}

Status RememberTableCount() {
    Session().tableCount = 0;
    Session().workTableExists.fill(0);
    return Unlocked(DaoBase(0x2C070000), [] {
        Session().tableCount = static_cast<std::uint16_t>(Database()->GetTableDefCount());
        return kOk;
    });
}

Status CopySessionTables() {
    const bool indexer = Session().modelTableMode == kIndexerMode;
    std::size_t index = 0;
    for (const SessionTable& table : kSessionTables) {
        const Status status =
            Run(DaoCode(table.copyFailed), Sql(table.copy, indexer ? table.indexerBase : table.standardBase));
        if (status != kOk) return status;
        Session().workTableExists[index++] = 1;
    }
    return kOk;
}

Status LocaliseMonitorNames(std::uint16_t countryId) {
    return Run(
        DaoBase(0x2C020000),
        Sql("UPDATE [MonitorID] INNER JOIN [monname] ON [MonitorID].[monitor_name_id] = "
            "[monname].[mon_name_id] "
            "SET [MonitorID].[monitor_name] = [monname].[monitor_name] WHERE ([monname].[country_id] = %d)",
            countryId));
}

// Drops the session's tables, outside the lock; one that cannot be dropped does not stop the others.
void DropSessionTables() {
    std::size_t index = 0;
    for (const SessionTable& table : kSessionTables) {
        std::uint16_t& exists = Session().workTableExists[index++];
        if (exists == 0) continue;
        Unlocked(DaoCode(kOk), [&table] {
            Execute(Sql("DROP TABLE [%s]", table.name));
            return kOk;
        });
        exists = 0;
    }
}

void DeleteDatabase() {
    delete Database();
    SetDatabase(nullptr);
}

}  // namespace

void KALO_CALL KaloSetFileName(const char* callerModule, const char* fileName) {
    Session().callerModule = callerModule;
    Session().fileName = fileName;
    CString module(callerModule);
    module.MakeLower();
    Session().foreignCaller = module.Find("kalodata.dll") < 0;
}

KaloStatus KALO_CALL KaloModelTableSelect(std::uint16_t mode) {
    enum : Status { kUnknownMode = 0x2BFF06BA };
    if (mode < 1 || mode > 4) return kUnknownMode;
    Session().modelTableMode = mode;
    return kOk;
}

KaloStatus KALO_CALL KaloOpen(std::uint16_t countryId) {
    enum : Status { kNotOpen = 0x2BFF06BE };
    Status status = OpenConnection();
    if (status != kOk) return status;
    StampStatus("mdb_status", "Open");  // a file that cannot be stamped opens all the same
    status = RememberTableCount();
    if (status != kOk) return status;
    if (!DatabaseIsOpen()) return kNotOpen;
    status = CopySessionTables();
    if (status != kOk) return status;
    return LocaliseMonitorNames(countryId);
}

KaloStatus KALO_CALL KaloClose() {
    if (!DatabaseIsOpen()) {
        DeleteDatabase();
        return kOk;
    }
    DropSessionTables();
    return Unlocked(DaoBase(0x2B020000), [] {
        const auto tables = static_cast<std::uint16_t>(Database()->GetTableDefCount());
        StampStatus("mdb_status", tables == Session().tableCount ? "Close" : "Error");
        Session().tableCount = 0;
        Database()->Close();
        DeleteDatabase();
        return kOk;
    });
}
