#include "dao/table_state.h"

#include "jetsql/names.h"

namespace daoengine {

TableState& TableRegister::Of(std::string_view table) {
    std::unique_ptr<TableState>& state = states_[jetsql::FoldedName(table)];
    if (!state) {
        state = std::make_unique<TableState>();
        state->name = table;
    }
    return *state;
}

}  // namespace daoengine
