#include "axis.h"

#include <kalodata/alarms.h>
#include <kalodata/axis.h>
#include <kalodata/monitors.h>
#include <kalodata/parameters.h>
#include <kalodata/traces.h>

namespace cli {

void BuildParameters(const Combination& c, std::uint16_t language) {
    Check("KaloUparaCreate",
          KaloUparaCreate(static_cast<std::int16_t>(language), c.model, c.firmware, c.customSpec, c.power,
                          c.option, c.optionFirmware, c.optionCustomSpec, kAxis));
}

void BuildMonitors(const Combination& c, std::uint16_t language) {
    Check("KaloMonCreate", KaloMonCreate(language, c.model, c.firmware, c.customSpec, c.power, c.option,
                                         c.optionFirmware, c.optionCustomSpec, kAxis));
}

void BuildAlarms(const Combination& c, std::uint16_t language) {
    Check("KaloAlarmCreate", KaloAlarmCreate(language, c.model, c.firmware, c.customSpec, c.power, c.option,
                                             c.optionFirmware, c.optionCustomSpec, kAxis));
}

void BuildTraces(const Combination& c, std::uint16_t language, const TraceRange& range) {
    Check("KaloAnalogtraceCreate",
          KaloAnalogtraceCreate(language, c.model, c.firmware, c.customSpec, c.option, c.optionFirmware,
                                c.optionCustomSpec, kAxis, range.specVersion, 0));
    Check("KaloIotraceCreate",
          KaloIotraceCreate(c.model, c.firmware, c.customSpec, c.option, c.optionFirmware, c.optionCustomSpec,
                            kAxis, range.specVersion, range.controlType));
}

void Identify(const Combination& c, const Motor& motor) {
    Check("KaloModelInfoCreate",
          KaloModelInfoCreate(c.model, c.firmware, c.customSpec, c.power, c.option, c.optionFirmware,
                              c.optionCustomSpec, motor.id, motor.encoder, motor.encoderFirmware, kAxis));
}

}  // namespace cli
