#include "groups.h"

#include <fmt/format.h>
#include <kalodata/digits.h>

#include <algorithm>

#include "axis.h"
#include "failure.h"
#include "text.h"

namespace cli {
namespace {

using Parameters = std::vector<KaloUserParameter>;

// Ids above are those of additional groups.
constexpr std::int32_t kLastCategory = 40000;

KaloGroup FindGroup(const std::string& wanted) {
    const auto groups = ReadList<KaloGroup, std::uint16_t>(
        "KaloGetAllGroupNum", [](std::uint16_t* count) { return KaloGetAllGroupNum(kAxis, count); },
        "KaloGetAllGroupInfo",
        [](std::uint16_t count, KaloGroup* records) { return KaloGetAllGroupInfo(kAxis, count, records); });
    const auto id = ParseNumber(wanted, 0, INT32_MAX);
    std::string known;
    for (const KaloGroup& group : groups) {
        const std::string name = FieldText(group.category_name);
        if (id ? group.category_id == *id : SameText(name, Utf8FromSystem(wanted))) return group;
        known += fmt::format("\n  {:>6}  {}", std::int32_t{group.category_id}, name);
    }
    throw Failure(fmt::format("no group of parameters is '{}'; there are:{}", Utf8FromSystem(wanted), known));
}

std::vector<std::int32_t> AddedMembers(std::int32_t group) {
    return ReadList<std::int32_t, std::uint16_t>(
        "KaloGetAddGroupPrmNum",
        [group](std::uint16_t* count) { return KaloGetAddGroupPrmNum(kAxis, group, count); },
        "KaloGetAddGroupPrmList",
        [group](std::uint16_t, std::int32_t* ids) { return KaloGetAddGroupPrmList(kAxis, group, ids); });
}

}  // namespace

Parameters MembersOf(const std::string& group, const Parameters& parameters) {
    const KaloGroup found = FindGroup(group);
    Parameters members;
    if (found.category_id <= kLastCategory) {
        std::ranges::copy_if(parameters, std::back_inserter(members),
                             [&found](const KaloUserParameter& parameter) {
                                 return parameter.category_id == found.category_id;
                             });
        return members;
    }
    // In the group's own order; the axis may lack a member.
    for (const std::int32_t id : AddedMembers(found.category_id)) {
        const auto member = std::ranges::find_if(
            parameters, [id](const KaloUserParameter& parameter) { return parameter.parameter_id == id; });
        if (member != parameters.end()) members.push_back(*member);
    }
    return members;
}

}  // namespace cli
