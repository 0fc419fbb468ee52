#include "parameter_rows.h"

#include "axis.h"
#include "text.h"

namespace cli {
namespace {

using Parameter = KaloUserParameter;

constexpr Field<Parameter> kFields[] = {
    {"number", Shown::Always, [](const Parameter& p) { return Cell(FieldText(p.user_constant)); }},
    {"parameter_id", Shown::Hex, [](const Parameter& p) { return Cell(p.parameter_id); }},
    {"name", Shown::Always, [](const Parameter& p) { return Cell(FieldText(p.parameter_name)); }},
    {"category_id", Shown::Detail, [](const Parameter& p) { return Cell(p.category_id); }},
    {"category", Shown::Always, [](const Parameter& p) { return Cell(FieldText(p.category_name)); }},
    {"min", Shown::Always, [](const Parameter& p) { return Cell(p.min); }},
    {"max", Shown::Always, [](const Parameter& p) { return Cell(p.max); }},
    {"initial", Shown::Always, [](const Parameter& p) { return Cell(p.initial_value); }},
    {"step", Shown::Always, [](const Parameter& p) { return Cell(p.unit_multiplier); }},
    {"unit", Shown::Always, [](const Parameter& p) { return Cell(FieldText(p.unit)); }},
    {"unit_name", Shown::Detail, [](const Parameter& p) { return Cell(FieldText(p.unit_name)); }},
    {"size", Shown::Detail, [](const Parameter& p) { return Cell(p.size); }},
    {"volatile_address", Shown::Detail, [](const Parameter& p) { return Cell(p.volatile_address); }},
    {"nonvolatile_address", Shown::Detail, [](const Parameter& p) { return Cell(p.nonvolatile_address); }},
    {"min_check", Shown::Detail, [](const Parameter& p) { return Cell(p.min_check); }},
    {"max_check", Shown::Detail, [](const Parameter& p) { return Cell(p.max_check); }},
    {"nibble_data_id", Shown::Detail, [](const Parameter& p) { return Cell(p.nibble_data_id); }},
    {"dec_data_id", Shown::Detail, [](const Parameter& p) { return Cell(p.dec_data_id); }},
    {"decdata_num", Shown::Detail, [](const Parameter& p) { return Cell(p.decdata_num); }},
    {"edit_type", Shown::Detail, [](const Parameter& p) { return Cell(p.edit_type); }},
    {"disp_type", Shown::Detail, [](const Parameter& p) { return Cell(p.disp_type); }},
    {"user_level", Shown::Detail, [](const Parameter& p) { return Cell(p.user_level); }},
    {"access_level", Shown::Detail, [](const Parameter& p) { return Cell(p.access_level); }},
    {"sv_control_type", Shown::Detail, [](const Parameter& p) { return Cell(p.sv_control_type); }},
    {"control_mode", Shown::Detail, [](const Parameter& p) { return Cell(p.control_mode); }},
    {"effective_timing", Shown::Detail, [](const Parameter& p) { return Cell(p.effective_timing); }},
    {"fixed_id", Shown::Detail, [](const Parameter& p) { return Cell(p.fixed_id); }},
    {"help", Shown::Detail, [](const Parameter& p) { return Cell(FieldText(p.parameter_help)); }},
};

}  // namespace

std::vector<KaloUserParameter> ReadParameters() {
    return ReadList<Parameter, std::uint16_t>(
        "KaloGetUParaNum", [](std::uint16_t* count) { return KaloGetUParaNum(kAxis, count); },
        "KaloGetAllUParaInfo",
        [](std::uint16_t count, Parameter* records) {
            return KaloGetAllUParaInfo(kAxis, static_cast<std::int16_t>(count), records);
        });
}

KaloUserParameter ReadParameter(std::int32_t id) {
    Parameter parameter{};
    Check("KaloGetUParaInfo", KaloGetUParaInfo(kAxis, id, &parameter));
    return parameter;
}

KaloUserParameter ReadParameterAt(std::int16_t index) {
    std::uint32_t id = 0;
    Check("KaloGetUParaId", KaloGetUParaId(kAxis, index, &id));
    return ReadParameter(static_cast<std::int32_t>(id));
}

Table ParameterTable(const std::vector<Parameter>& parameters) {
    return TableOf(kFields, parameters);
}

}  // namespace cli
