#include <kalodata/catalogue.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "axis.h"
#include "commands.h"
#include "session.h"
#include "table.h"
#include "text.h"

namespace cli {
namespace {

constexpr std::uint16_t kEveryControlType = 65535;
// First and second kind of the lists of parts: magnets and coils, torques and outer sizes.
constexpr std::uint16_t kFirstKind = 1;
constexpr std::uint16_t kSecondKind = 2;
// Answer of KaloGetMotorVoltage for a voltage without a sign.
constexpr KaloStatus kNoSuchVoltage = 0x2A00003D;

struct Options {
    CommonOptions common;
    std::uint16_t controlType = kEveryControlType;
    std::optional<std::uint32_t> motor;
    std::optional<std::uint32_t> power;
    bool scale = false;
};

Table MotorTable(std::uint16_t controlType) {
    Table table{{{"motor_id"}, {"name"}, {"create_type"}}, {}};
    std::uint16_t count = 0;
    Check("KaloGetMotorNumber", KaloGetMotorNumber(controlType, &count));
    for (std::uint16_t index = 0; index < count; ++index) {
        std::uint32_t id = 0;
        Check("KaloGetMotorId", KaloGetMotorId(controlType, index, &id));
        char name[KALO_NAME_SIZE] = {};
        std::uint16_t createType = 0;
        Check("KaloGetMotorName", KaloGetMotorName(id, name, &createType));
        table.rows.push_back({id, FieldText(name), createType});
    }
    return table;
}

// One motor's parts as rows of what, id, name and what it belongs to.
class Parts {
  public:
    explicit Parts(std::uint32_t motor) : motor_(motor) {}

    void AddPowers() {
        for (const auto& power :
             Read<KaloMotorCapacity>("KaloGetMotorCapacityNum", KaloGetMotorCapacityNum,
                                     "KaloGetMotorCapacityInfo", KaloGetMotorCapacityInfo)) {
            Add("power", power.power_id, FieldText(power.power_name), {});
            AddVoltages(kFirstKind, power.power_id, FieldText(power.power_name));
        }
    }

    // One of the motor's powers, with its voltages. A motor without it is refused.
    void AddPower(std::uint32_t power) {
        char name[KALO_NAME_SIZE] = {};
        Check("KaloGetMotorPower", KaloGetMotorPower(motor_, power, name));
        Add("power", power, FieldText(name), {});
        AddVoltages(kFirstKind, power, FieldText(name));
    }

    void AddLinear() {
        for (const KaloMotorPart& magnet : Linear(kFirstKind, 0)) {
            const std::string name = FieldText(magnet.name);
            Add("magnet", magnet.id, name, {});
            for (const KaloMotorPart& coil : Linear(kSecondKind, magnet.id))
                Add("coil", coil.id, FieldText(coil.name), name);
            AddVoltages(kSecondKind, magnet.id, name);
        }
    }

    void AddDirectDrive() {
        for (const KaloMotorPart& torque : DirectDrive(kFirstKind, 0)) {
            const std::string name = FieldText(torque.name);
            Add("torque", torque.id, name, {});
            for (const KaloMotorPart& size : DirectDrive(kSecondKind, torque.id))
                Add("outer size", size.id, FieldText(size.name), name);
        }
    }

    void AddEquipment() {
        for (const auto& option : Read<KaloOptionInfo>("KaloGetOptionInfoNum", KaloGetOptionInfoNum,
                                                       "KaloGetOptionInfo", KaloGetOptionInfo))
            Add("option", option.option_id, FieldText(option.string), {});
        for (const auto& encoder :
             Read<KaloPGInfo>("KaloGetPGInfoNum", KaloGetPGInfoNum, "KaloGetPGInfo", KaloGetPGInfo))
            Add("encoder", encoder.pg_id, FieldText(encoder.string), {});
    }

    const Table& Rows() const { return table_; }

  private:
    void Add(const char* what, std::uint32_t id, const std::string& name, const std::string& of,
             Cell sign = {}) {
        table_.rows.push_back({what, id, name, of, std::move(sign)});
    }

    // Lists that depend on the motor alone.
    template <class Record, class CountGetter, class ListGetter>
    std::vector<Record> Read(const char* countName, CountGetter countGetter, const char* listName,
                             ListGetter listGetter) {
        return Present(ReadList<Record, std::uint16_t>(
            countName, [=, this](std::uint16_t* count) { return countGetter(motor_, count); }, listName,
            [=, this](std::uint16_t count, Record* records) { return listGetter(motor_, count, records); }));
    }

    // A list may be shorter than its count, and motors of one type have empty rows for the parts of another:
    // what is empty is no part.
    template <class Record>
    static std::vector<Record> Present(std::vector<Record> records) {
        std::erase_if(records, [](const Record& record) {
            const char* bytes = reinterpret_cast<const char*>(&record);
            return std::all_of(bytes, bytes + sizeof(Record), [](char byte) { return byte == 0; });
        });
        return records;
    }

    void AddVoltages(std::uint16_t kind, std::uint32_t id, const std::string& of) {
        for (const auto& voltage : Present(ReadList<KaloMotorVoltage, std::uint16_t>(
                 "KaloGetMotorPowerVoltageNum",
                 [=, this](std::uint16_t*count) {
                     return KaloGetMotorPowerVoltageNum(motor_, kind, id, count);
                 },
                 "KaloGetMotorPowerVoltageInfo",
                 [=, this](std::uint16_t count, KaloMotorVoltage*voltages) {
                     return KaloGetMotorPowerVoltageInfo(motor_, kind, id, count, voltages);
                 })))
            Add("voltage", voltage.voltage, FieldText(voltage.voltage_string), of,
                VoltageSign(voltage.voltage));
    }

    // No sign where the database has none for the voltage.
    static Cell VoltageSign(std::uint32_t voltage) {
        char sign[KALO_NAME_SIZE] = {};
        const KaloStatus status = KaloGetMotorVoltage(voltage, sign);
        if (status == kNoSuchVoltage) return {};
        Check("KaloGetMotorVoltage", status);
        return FieldText(sign);
    }

    std::vector<KaloMotorPart> Linear(std::uint16_t kind, std::uint32_t magnet) {
        return Present(ReadList<KaloMotorPart, std::uint16_t>(
            "KaloGetMotorLinearInfoNum",
            [=, this](std::uint16_t* count) {
                return KaloGetMotorLinearInfoNum(motor_, kind, magnet, count);
            },
            "KaloGetMotorLinearInfo",
            [=, this](std::uint16_t count, KaloMotorPart* parts) {
                return KaloGetMotorLinearInfo(motor_, kind, magnet, count, parts);
            }));
    }

    std::vector<KaloMotorPart> DirectDrive(std::uint16_t kind, std::uint32_t torque) {
        return Present(ReadList<KaloMotorPart, std::uint16_t>(
            "KaloGetMotorDDInfoNum",
            [=, this](std::uint16_t* count) { return KaloGetMotorDDInfoNum(motor_, kind, torque, count); },
            "KaloGetMotorDDInfo",
            [=, this](std::uint16_t count, KaloMotorPart* parts) {
                return KaloGetMotorDDInfo(motor_, kind, torque, count, parts);
            }));
    }

    std::uint32_t motor_;
    Table table_{{{"part"}, {"id"}, {"name"}, {"of"}, {"sign"}}, {}};
};

Table PartTable(std::uint32_t motor, std::optional<std::uint32_t> power) {
    // An unknown motor is refused, not shown without parts.
    char name[KALO_NAME_SIZE] = {};
    std::uint16_t createType = 0;
    Check("KaloGetMotorName", KaloGetMotorName(motor, name, &createType));
    Check("KaloMotorSpecStringCreate", KaloMotorSpecStringCreate(kAxis));
    Parts parts(motor);
    if (power) {
        parts.AddPower(*power);
        return parts.Rows();
    }
    parts.AddPowers();
    parts.AddLinear();
    parts.AddDirectDrive();
    parts.AddEquipment();
    return parts.Rows();
}

Table ScaleTable() {
    KaloMotorScaleInfo s{};
    Check("KaloGetMotorScaleInfo", KaloGetMotorScaleInfo(0, &s));
    return {{{"start", Shown::Hex},
             {"bytes"},
             {"sum", Shown::Hex},
             {"protect", Shown::Hex},
             {"protect_bit"},
             {"protect_value"},
             {"model", Shown::Hex},
             {"model_bytes"}},
            {{s.start_adr, s.byte_size, s.sum_adr, s.protect_adr, s.protect_bit, s.protect_val, s.model_adr,
              s.model_size}}};
}

void Show(const Options& options) {
    const Session session(options.common);
    const Format format = options.common.format;
    if (options.scale)
        Print(ScaleTable(), format);
    else
        Print(options.motor ? PartTable(*options.motor, options.power) : MotorTable(options.controlType),
              format);
}

}  // namespace

void AddMotorsCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("motors", "Motors, and the parts of one of them");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    AddNumber(*command, "--control-type", options->controlType,
              "Only one control type: 0 rotary, 1 linear, 2 direct drive");
    CLI::Option* motor = AddNumber(*command, "--motor", options->motor,
                                   "Powers, voltages, parts, options and encoders of one motor");
    AddNumber(*command, "--power", options->power, "Only one of its powers, with its voltages")->needs(motor);
    command->add_flag("--scale", options->scale, "Where motor scales keep what in their memory");
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
