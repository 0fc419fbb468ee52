#include "options.h"

#include <kalodata/types.h>

#include <charconv>

namespace cli {

std::optional<std::int64_t> ParseNumber(const std::string& text, std::int64_t least, std::int64_t most) {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const char* first = text.data() + (hexadecimal ? 2 : 0);
    const char* last = text.data() + text.size();
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(first, last, number, hexadecimal ? 16 : 10);
    const bool signBehindPrefix = hexadecimal && first != last && *first == '-';
    if (error != std::errc{} || end != last || signBehindPrefix || number < least || number > most)
        return std::nullopt;
    return number;
}

std::int64_t NumberArgument(const std::string& text, std::int64_t least, std::int64_t most) {
    const auto number = ParseNumber(text, least, most);
    if (!number)
        throw CLI::ValidationError("'" + text + "' is not a number from " + std::to_string(least) + " to " +
                                   std::to_string(most) + " (decimal, or hexadecimal after 0x)");
    return *number;
}

CLI::Option* AddFormat(CLI::App& command, Format& format) {
    const std::map<std::string, Format> names{
        {"table", Format::Table}, {"csv", Format::Csv}, {"json", Format::Json}};
    return command.add_option("--format", format, "Output: table (the default), csv or json")
        ->transform(CLI::CheckedTransformer(names))
        ->type_name("FORMAT");
}

void AddCommon(CLI::App& command, CommonOptions& options) {
    command.add_option("FILE", options.file, "Knowledge database (.mdb); it is never written to")->required();
    AddFormat(command, options.format);
    AddNumber(command, "--language", options.language, "Language of the texts (default 0, English)");
}

CLI::Option* AddCombination(CLI::App& command, Combination& combination) {
    combination.option = KALO_NO_OPTION;
    CLI::Option* model = AddNumber(command, "--model", combination.model, "Amplifier model");
    AddNumber(command, "--firmware", combination.firmware,
              "Its firmware version (default 0: as the base tables say)");
    AddNumber(command, "--cmod", combination.customSpec,
              "Its custom specification (default 0: standard product)");
    AddNumber(command, "--power", combination.power,
              "Its power rating (default 0: limits for none in particular)");
    AddNumber(command, "--option", combination.option, "Option unit (default 65533: none)");
    AddNumber(command, "--option-firmware", combination.optionFirmware, "Its firmware version");
    AddNumber(command, "--option-cmod", combination.optionCustomSpec, "Its custom specification");
    return model;
}

}  // namespace cli
