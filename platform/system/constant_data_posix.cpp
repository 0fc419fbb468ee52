#include <link.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "system/constant_data.h"

namespace {

using Range = std::pair<std::uintptr_t, std::uintptr_t>;

bool Contains(const Range& range, std::uintptr_t address) {
    return address >= range.first && address < range.second;
}

// Takes the loaded parts of the module that holds this function, and ends the search there.
int TakeOwnModule(dl_phdr_info* module, std::size_t, void* result) {
    std::vector<Range> constant;
    bool own = false;
    for (int i = 0; i < module->dlpi_phnum; ++i) {
        const ElfW(Phdr)& part = module->dlpi_phdr[i];
        if (part.p_type != PT_LOAD) continue;
        const std::uintptr_t begin = module->dlpi_addr + part.p_vaddr;
        const Range range{begin, begin + part.p_memsz};
        own = own || Contains(range, reinterpret_cast<std::uintptr_t>(&TakeOwnModule));
        if ((part.p_flags & PF_W) == 0) constant.push_back(range);
    }
    if (own) *static_cast<std::vector<Range>*>(result) = std::move(constant);
    return own ? 1 : 0;
}

std::vector<Range> FindConstantRanges() {
    std::vector<Range> ranges;
    dl_iterate_phdr(TakeOwnModule, &ranges);
    return ranges;
}

}  // namespace

bool IsConstantData(const void* address) {
    static const std::vector<Range> ranges = FindConstantRanges();
    for (const Range& range : ranges)
        if (Contains(range, reinterpret_cast<std::uintptr_t>(address))) return true;
    return false;
}
