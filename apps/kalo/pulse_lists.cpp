#include "pulse_lists.h"

#include <kalodata/help.h>

#include "axis.h"
#include "text.h"

namespace cli {
namespace {

template <class Record, class CountGetter, class ListGetter>
std::vector<Record> Read(std::uint16_t language, const char* countName, CountGetter countGetter,
                         const char* listName, ListGetter listGetter) {
    return ReadList<Record, std::uint16_t>(
        countName, [=](std::uint16_t* count) { return countGetter(language, count); }, listName,
        [=](std::uint16_t, Record* records) { return listGetter(language, records); });
}

}  // namespace

Table PulseTable(std::uint16_t language) {
    Table table{{{"choice"}, {"id"}, {"text"}}, {}};
    for (const auto& choice :
         Read<KaloRefPulseString>(language, "KaloGetRefPulseStringNum", KaloGetRefPulseStringNum,
                                  "KaloGetRefPulseString", KaloGetRefPulseString))
        table.rows.push_back({"form", choice.pulse_id, FieldText(choice.pulse_string)});
    for (const auto& choice :
         Read<KaloRefLogicString>(language, "KaloGetRefLogicStringNum", KaloGetRefLogicStringNum,
                                  "KaloGetRefLogicString", KaloGetRefLogicString))
        table.rows.push_back({"logic", choice.logic_id, FieldText(choice.logic_string)});
    for (const auto& choice :
         Read<KaloRefMultiString>(language, "KaloGetRefMultiStringNum", KaloGetRefMultiStringNum,
                                  "KaloGetRefMultiString", KaloGetRefMultiString))
        table.rows.push_back({"multiplication", choice.multi_id, FieldText(choice.multi_string)});
    return table;
}

}  // namespace cli
