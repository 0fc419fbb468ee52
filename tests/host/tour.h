#pragma once

#include <cstdint>

#include "host/record_fields.h"
#include "host/report.h"

namespace host {

// A drive as the host knows it: what it hands to the builders.
struct Axis {
    std::int16_t number;
    std::int32_t servo, servoFirmware, servoCustom, powerRating;
    std::int32_t option, optionFirmware, optionCustom;
    std::int32_t motor, encoder, encoderFirmware;
};

// Specification version and control type for which the traces are built.
constexpr std::int16_t kTraceSpecVersion = 2;
constexpr std::int16_t kTraceControlType = 1;

// Every function of a family, over every item of an axis or, without one, of the database. Each also asks
// once for what is not there: an item past the end, an unknown id.
void TourParameters(Report& report, const Axis& axis);
void TourCustomSpecs(Report& report);
void TourDigits(Report& report, const Axis& axis, std::uint16_t country);
void TourDigitNames(Report& report);
void TourGroups(Report& report, const Axis& axis);
void TourMonitors(Report& report, const Axis& axis);
void TourMonitorLists(Report& report);
void TourAlarms(Report& report, const Axis& axis);
void TourAnalogTrace(Report& report, const Axis& axis);
void TourIoTrace(Report& report, const Axis& axis);
void TourTraceIds(Report& report, const Axis& axis);
void TourIo(Report& report, const Axis& axis);
void TourFixedIo(Report& report, const Axis& axis);
void TourModels(Report& report);
void TourMotors(Report& report);
void TourRatings(Report& report);
void TourEncoders(Report& report);
void TourHelp(Report& report, const Axis& axis);
void TourReferencePulses(Report& report);

}  // namespace host
