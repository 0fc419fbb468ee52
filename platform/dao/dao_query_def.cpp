#include <afxdao.h>

#include "dao/database_state.h"
#include "dao/exceptions.h"
#include "dao/query_state.h"
#include "dao/seam.h"
#include "mfc/narrow.h"

using daoengine::Guard;
namespace seam = daoengine::seam;

namespace {

constexpr int kNotSet = 3420;

}  // namespace

CDaoQueryDef::CDaoQueryDef(CDaoDatabase* database)
    : database_(database), state_(std::make_unique<daoengine::QueryState>()) {}

CDaoQueryDef::~CDaoQueryDef() = default;

void CDaoQueryDef::Create(LPCTSTR, LPCTSTR sql) {
    if (IsOpen()) return;
    Guard([&] {
        seam::Pass(seam::Call::CreateQuery);
        if (database_ == nullptr) daoengine::Throw(kNotSet);
        state_->Create(database_->State().Session(kNotSet), Utf8FromNarrow(sql == nullptr ? "" : sql));
    });
}

void CDaoQueryDef::Execute(int) {
    Guard([&] {
        seam::Pass(seam::Call::Execute);
        if (!state_->IsOpen()) daoengine::Throw(kNotSet);
        state_->Execute();
    });
}

void CDaoQueryDef::Close() {
    state_->Close();
}

BOOL CDaoQueryDef::IsOpen() const {
    return state_->IsOpen() ? TRUE : FALSE;
}

long CDaoQueryDef::GetRecordsAffected() {
    return static_cast<long>(state_->RowsAffected());
}
