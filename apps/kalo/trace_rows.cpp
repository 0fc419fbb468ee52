#include "trace_rows.h"

#include <fmt/format.h>
#include <kalodata/traces.h>

#include <algorithm>
#include <iterator>

#include "axis.h"
#include "failure.h"
#include "text.h"

namespace cli {
namespace {

using Map = std::vector<KaloTraceMap>;

constexpr std::uint16_t kListed = 1;
constexpr std::uint16_t kNotListed = 0;
// No id: what a getter by position leaves past the end.
constexpr std::uint32_t kNoId = UINT32_MAX;

constexpr Field<KaloAnalogTrace> kAnalogFields[] = {
    {"target_id", Shown::Always, [](const KaloAnalogTrace& t) { return Cell(t.target_name_id); }},
    {"analog_id", Shown::Hex, [](const KaloAnalogTrace& t) { return Cell(t.analog_id); }},
    {"name", Shown::Always, [](const KaloAnalogTrace& t) { return Cell(FieldText(t.target_name)); }},
    {"unit", Shown::Always, [](const KaloAnalogTrace& t) { return Cell(FieldText(t.unit)); }},
    {"unit_name", Shown::Detail, [](const KaloAnalogTrace& t) { return Cell(FieldText(t.unit_name)); }},
    {"listed", Shown::Always, [](const KaloAnalogTrace& t) { return Cell(t.display_flag == kListed); }},
    {"default", Shown::Always, [](const KaloAnalogTrace& t) { return Cell(t.default_flag); }},
    {"unit_multiplier", Shown::Detail, [](const KaloAnalogTrace& t) { return Cell(t.unit_multiplier); }},
    {"conversion_type", Shown::Detail, [](const KaloAnalogTrace& t) { return Cell(t.conversion_type); }},
    {"limit", Shown::Detail, [](const KaloAnalogTrace& t) { return Cell(t.limit); }},
    {"max_level", Shown::Detail, [](const KaloAnalogTrace& t) { return Cell(t.max_level); }},
    {"min_level", Shown::Detail, [](const KaloAnalogTrace& t) { return Cell(t.min_level); }},
};

constexpr Field<KaloIoTrace> kIoFields[] = {
    {"io_id", Shown::Always, [](const KaloIoTrace& t) { return Cell(t.io_id); }},
    {"name", Shown::Always, [](const KaloIoTrace& t) { return Cell(FieldText(t.io_name)); }},
    {"value", Shown::Hex, [](const KaloIoTrace& t) { return Cell(t.value); }},
    {"reverse", Shown::Always, [](const KaloIoTrace& t) { return Cell(t.reverse != 0); }},
    {"default", Shown::Always, [](const KaloIoTrace& t) { return Cell(t.default_flag); }},
};

// A bitmap in which everything that the map names is supported.
std::vector<std::uint16_t> FullBitmap(const Map& map) {
    std::size_t words = 0;
    for (const KaloTraceMap& entry : map)
        if (entry.index < UINT16_MAX) words = std::max<std::size_t>(words, entry.index + 1);
    return std::vector<std::uint16_t>(words, UINT16_MAX);
}

// Puts where each row's support bit stands behind its other columns; the id is a row's first cell.
void AddMap(const Map& map, Table& table) {
    table.columns.push_back({"support_word"});
    table.columns.push_back({"support_bit"});
    for (std::vector<Cell>& row : table.rows) {
        const auto found = std::ranges::find_if(
            map, [&row](const KaloTraceMap& entry) { return row[0].Get() == Cell(entry.id).Get(); });
        row.push_back(found == map.end() ? Cell() : Cell(found->index));
        row.push_back(found == map.end() ? Cell() : Cell(found->bitindex));
    }
}

Map AnalogMap(std::uint32_t kind) {
    return ReadList<KaloTraceMap, std::uint16_t>(
        "KaloGetAnalogtraceMapNum",
        [kind](std::uint16_t* count) { return KaloGetAnalogtraceMapNum(kAxis, kind, count); },
        "KaloGetAnalogtraceMap",
        [kind](std::uint16_t, KaloTraceMap* map) { return KaloGetAnalogtraceMap(kAxis, kind, map); });
}

Map IoMap(std::uint32_t kind) {
    return ReadList<KaloTraceMap, std::uint16_t>(
        "KaloGetIOtraceMapNum",
        [kind](std::uint16_t* count) { return KaloGetIOtraceMapNum(kAxis, kind, count); },
        "KaloGetIOtraceMap",
        [kind](std::uint16_t, KaloTraceMap* map) { return KaloGetIOtraceMap(kAxis, kind, map); });
}

KaloAnalogTrace ReadAnalog(std::uint32_t id) {
    KaloAnalogTrace record{};
    Check("KaloGetAnalogtraceInfo", KaloGetAnalogtraceInfo(kAxis, static_cast<std::int32_t>(id), &record));
    return record;
}

KaloIoTrace ReadIo(std::uint32_t id) {
    KaloIoTrace record{};
    Check("KaloGetIotraceInfo", KaloGetIotraceInfo(kAxis, static_cast<std::int32_t>(id), &record));
    return record;
}

bool Supported(const KaloTraceMap& entry, const std::vector<std::uint16_t>& bitmap) {
    if (entry.index >= bitmap.size() || entry.bitindex >= 16) return false;
    return ((bitmap[entry.index] >> entry.bitindex) & 1) != 0;
}

std::uint32_t AnalogIdAt(std::uint32_t kind, std::uint16_t position, std::uint16_t listed) {
    std::uint32_t id = kNoId;
    Check("KaloGetAnalogtraceInfoId", KaloGetAnalogtraceInfoId(kAxis, kind, position, listed, &id));
    return id;
}

void RefusePastEnd(std::uint32_t id, std::uint32_t kind, std::uint16_t position) {
    if (id == kNoId) throw Failure(fmt::format("trace kind {} has nothing at position {}", kind, position));
}

// Supported targets that the drive's list does not show, in display order.
std::vector<std::uint32_t> UnlistedIds(std::uint32_t kind, std::uint16_t most, const Map& map,
                                       const std::vector<std::uint16_t>& bitmap) {
    std::vector<std::uint32_t> ids;
    for (std::uint16_t position = 0; position < map.size() && ids.size() < most; ++position) {
        const std::uint32_t id = AnalogIdAt(kind, position, kNotListed);
        if (id == kNoId) break;
        const auto entry =
            std::ranges::find_if(map, [id](const KaloTraceMap& candidate) { return candidate.id == id; });
        if (entry != map.end() && Supported(*entry, bitmap)) ids.push_back(id);
    }
    return ids;
}

std::vector<std::uint32_t> AnalogIds(std::uint32_t kind, const Map& map,
                                     const std::vector<std::uint16_t>& bitmap) {
    const auto words = static_cast<std::uint16_t>(bitmap.size());
    std::uint16_t counts[2] = {};
    Check("KaloGetAnalogtraceNum", KaloGetAnalogtraceNum(kAxis, kind, words, bitmap.data(), counts));
    std::vector<std::uint32_t> ids(counts[0]);
    if (!ids.empty())
        Check("KaloGetAnalogtraceIDList",
              KaloGetAnalogtraceIDList(kAxis, kind, words, bitmap.data(), ids.data()));
    const std::vector<std::uint32_t> unlisted = UnlistedIds(kind, counts[1], map, bitmap);
    ids.insert(ids.end(), unlisted.begin(), unlisted.end());
    return ids;
}

Table NoTargetTable(const KaloNoAnalogTrace& analog, const KaloNoIoTrace& io) {
    return {{{"trace"}, {"id"}, {"number", Shown::Hex}},
            {{"analog", analog.target_name_id, analog.analog_id}, {"io", io.io_id, io.value}}};
}

}  // namespace

Table AnalogTraces(const TraceQuestion& question) {
    const Map map = AnalogMap(question.kind);
    const auto bitmap = question.support.empty() ? FullBitmap(map) : question.support;
    const std::vector<std::uint32_t> ids = AnalogIds(question.kind, map, bitmap);
    std::vector<KaloAnalogTrace> records;
    std::ranges::transform(ids, std::back_inserter(records), ReadAnalog);
    Table table = TableOf(kAnalogFields, records);
    AddMap(map, table);
    return table;
}

Table IoTraces(const TraceQuestion& question) {
    const Map map = IoMap(question.kind);
    const auto bitmap = question.support.empty() ? FullBitmap(map) : question.support;
    const auto words = static_cast<std::uint16_t>(bitmap.size());
    const auto ids = ReadList<std::uint32_t, std::uint16_t>(
        "KaloGetIotraceNum",
        [&](std::uint16_t* count) {
            return KaloGetIotraceNum(kAxis, question.kind, words, bitmap.data(), count);
        },
        "KaloGetIotraceIDList",
        [&](std::uint16_t, std::uint32_t* list) {
            return KaloGetIotraceIDList(kAxis, question.kind, words, bitmap.data(), list);
        });
    std::vector<KaloIoTrace> records;
    std::ranges::transform(ids, std::back_inserter(records), ReadIo);
    Table table = TableOf(kIoFields, records);
    AddMap(map, table);
    return table;
}

Table AnalogTraceAt(std::uint32_t kind, std::uint16_t position) {
    const std::uint32_t id = AnalogIdAt(kind, position, kListed);
    RefusePastEnd(id, kind, position);
    return TableOf(kAnalogFields, std::vector{ReadAnalog(id)});
}

Table IoTraceAt(std::uint32_t kind, std::uint16_t position) {
    std::uint32_t id = kNoId;
    Check("KaloGetIotraceInfoId", KaloGetIotraceInfoId(kAxis, kind, position, &id));
    RefusePastEnd(id, kind, position);
    return TableOf(kIoFields, std::vector{ReadIo(id)});
}

Table OfflineAnalogTrace(std::int32_t id) {
    KaloAnalogTrace record{};
    Check("KaloGetAnalogtraceOfflineInfo", KaloGetAnalogtraceOfflineInfo(0, id, &record));
    return TableOf(kAnalogFields, std::vector{record});
}

Table OfflineIoTrace(std::uint32_t servo, std::int32_t id) {
    KaloIoTrace record{};
    Check("KaloGetIotraceOfflineInfo", KaloGetIotraceOfflineInfo(servo, id, &record, 0, 0));
    return TableOf(kIoFields, std::vector{record});
}

Table NoTarget() {
    KaloNoAnalogTrace analog{};
    KaloNoIoTrace io{};
    Check("KaloGetTraceNoSettingValue", KaloGetTraceNoSettingValue(kAxis, 1, &analog, &io));
    return NoTargetTable(analog, io);
}

Table OfflineNoTarget() {
    KaloNoAnalogTrace analog{};
    KaloNoIoTrace io{};
    Check("KaloGetTraceOfflineNoSettingValue", KaloGetTraceOfflineNoSettingValue(0, 1, &analog, &io));
    return NoTargetTable(analog, io);
}

}  // namespace cli
