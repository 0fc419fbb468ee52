#include <afxdao.h>

#include "dao/database_file.h"
#include "dao/database_state.h"
#include "dao/exceptions.h"
#include "dao/execute.h"
#include "dao/seam.h"
#include "dao/table_definition.h"
#include "mfc/narrow.h"

using daoengine::Guard;
namespace seam = daoengine::seam;

namespace {

constexpr int kNoSuchItem = 3265;
constexpr int kNotSet = 3420;

std::string TextOf(LPCTSTR text) {
    return text == nullptr ? std::string() : std::string(text);
}

}  // namespace

CDaoDatabase::CDaoDatabase(CDaoWorkspace*) : state_(std::make_unique<daoengine::DatabaseState>()) {}

CDaoDatabase::~CDaoDatabase() {
    state_->Close();
}

void CDaoDatabase::Open(LPCTSTR name, BOOL exclusive, BOOL readOnly, LPCTSTR connect) {
    if (IsOpen()) return;
    Guard([&] {
        seam::Pass(seam::Call::OpenDatabase);
        state_->Open(daoengine::DatabaseFile::Open(TextOf(name), exclusive != FALSE, readOnly != FALSE,
                                                   TextOf(connect)));
    });
}

void CDaoDatabase::Close() {
    state_->Close();
}

BOOL CDaoDatabase::IsOpen() const {
    return state_->IsOpen() ? TRUE : FALSE;
}

short CDaoDatabase::GetTableDefCount() {
    return Guard([&] {
        daoengine::Session& session = state_->Session(kNotSet);
        seam::Pass(seam::Call::CountTables);
        return static_cast<short>(session.CountTables());
    });
}

void CDaoDatabase::GetTableDefInfo(int index, CDaoTableDefInfo& info) {
    Guard([&] {
        const auto names = daoengine::UserTableNames(state_->Session(kNotSet).OwnEngine());
        if (index < 0 || static_cast<std::size_t>(index) >= names.size()) daoengine::Throw(kNoSuchItem);
        info.m_strName = NarrowFromUtf8(names[static_cast<std::size_t>(index)]).c_str();
    });
}

void CDaoDatabase::Execute(LPCTSTR sql, int) {
    Guard([&] {
        daoengine::Session& session = state_->Session(kNotSet);
        seam::Pass(seam::Call::Execute);
        const std::string text = Utf8FromNarrow(TextOf(sql));
        state_->rowsAffected = daoengine::ExecuteAction(session, session.Read(text));
    });
}

long CDaoDatabase::GetRecordsAffected() {
    return static_cast<long>(state_->rowsAffected);
}
