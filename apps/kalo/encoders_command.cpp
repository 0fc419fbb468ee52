#include <kalodata/catalogue.h>

#include <memory>
#include <optional>

#include "axis.h"
#include "commands.h"
#include "session.h"
#include "table.h"
#include "text.h"

namespace cli {
namespace {

// The engine failed, as it does for an index past the end of one language's types.
constexpr KaloStatus kPastEnd = 0x2BFF0284;

struct Options {
    CommonOptions common;
    std::optional<std::uint32_t> motor;
    std::uint32_t encoder = 0;
    std::uint32_t firmware = KALO_NONE;
    std::vector<std::string> size;
};

Table TypeTable(std::uint16_t language) {
    Table table{{{"type_code"}, {"name"}}, {}};
    std::uint16_t most = 0;
    Check("KaloGetEncoderNum", KaloGetEncoderNum(&most));
    for (std::uint16_t index = 0; index < most; ++index) {
        std::uint32_t code = 0;
        const KaloStatus status = KaloGetEncoderId(language, index, &code);
        if (status == kPastEnd && index > 0) break;
        Check("KaloGetEncoderId", status);
        char name[KALO_NAME_SIZE] = {};
        Check("KaloGetEncoderString", KaloGetEncoderString(language, code, name));
        table.rows.push_back({code, FieldText(name)});
    }
    return table;
}

Table AbilityTable(const Options& options) {
    KaloEncodor encoder{};
    Check("KaloGetEncodor", KaloGetEncodor(*options.motor, options.encoder, options.firmware, &encoder));
    return {
        {{"motor_id"}, {"encoder_id"}, {"firmware"}, {"ability"}, {"type"}},
        {{*options.motor, options.encoder, options.firmware == KALO_NONE ? Cell() : Cell(options.firmware),
          encoder.encodor_ability, FieldText(encoder.encodor_type)}}};
}

Table SizeTable(const std::vector<std::string>& arguments) {
    const auto type = static_cast<std::uint16_t>(NumberArgument(arguments[0], 0, UINT16_MAX));
    const auto size = static_cast<std::uint32_t>(NumberArgument(arguments[1], 0, UINT32_MAX));
    std::uint32_t id = 0;
    std::uint32_t subId = 0;
    Check("KaloGetConvertID", KaloGetConvertID(type, size, &id, &subId));
    return {{{"type"}, {"size_id"}, {"win_id"}, {"win_subid"}}, {{type, size, id, subId}}};
}

void Show(const Options& options) {
    const Session session(options.common);
    const Format format = options.common.format;
    if (options.motor)
        Print(AbilityTable(options), format);
    else
        Print(options.size.empty() ? TypeTable(options.common.language) : SizeTable(options.size), format);
}

}  // namespace

void AddEncodersCommand(CLI::App& app) {
    CLI::App* command =
        app.add_subcommand("encoders", "Encoder types, and what the encoder of a motor can do");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    CLI::Option* motor = AddNumber(*command, "--motor", options->motor, "Motor of the encoder asked about");
    CLI::Option* encoder = AddNumber(*command, "--encoder", options->encoder, "Its encoder")->needs(motor);
    motor->needs(encoder);
    AddNumber(*command, "--firmware", options->firmware, "Firmware of the encoder (default 65535: none)")
        ->needs(motor);
    command->add_option("--size", options->size, "Ids of a size: TYPE SIZE-ID")->expected(2);
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
