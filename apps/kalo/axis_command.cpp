#include <kalodata/axis.h>
#include <kalodata/catalogue.h>
#include <kalodata/digits.h>
#include <kalodata/io.h>
#include <kalodata/monitors.h>
#include <kalodata/parameters.h>
#include <kalodata/traces.h>

#include <memory>

#include "axis.h"
#include "commands.h"
#include "facts.h"
#include "session.h"
#include "text.h"

namespace cli {
namespace {

constexpr std::int16_t kInputs = 1;
constexpr std::int16_t kOutputs = 2;
// Answer of KaloGetUParaNum for an axis that is not there.
constexpr KaloStatus kNoAxis = 0x2A000068;

struct Options {
    CommonOptions common;
    Combination combination;
    Motor motor;
};

// How many there are of something that belongs to the axis.
struct Count {
    const char* words;
    const char* function;
    KaloStatus (*read)(std::uint16_t* count);
};

constexpr Count kCounts[] = {
    {"user parameters", "KaloGetUParaNum", [](std::uint16_t* n) { return KaloGetUParaNum(kAxis, n); }},
    {"digits of parameters", "KaloGetAllNibbleInfoNum",
     [](std::uint16_t* n) { return KaloGetAllNibbleInfoNum(kAxis, n); }},
    {"groups of parameters", "KaloGetAllGroupNum",
     [](std::uint16_t* n) { return KaloGetAllGroupNum(kAxis, n); }},
    {"monitors of category 1", "KaloGetMonitorNumber",
     [](std::uint16_t* n) { return KaloGetMonitorNumber(kAxis, 1, n); }},
    {"monitors of category 2", "KaloGetMonitorNumber",
     [](std::uint16_t* n) { return KaloGetMonitorNumber(kAxis, 2, n); }},
    {"monitors of category 3", "KaloGetMonitorNumber",
     [](std::uint16_t* n) { return KaloGetMonitorNumber(kAxis, 3, n); }},
    {"monitors of category 4", "KaloGetMonitorNumber",
     [](std::uint16_t* n) { return KaloGetMonitorNumber(kAxis, 4, n); }},
    {"functions that monitors tell", "KaloGetAllMeaningMonInfoNum",
     [](std::uint16_t* n) { return KaloGetAllMeaningMonInfoNum(kAxis, n); }},
    {"parameters of inputs", "KaloGetIONum",
     [](std::uint16_t* n) { return KaloGetIONum(kAxis, kInputs, n); }},
    {"parameters of outputs", "KaloGetIONum",
     [](std::uint16_t* n) { return KaloGetIONum(kAxis, kOutputs, n); }},
    {"fixed inputs", "KaloGetFixedIONum",
     [](std::uint16_t* n) { return KaloGetFixedIONum(kAxis, kInputs, n); }},
    {"fixed outputs", "KaloGetFixedIONum",
     [](std::uint16_t* n) { return KaloGetFixedIONum(kAxis, kOutputs, n); }},
    {"analog targets of trace kind 1", "KaloGetAnalogtraceMapNum",
     [](std::uint16_t* n) { return KaloGetAnalogtraceMapNum(kAxis, 1, n); }},
    {"digital signals of trace kind 1", "KaloGetIOtraceMapNum",
     [](std::uint16_t* n) { return KaloGetIOtraceMapNum(kAxis, 1, n); }},
};

// As a host does at its start.
void Build(const Options& options) {
    const Combination& combination = options.combination;
    const std::uint16_t language = options.common.language;
    BuildParameters(combination, language);
    Identify(combination, options.motor);
    BuildMonitors(combination, language);
    BuildAlarms(combination, language);
    BuildTraces(combination, language);
}

void AddMotor(Facts& facts) {
    KaloMotorInfo info{};
    Check("KaloGetMotorInfo", KaloGetMotorInfo(kAxis, &info));
    facts.Add("motor", "name", FieldText(info.motor_name));
    facts.Add("motor", "help", FieldText(info.motor_help));
    facts.Add("encoder", "type", FieldText(info.encodor_type));
    facts.Add("encoder", "ability", info.encodor_ability);
    facts.Add("encoder", "firmware", info.eFirm_id == KALO_NONE ? Cell() : Cell(info.eFirm_id));
}

void AddCounts(Facts& facts) {
    for (const Count& wanted : kCounts) {
        std::uint16_t count = 0;
        Check(wanted.function, wanted.read(&count));
        facts.Add("number of", wanted.words, count);
    }
}

// As a host does when the axis goes.
void AddRemoval(Facts& facts) {
    Check("KaloDeleteAxisTable", KaloDeleteAxisTable(kAxis));
    std::uint16_t count = 0;
    facts.Add("axis", "gone after its removal", KaloGetUParaNum(kAxis, &count) == kNoAxis);
}

void Show(const Options& options) {
    const Session session(options.common);
    Build(options);
    Facts facts;
    if (options.motor.id != 0) AddMotor(facts);
    AddCounts(facts);
    AddRemoval(facts);
    Print(facts.Rows(), options.common.format);
}

}  // namespace

void AddAxisCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand(
        "axis", "The life of an axis: builds all its tables, says what is in them, removes it again");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    AddCombination(*command, options->combination)->required();
    CLI::Option* motor = AddNumber(*command, "--motor", options->motor.id, "Motor of the axis");
    AddNumber(*command, "--encoder", options->motor.encoder, "The motor's encoder")->needs(motor);
    AddNumber(*command, "--encoder-firmware", options->motor.encoderFirmware,
              "Firmware of the encoder (default 65535: none)")
        ->needs(motor);
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
