#pragma once

#include <kalodata/alarms.h>
#include <kalodata/monitors.h>
#include <kalodata/parameters.h>

#include <string>
#include <unordered_map>

#include "plain_database.h"

namespace bench {

// The getters as a program writes them that has the database to itself: prepared statements, kept for each
// table; the axis's row tells the table, an index on the key finds the row.
class PlainGetters {
  public:
    explicit PlainGetters(const PlainDatabase& database);

    bool UserParameter(int axis, int id, KaloUserParameter& record);
    int UserParameters(int axis, int count, KaloUserParameter* records);
    bool Monitor(int axis, int id, KaloMonitor& record);
    int Monitors(int axis, int count, KaloMonitor* records);
    bool Alarm(int axis, int code, KaloAlarm& record);
    // With the copy of the diagnosis table that the call makes and drops.
    int Diagnoses(int axis, int code, int types, KaloAlarmDiagnosis* records);

  private:
    // A statement on the table that the axis's row names in one column.
    struct OnTable {
        Query axisRow;
        std::string head;
        std::string tail;
        std::unordered_map<std::string, Query> byTable;
    };

    OnTable MakeQuery(const std::string& column, const std::string& fields, const std::string& tail) const;
    Query* For(OnTable& query, int axis) const;

    const PlainDatabase& database_;
    OnTable parameter_;
    OnTable parameters_;
    OnTable monitor_;
    OnTable monitors_;
    OnTable alarm_;
    Query identity_;
    Query monitorTable_;
};

}  // namespace bench
