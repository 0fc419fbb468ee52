#include <kalodata/session.h>

#include "session/query_frame.h"

using namespace kalo;

KaloStatus KALO_CALL KaloGetMdbName(char* name) {
    enum : Status { kNotOpen = 0x2BFF0124, kNoRow = 0x2BFF0125, kNoName = 0x2BFF0126, kFailed = 0x2BFF0127 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return Locked(DaoCode(kFailed), [name]() -> Status {
        Rows rows(Sql("SELECT * FROM [mdbname] WHERE [id] = 1"));
        if (rows.Empty()) return kNoRow;
        rows.First();
        return rows.Text("mdbname", name, KALO_MDB_NAME_SIZE) ? kOk : kNoName;
    });
}
