#include "trace/trace_rows.h"

namespace kalo {

bool IsOfTraceKind(Rows& rows, std::uint32_t kind) {
    if (kind < 1 || kind > 32) return false;
    return (static_cast<std::uint32_t>(rows.Value("target")) & (1u << (kind - 1))) != 0;
}

bool SupportBitmap::Supports(Rows& rows) const {
    const auto index = static_cast<std::uint32_t>(rows.Value("index"));
    const auto bit = static_cast<std::uint32_t>(rows.Value("bitindex"));
    return index < wordCount && bit < 16 && ((words[index] >> bit) & 1u) != 0;
}

}  // namespace kalo
