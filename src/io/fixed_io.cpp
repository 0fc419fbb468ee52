#include <kalodata/io.h>

#include "io/io_signal.h"
#include "merge/version_delta.h"

using namespace kalo;

namespace {

constexpr const char* kWorkTable = "tempFixedIo";
constexpr OnDaoError kOnLookup = DaoCode(0x2BFF085E);

// A delta step: its numbers are the version, with the insert's model and option before it and the direction
// behind it.
struct FixedStep {
    OnDaoError onError;
    const char* statement;
};

// In each: modify, insert, delete. The joins over all four key columns alone keep modifies and deletes to the
// model and the option unit of the rows present.
constexpr FixedStep kFirmwareSteps[] = {
    {DaoCode(0x2BFF0861),
     "UPDATE [%s] INNER JOIN [firmfixedio] ON [%s].[servo_id] = [firmfixedio].[servo_id] AND "
     "[%s].[option_id] = "
     "[firmfixedio].[option_id] AND [%s].[inout] = [firmfixedio].[inout] AND [%s].[bit_position] = "
     "[firmfixedio].[bit_position] SET [%s].[logical_name] = [firmfixedio].[logical_name], "
     "[%s].[physical_name] = "
     "[firmfixedio].[physical_name], [%s].[positive_logic] = [firmfixedio].[positive_logic], [%s].[reverse] "
     "= "
     "[firmfixedio].[reverse] WHERE ([firmfixedio].[change_type] = 1 AND [firmfixedio].[firm_id] <= %ld AND "
     "[firmfixedio].[inout] = %d)"},
    {DaoCode(0x2BFF0862),
     "INSERT INTO [%s] SELECT [firmfixedio].[servo_id],[firmfixedio].[option_id],[firmfixedio].[inout],"
     "[firmfixedio].[bit_position],[firmfixedio].[logical_name],[firmfixedio].[physical_name],"
     "[firmfixedio].[positive_logic],[firmfixedio].[reverse] FROM [firmfixedio] WHERE ([servo_id] = %ld AND "
     "[option_id] = %ld AND [change_type] = 2 AND [firm_id] <= %ld AND [inout] = %d) "},
    {DaoCode(0x2BFF0863),
     "DELETE [%s].* FROM [%s] INNER JOIN [firmfixedio] ON [%s].[servo_id] = [firmfixedio].[servo_id] AND "
     "[%s].[option_id] = [firmfixedio].[option_id] AND [%s].[inout] = [firmfixedio].[inout] AND "
     "[%s].[bit_position] "
     "= [firmfixedio].[bit_position] WHERE ([firmfixedio].[change_type] = 3 AND [firmfixedio].[firm_id] <= "
     "%ld) "},
};

constexpr FixedStep kCustomSpecSteps[] = {
    {DaoCode(0x2BFF08B0),
     "UPDATE [%s] INNER JOIN [cmodfixedio] ON [%s].[servo_id] = [cmodfixedio].[servo_id] AND "
     "[%s].[option_id] = "
     "[cmodfixedio].[option_id] AND [%s].[inout] = [cmodfixedio].[inout] AND [%s].[bit_position] = "
     "[cmodfixedio].[bit_position] SET [%s].[logical_name] = [cmodfixedio].[logical_name], "
     "[%s].[physical_name] = "
     "[cmodfixedio].[physical_name], [%s].[positive_logic] = [cmodfixedio].[positive_logic], [%s].[reverse] "
     "= "
     "[cmodfixedio].[reverse] WHERE ([cmodfixedio].[change_type] = 1 AND [cmodfixedio].[cmod_id] = %ld AND "
     "[cmodfixedio].[inout] = %d)"},
    {DaoCode(0x2BFF08B1),
     "INSERT INTO [%s] SELECT [cmodfixedio].[servo_id],[cmodfixedio].[option_id],[cmodfixedio].[inout],"
     "[cmodfixedio].[bit_position],[cmodfixedio].[logical_name],[cmodfixedio].[physical_name],"
     "[cmodfixedio].[positive_logic],[cmodfixedio].[reverse] FROM [cmodfixedio] WHERE ([servo_id] = %ld AND "
     "[option_id] = %ld AND [change_type] = 2 AND [cmod_id] = %ld AND [inout] = %d) "},
    {DaoCode(0x2BFF08B2),
     "DELETE [%s].* FROM [%s] INNER JOIN [cmodfixedio] ON [%s].[servo_id] = [cmodfixedio].[servo_id] AND "
     "[%s].[option_id] = [cmodfixedio].[option_id] AND [%s].[inout] = [cmodfixedio].[inout] AND "
     "[%s].[bit_position] "
     "= [cmodfixedio].[bit_position] WHERE ([cmodfixedio].[change_type] = 3 AND [cmodfixedio].[cmod_id] = "
     "%ld) "},
};

// Whose fixed signals are asked for.
struct FixedSignals {
    std::int32_t servoId;
    std::int32_t optionId;
    std::int32_t inout;
};

Status RunSteps(const FixedStep (&steps)[3], const FixedSignals& signals, std::int32_t version) {
    const FixedStep& modify = steps[0];
    const FixedStep& insert = steps[1];
    const FixedStep& remove = steps[2];
    Status status = Run(modify.onError, SqlOnTable(modify.statement, kWorkTable, {version, signals.inout}));
    if (status == kOk) {
        status = Run(insert.onError, SqlOnTable(insert.statement, kWorkTable,
                                                {signals.servoId, signals.optionId, version, signals.inout}));
    }
    if (status == kOk) status = Run(remove.onError, SqlOnTable(remove.statement, kWorkTable, {version}));
    return status;
}

// Only the option unit's firmware and custom specification change fixed signals.
Status BuildFixedSignals(const FixedSignals& signals, std::int32_t firmware, std::int32_t customSpec) {
    Status status =
        Run(DaoCode(0x2BFF085F),
            Sql("SELECT * INTO [%s] FROM [fixedio] WHERE [servo_id] = %ld AND [option_id] = %ld AND "
                "[inout] = %d",
                kWorkTable, signals.servoId, signals.optionId, signals.inout));
    if (status == kOk && firmware != 0) status = RunSteps(kFirmwareSteps, signals, firmware);
    if (status == kOk && IsCustomSpec(customSpec)) status = RunSteps(kCustomSpecSteps, signals, customSpec);
    return status;
}

// Makes the table of the axis's fixed signals of a direction, lets `use` read it, and drops it.
template <class Use>
Status WithFixedSignals(std::int16_t axis, std::int32_t inout, Status dropFailed, Use&& use) {
    constexpr Status kNoAxis = 0x2BFF085D;
    if (!DatabaseIsOpen()) return kOnLookup.StatusOf(0);
    AxisIdentity identity;
    const Status status = ReadAxisIdentity(axis, kNoAxis, kOnLookup, identity);
    if (status != kOk) return status;
    const FixedSignals signals = {static_cast<std::int32_t>(identity.servoId),
                                  static_cast<std::int32_t>(identity.optionId), inout};
    const auto build = [&] {
        return BuildFixedSignals(signals, static_cast<std::int32_t>(identity.optionFirmware),
                                 static_cast<std::int32_t>(identity.optionCustomSpec));
    };
    return WithScratchTable(kWorkTable, dropFailed, build, use);
}

void ReadFixedSignal(Rows& rows, KaloIoSignal& signal, const KaloIoSignal* end) {
    rows.TextWhole("logical_name", signal.logical_name, end);
    rows.TextWhole("physical_name", signal.physical_name, end);
    signal.positive_logic = rows.NumberOr("positive_logic", signal.positive_logic);
    signal.reverse = rows.NumberOr("reverse", signal.reverse);
}

Status ReadFixedSignals(KaloIoSignal* signals) {
    constexpr Status kNoSignal = 0x2BFF0866;
    return Locked(DaoCode(0x2BFF0867), [&] {
        Rows rows(Sql("SELECT * FROM [%s] ORDER BY [servo_id], [option_id], [bit_position]", kWorkTable));
        if (rows.Empty()) return kNoSignal;
        const KaloIoSignal* const end = signals + static_cast<std::uint16_t>(rows.Count());
        rows.First();
        for (; signals != end; ++signals, rows.Next())
            ReadFixedSignal(rows, *signals, end);
        return kOk;
    });
}

}  // namespace

KaloStatus KALO_CALL KaloGetFixedIONum(std::int16_t axis_num, std::int32_t inout, std::uint16_t* count) {
    return WithFixedSignals(axis_num, inout, 0x2BFF0865, [&] {
        return CountRows(DaoCode(0x2BFF0864), Sql("SELECT * FROM [%s]", kWorkTable), count);
    });
}

KaloStatus KALO_CALL KaloGetFixedIOInfo(std::int16_t axis_num, std::int32_t inout, KaloIoSignal* signals) {
    return WithFixedSignals(axis_num, inout, 0x2BFF0868, [&] { return ReadFixedSignals(signals); });
}
