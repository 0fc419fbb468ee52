#include "io/io_table.h"

#include "merge/model_deltas.h"

namespace kalo {
namespace {

// Rows of the I/O table are matched by their parameter id.
constexpr ModelDeltaStatements kIoDeltas = {
    "SELECT COUNT (*) AS [Record] FROM [FirmIo] WHERE [model_id] = %ld",
    "SELECT * FROM [FirmIo] WHERE [model_id] = %ld ORDER BY [firm_id]",
    {
        "UPDATE [%s] INNER JOIN [FirmIo] ON [%s].[Parameter_id] = [FirmIo].[Parameter_id] SET "
        "[%s].[io_code] = [FirmIo].[io_code],[%s].[address] = [FirmIo].[address], [%s].[digit] = "
        "[FirmIo].[digit],[%s].[value] = [FirmIo].[value], [%s].[logical_name] = [FirmIo].[logical_name], "
        "[%s].[physical_name] = [FirmIo].[physical_name],[%s].[positive_logic] = [FirmIo].[positive_logic], "
        "[%s].[reverse] = [FirmIo].[reverse],[%s].[mode_select] = [FirmIo].[mode_select],"
        "[%s].[input_mode_select] = [FirmIo].[input_mode_select], [%s].[reverse_address] = "
        "[FirmIo].[reverse_address] WHERE ([FirmIo].[change_type] = 1 AND [FirmIo].[firm_id] <= %ld AND "
        "[FirmIo].[model_id] = %ld)",
        "INSERT INTO [%s] SELECT [FirmIo].[Parameter_id],[FirmIo].[io_code],[FirmIo].[address],"
        "[FirmIo].[digit],[FirmIo].[value],[FirmIo].[logical_name],[FirmIo].[physical_name], "
        "[FirmIo].[positive_logic],[FirmIo].[reverse],[FirmIo].[mode_select],[FirmIo].[input_mode_select],"
        "[FirmIo].[reverse_address] FROM [FirmIo] WHERE ([change_type] = 2 AND [firm_id] <= %ld AND "
        "[model_id] = %ld)",
        "DELETE * FROM [%s] WHERE [Parameter_id] = ANY (SELECT [Parameter_id] FROM [FirmIo] WHERE "
        "([FirmIo].[change_type] = 3 AND [FirmIo].[firm_id] <= %ld AND [FirmIo].[model_id] = %ld))",
    },
    {
        "UPDATE [%s] INNER JOIN [CmodIo] ON [%s].[Parameter_id] = [CmodIo].[Parameter_id] SET "
        "[%s].[io_code] = [CmodIo].[io_code],[%s].[address] = [CmodIo].[address], [%s].[digit] = "
        "[CmodIo].[digit],[%s].[value] = [CmodIo].[value], [%s].[logical_name] = [CmodIo].[logical_name], "
        "[%s].[physical_name] = [CmodIo].[physical_name],[%s].[positive_logic] = [CmodIo].[positive_logic], "
        "[%s].[reverse] = [CmodIo].[reverse],[%s].[mode_select] = [CmodIo].[mode_select],"
        "[%s].[input_mode_select] = [CmodIo].[input_mode_select], [%s].[reverse_address] = "
        "[CmodIo].[reverse_address] WHERE ([CmodIo].[change_type] = 1 AND [CmodIo].[cmod_id] = %ld AND "
        "[CmodIo].[model_id] = %ld)",
        "INSERT INTO [%s] SELECT [CmodIo].[Parameter_id],[CmodIo].[io_code],[CmodIo].[address],"
        "[CmodIo].[digit],[CmodIo].[value],[CmodIo].[logical_name],[CmodIo].[physical_name], "
        "[CmodIo].[positive_logic],[CmodIo].[reverse],[CmodIo].[mode_select],[CmodIo].[input_mode_select],"
        "[CmodIo].[reverse_address] FROM [CmodIo] WHERE ([change_type] = 2 AND [cmod_id] = %ld AND "
        "[model_id] = %ld)",
        "DELETE * FROM [%s] WHERE [Parameter_id] = ANY (SELECT [Parameter_id] FROM [CmodIo] WHERE "
        "([CmodIo].[change_type] = 3 AND [CmodIo].[cmod_id] = %ld AND [CmodIo].[model_id] = %ld))",
    },
};

constexpr ModelDeltaCodes kIoCodes = {
    .noCount = 0x2BFF080B,
    .noNewest = 0x2BFF080C,
    .bound = DaoBase(0x2BAA0000),
    .firmware = DaoBase(0x2BAB0000),
    .customSpec = DaoBase(0x2BAC0000),
};

}  // namespace

Status BuildIoTable(const CString& table, const CString& modelName, const DeltaIdentity& identity) {
    DropLeftover(table);
    const Status status = Run(DaoBase(0x2BA90000), Sql("SELECT * INTO [%s] FROM [%s_Io]", table, modelName));
    if (status != kOk) return status;
    return ApplyModelDeltas(table, kIoDeltas, kIoCodes, identity);
}

}  // namespace kalo
