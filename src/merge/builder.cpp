#include "merge/builder.h"

namespace kalo {

Status ReadModelName(const BuildIdentity& identity, Status noModel, const OnDaoError& onError,
                     CString& modelName) {
    const CString statement = identity.HasOption()
                                  ? Sql("SELECT [model_name] FROM [model] WHERE [model_id] = %c%ld_%ld%c",
                                        kQuote, identity.servoId, identity.optionId, kQuote)
                                  : Sql("SELECT [model_name] FROM [model] WHERE [model_id] = %c%ld%c", kQuote,
                                        identity.servoId, kQuote);
    return Locked(onError, [&] {
        Rows rows(statement);
        if (rows.Empty()) return noModel;
        rows.First();
        return rows.Text("model_name", modelName) ? kOk : noModel;
    });
}

CString CombinationName(const CString& modelName, const BuildIdentity& identity) {
    if (!identity.HasOption()) {
        return Sql("%s_%ld_%ld_%ld", modelName, identity.servoFirmware, identity.servoCustomSpec,
                   identity.powerRating);
    }
    return Sql("%s_%ld_%ld_%ld_%ld_%ld", modelName, identity.servoFirmware, identity.servoCustomSpec,
               identity.powerRating, identity.optionFirmware, identity.optionCustomSpec);
}

CString CombinationNameWithoutPower(const CString& modelName, const BuildIdentity& identity) {
    if (!identity.HasOption()) {
        return Sql("%s_%ld_%ld", modelName, identity.servoFirmware, identity.servoCustomSpec);
    }
    return Sql("%s_%ld_%ld_%ld_%ld", modelName, identity.servoFirmware, identity.servoCustomSpec,
               identity.optionFirmware, identity.optionCustomSpec);
}

CString TableName(const CString& combination, const char* kind) {
    return Sql("%s_%s", combination, kind);
}

Status IsRegistered(const char* column, const CString& table, Status noRow, const OnDaoError& onError,
                    bool& registered) {
    std::int32_t users = 0;
    const Status status =
        ReadRecordCount(onError,
                        Sql("SELECT COUNT (*) AS [Record] FROM [tablemanager] WHERE [%s] = %c%s%c", column,
                            kQuote, table, kQuote),
                        noRow, users);
    registered = users != 0;
    return status;
}

}  // namespace kalo
