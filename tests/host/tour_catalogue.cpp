#include "host/tour.h"

namespace host {
namespace {

// The models, options and motors of the sample database, and numbers beyond them.
constexpr std::uint32_t kModels[] = {0, 16, 17, 18, 19, 33, 34, 273};
constexpr std::uint32_t kOptions[] = {3, 5, KALO_NO_OPTION};
constexpr std::uint16_t kAllMotors = 65535;
constexpr std::uint16_t kControlTypes[] = {0, 1, 2, 3, kAllMotors};
constexpr std::uint16_t kCountries[] = {0, 1, 2, 3};

template <std::size_t Size>
using Text = Single<TextOutput<Size>>;
using Name = Text<KALO_NAME_SIZE>;

struct ListKind {
    std::uint16_t kind, subKind;
};
constexpr ListKind kListKinds[] = {{0, 0}, {0, 1}, {1, 0}, {1, 1}, {2, 0}, {2, 1}, {3, 0}, {3, 1}, {4, 0}};

void ShowModelNames(Report& report, std::uint32_t model, std::uint32_t option) {
    for (std::uint16_t selector = 1; selector <= 3; ++selector) {
        Name off;
        KALO(KaloGetModelOffName)(selector, model, option, off.Data()->text);
        off.Show(report);
        Name on;
        KALO(KaloGetModelOnName)(selector, model, option, on.Data()->text);
        on.Show(report);
    }
}

void ListModels(Report& report, const ListKind& list) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetModelNumber)(list.kind, list.subKind, count.Data());
    count.Show(report);
    for (std::uint16_t index = 0; index <= count.Value(); ++index) {
        Single<std::uint32_t> model;
        Single<std::uint32_t> option;
        KALO(KaloGetAmpUnitId)(list.kind, list.subKind, index, model.Data(), option.Data());
        model.Show(report);
        option.Show(report);
    }
}

void ListOptionUnits(Report& report, std::uint32_t model) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetOptionUnitNum)(model, count.Data());
    count.Show(report);
    for (std::uint16_t index = 0; index <= count.Value(); ++index) {
        Single<std::uint32_t> option;
        KALO(KaloGetOptionUnitId)(model, index, option.Data());
        option.Show(report);
    }
}

void TourWizard(Report& report) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetWizardServoNum)(count.Data());
    Array<std::uint32_t> models(count.Value());
    KALO(KaloGetWizardServoId)(models.Data());
    models.Show(report);
    for (std::uint32_t page = 0; page <= 8; ++page) {
        Text<KALO_HELP_SIZE> help;
        KALO(KaloGetWizHelp)(0u, page, help.Data()->text);
        help.Show(report);
    }
}

void ListVoltages(Report& report, std::uint32_t motor, std::uint16_t kind, std::uint32_t id) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetMotorPowerVoltageNum)(motor, kind, id, count.Data());
    Array<KaloMotorVoltage> voltages(count.Value());
    KALO(KaloGetMotorPowerVoltageInfo)(motor, kind, id, count.Value(), voltages.Data());
    voltages.Show(report);
}

void ListPowers(Report& report, std::uint32_t motor) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetMotorCapacityNum)(motor, count.Data());
    Array<KaloMotorCapacity> capacities(count.Value());
    KALO(KaloGetMotorCapacityInfo)(motor, count.Value(), capacities.Data());
    capacities.Show(report);
    for (std::uint32_t power = 0; power <= 10; ++power) {
        Name name;
        KALO(KaloGetMotorPower)(motor, power, name.Data()->text);
        name.Show(report);
        ListVoltages(report, motor, 1, power);
        ListVoltages(report, motor, 2, power);
    }
}

void ListParts(Report& report, std::uint32_t motor, std::uint16_t kind, std::uint32_t id) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetMotorLinearInfoNum)(motor, kind, id, count.Data());
    Array<KaloMotorPart> linear(count.Value());
    KALO(KaloGetMotorLinearInfo)(motor, kind, id, count.Value(), linear.Data());
    linear.Show(report);

    count = Single<std::uint16_t>(0);
    KALO(KaloGetMotorDDInfoNum)(motor, kind, id, count.Data());
    Array<KaloMotorPart> ring(count.Value());
    KALO(KaloGetMotorDDInfo)(motor, kind, id, count.Value(), ring.Data());
    ring.Show(report);
}

void ListMotorOptions(Report& report, std::uint32_t motor) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetOptionInfoNum)(motor, count.Data());
    Array<KaloOptionInfo> options(count.Value());
    KALO(KaloGetOptionInfo)(motor, count.Value(), options.Data());
    options.Show(report);

    count = Single<std::uint16_t>(0);
    KALO(KaloGetPGInfoNum)(motor, count.Data());
    Array<KaloPGInfo> encoders(count.Value());
    KALO(KaloGetPGInfo)(motor, count.Value(), encoders.Data());
    encoders.Show(report);
}

void TourMotor(Report& report, std::uint32_t motor) {
    Name name;
    Single<std::uint16_t> createType;
    KALO(KaloGetMotorName)(motor, name.Data()->text, createType.Data());
    name.Show(report);
    createType.Show(report);
    ListPowers(report, motor);
    ListParts(report, motor, 1, 0);
    for (std::uint32_t part = 0; part <= 6; ++part)
        ListParts(report, motor, 2, part);
    ListMotorOptions(report, motor);
    for (std::uint32_t encoder = 0; encoder <= 12; ++encoder) {
        for (const std::uint32_t firmware : {1u, 3u, 65535u}) {
            Single<KaloEncodor> resolved;
            KALO(KaloGetEncodor)(motor, encoder, firmware, resolved.Data());
            resolved.Show(report);
        }
    }
}

void TourPower(Report& report, std::uint32_t model, std::uint32_t option, std::uint32_t power) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetServovoltageNum)(model, option, power, count.Data());
    Array<KaloServoVoltage> voltages(count.Value());
    KALO(KaloGetServovoltageInfo)(model, option, power, count.Value(), voltages.Data());
    voltages.Show(report);
    for (std::uint32_t voltage = 0; voltage <= 5; ++voltage) {
        Single<std::uint32_t> current;
        Single<std::uint32_t> maxCurrent;
        KALO(KaloGetServoCurrentInfo)(model, option, power, voltage, current.Data(), maxCurrent.Data());
        current.Show(report);
        maxCurrent.Show(report);
    }
}

void TourPowers(Report& report, std::uint32_t model, std::uint32_t option) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetServoPowerNum)(model, option, count.Data());
    for (std::uint16_t index = 0; index <= count.Value(); ++index) {
        Single<std::uint32_t> power;
        if (KALO(KaloGetServoPowerId)(model, option, index, power.Data()) != 0) continue;
        TourPower(report, model, option, power.Value());
    }
}

}  // namespace

void TourModels(Report& report) {
    for (const std::uint32_t model : kModels) {
        for (const std::uint32_t option : kOptions)
            ShowModelNames(report, model, option);
        ListOptionUnits(report, model);
    }
    for (const ListKind& list : kListKinds)
        ListModels(report, list);
    TourWizard(report);
}

void TourMotors(Report& report) {
    for (const std::uint16_t controlType : kControlTypes) {
        Single<std::uint16_t> count(0);
        KALO(KaloGetMotorNumber)(controlType, count.Data());
        for (std::uint16_t index = 0; index <= count.Value(); ++index) {
            Single<std::uint32_t> motor;
            if (KALO(KaloGetMotorId)(controlType, index, motor.Data()) != 0) continue;
            motor.Show(report);
            if (controlType == kAllMotors) TourMotor(report, motor.Value());
        }
    }
    Single<KaloMotorScaleInfo> scale;
    KALO(KaloGetMotorScaleInfo)(1u, scale.Data());
    scale.Show(report);
}

void TourRatings(Report& report) {
    for (const std::uint32_t model : kModels) {
        for (const std::uint32_t option : kOptions)
            TourPowers(report, model, option);
    }
    for (std::uint32_t symbol = 0; symbol <= 10; ++symbol) {
        Name power;
        KALO(KaloGetServoPower)(symbol, power.Data()->text);
        power.Show(report);
        Name voltage;
        KALO(KaloGetServoVoltage)(symbol, voltage.Data()->text);
        voltage.Show(report);
        Name motorVoltage;
        KALO(KaloGetMotorVoltage)(symbol, motorVoltage.Data()->text);
        motorVoltage.Show(report);
    }
}

void TourEncoders(Report& report) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetEncoderNum)(count.Data());
    count.Show(report);
    for (const std::uint16_t country : kCountries) {
        for (std::uint16_t index = 0; index <= count.Value(); ++index) {
            Single<std::uint32_t> code;
            if (KALO(KaloGetEncoderId)(country, index, code.Data()) != 0) continue;
            Name name;
            KALO(KaloGetEncoderString)(country, code.Value(), name.Data()->text);
            name.Show(report);
        }
    }
    for (std::uint16_t type = 0; type <= 4; ++type) {
        for (std::uint32_t size = 0; size <= 8; ++size) {
            Single<std::uint32_t> id;
            Single<std::uint32_t> subId;
            KALO(KaloGetConvertID)(type, size, id.Data(), subId.Data());
            id.Show(report);
            subId.Show(report);
        }
    }
}

}  // namespace host
