#include "io/io_signal.h"

using namespace kalo;

namespace {

constexpr Status kNotOpen = 0x2A00002C;
constexpr OnDaoError kOnError = DaoBase(0x2BCE0000);

CString PelkStatement(std::int16_t pelkvalue) {
    return Sql("SELECT * FROM [%s] WHERE [pelkvalue] = %d ", "PELK_Io", pelkvalue);
}

}  // namespace

KaloStatus KALO_CALL KaloGetPELKIOInfo(std::int16_t pelkvalue, KaloIoSignal* signals) {
    constexpr Status kNoSelector = 0x2A00007B;
    constexpr int kSignals = 7;
    if (!DatabaseIsOpen()) return kNotOpen;
    return Locked(kOnError, [&] {
        Rows rows(PelkStatement(pelkvalue));
        if (rows.Empty()) return kNoSelector;
        for (int i = 0; i < kSignals; ++i) {
            if (i != 0) rows.Next();
            ReadSignal(rows, signals[i], signals + kSignals);
        }
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetPELKIOInfoNum(std::int16_t pelkvalue, std::uint32_t* count) {
    if (!DatabaseIsOpen()) return kNotOpen;
    std::uint16_t rows = 0;
    const Status status = CountRows(kOnError, PelkStatement(pelkvalue), &rows);
    if (status == kOk) *count = static_cast<std::uint32_t>(static_cast<std::int16_t>(rows));
    return status;
}
