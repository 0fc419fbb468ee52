// A host program that knows the library by its headers alone. It loads the library, makes a session on the
// knowledge database that lies beside it, calls every exported function over all that the session offers, and
// prints what it gets: tour LIBRARY EXPORT-LIST WORKING-FILE LANGUAGE.

#include "host/tour.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

using host::Axis;
using host::Report;

constexpr Axis kAxes[] = {
    {1, 18, 5, 202, 4, 3, 3, 202, 302, 4, 3},
    {2, 17, 6, 101, 3, KALO_NO_OPTION, 0, 0, 301, 2, 3},
    {3, 17, 1, 0, 3, KALO_NO_OPTION, 0, 0, 301, 1, KALO_NONE},
    {4, 34, 4, 202, 4, KALO_NO_OPTION, 0, 0, 401, 11, KALO_NONE},
    {5, 17, 6, 0, 3, 5, 4, 0, 301, 2, 2},
};
constexpr std::int32_t kAllControlModes = 0xFFFF;
// Exit code of a tour that found no database to open, and came to its end.
constexpr int kNotOpened = 3;

// A host registers an axis by its first builder; only then has it a row to write the identity into.
void Build(Report& report, const Axis& axis, std::uint16_t country) {
    const auto language = static_cast<std::int16_t>(country);
    KALO(KaloUparaCreate)
    (language, axis.servo, axis.servoFirmware, axis.servoCustom, axis.powerRating, axis.option,
     axis.optionFirmware, axis.optionCustom, axis.number);
    KALO(KaloModelInfoCreate)
    (axis.servo, axis.servoFirmware, axis.servoCustom, axis.powerRating, axis.option, axis.optionFirmware,
     axis.optionCustom, axis.motor, axis.encoder, axis.encoderFirmware, axis.number);
    KALO(KaloMonCreate)
    (std::int32_t{country}, axis.servo, axis.servoFirmware, axis.servoCustom, axis.powerRating, axis.option,
     axis.optionFirmware, axis.optionCustom, axis.number);
    KALO(KaloAlarmCreate)
    (country, axis.servo, axis.servoFirmware, axis.servoCustom, axis.powerRating, axis.option,
     axis.optionFirmware, axis.optionCustom, axis.number);
    KALO(KaloAnalogtraceCreate)
    (std::int32_t{country}, axis.servo, axis.servoFirmware, axis.servoCustom, axis.option,
     axis.optionFirmware, axis.optionCustom, axis.number, host::kTraceSpecVersion, 0);
    KALO(KaloIotraceCreate)
    (axis.servo, axis.servoFirmware, axis.servoCustom, axis.option, axis.optionFirmware, axis.optionCustom,
     axis.number, host::kTraceSpecVersion, host::kTraceControlType);
    KALO(KaloMotorSpecStringCreate)(axis.number);
}

void TourAxis(Report& report, const Axis& axis, std::uint16_t country) {
    TourParameters(report, axis);
    TourDigits(report, axis, country);
    TourGroups(report, axis);
    TourMonitors(report, axis);
    TourAlarms(report, axis);
    TourAnalogTrace(report, axis);
    TourIoTrace(report, axis);
    TourTraceIds(report, axis);
    TourIo(report, axis);
    TourFixedIo(report, axis);
    TourHelp(report, axis);
    host::Single<KaloMotorInfo> motor;
    KALO(KaloGetMotorInfo)(axis.number, motor.Data());
    motor.Show(report);
}

void TourDatabase(Report& report) {
    host::Single<host::TextOutput<KALO_MDB_NAME_SIZE>> name;
    KALO(KaloGetMdbName)(name.Data()->text);
    name.Show(report);
    TourMonitorLists(report);
    TourCustomSpecs(report);
    TourDigitNames(report);
    TourModels(report);
    TourMotors(report);
    TourRatings(report);
    TourEncoders(report);
    TourReferencePulses(report);
}

// Leaves half of the control modes, then nothing of the axis.
void Trim(Report& report, const Axis& axis) {
    KALO(KaloUparaUpdate)(axis.number, std::uint16_t{1});
    KALO(KaloMonUpdate)(std::int32_t{axis.number}, kAllControlModes);
    KALO(KaloMonUpdate)(std::int32_t{axis.number}, 1);
    TourParameters(report, axis);
    TourMonitors(report, axis);
    KALO(KaloDeleteAxisTable)(axis.number);
    TourParameters(report, axis);
}

// False when there was no database to open; every function is called nonetheless.
bool TourSession(Report& report, std::uint16_t language) {
    KALO(KaloCopy)(language);
    const bool opened = KALO(KaloOpen)(language) == 0;
    for (const Axis& axis : kAxes)
        Build(report, axis, language);
    for (const Axis& axis : kAxes)
        TourAxis(report, axis, language);
    TourDatabase(report);
    for (const Axis& axis : kAxes)
        Trim(report, axis);
    KALO(KaloClose)();
    // The working file is kept, and opens with the other model tables.
    KALO(KaloCopy)(language);
    KALO(KaloModelTableSelect)(std::uint16_t{2});
    KALO(KaloOpen)(language);
    TourModels(report);
    KALO(KaloClose)();
    if (opened) KALO(KaloRemove)();
    return opened;
}

void ResolveListed(Report& report, const host::Library& library, const char* list) {
    std::ifstream names(list);
    std::size_t count = 0;
    for (std::string name; names >> name; ++count) {
        if (library.Address(name.c_str()) == nullptr) report.Fault(name + " is not exported");
    }
    if (count == 0) report.Fault("no list of exports");
}

void CheckAllVisited(Report& report, const char* list) {
    std::ifstream names(list);
    for (std::string name; names >> name;) {
        if (!report.Visited().contains(name)) report.Fault(name + " was not called");
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 5) {
        std::fprintf(stderr, "usage: tour LIBRARY EXPORT-LIST WORKING-FILE LANGUAGE\n");
        return 2;
    }
    host::WriteBytesUnchanged();
    const host::Library library(arguments[1]);
    Report report(library);
    ResolveListed(report, library, arguments[2]);
    KALO(KaloSetFileName)("tour", arguments[3]);
    const bool opened = TourSession(report, static_cast<std::uint16_t>(std::atoi(arguments[4])));
    if (opened) CheckAllVisited(report, arguments[2]);
    if (report.Failed()) return 1;
    return opened ? 0 : kNotOpened;
}
