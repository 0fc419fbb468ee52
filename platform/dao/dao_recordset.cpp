#include <afxdao.h>

#include <climits>
#include <string>

#include "dao/database_state.h"
#include "dao/exceptions.h"
#include "dao/recordset_state.h"
#include "dao/seam.h"
#include "jetsql/names.h"
#include "mfc/narrow.h"

using daoengine::Guard;
using daoengine::RecordsetState;
using daoengine::Throw;
namespace seam = daoengine::seam;

namespace {

constexpr int kNoSuchFile = 3024;
constexpr int kSelectSyntax = 3141;
constexpr int kNotSet = 3420;

// Text that begins otherwise is a list of tables, of which a recordset without bound fields selects nothing.
bool IsStatement(std::string_view sql) {
    for (const std::string_view verb : {"SELECT ", "PARAMETERS ", "TRANSFORM ", "TABLE "})
        if (jetsql::SameName(sql.substr(0, verb.size()), verb)) return true;
    return false;
}

RecordsetState& OpenState(RecordsetState& state) {
    if (!state.IsOpen()) Throw(kNotSet);
    return state;
}

}  // namespace

CDaoRecordset::CDaoRecordset(CDaoDatabase* database)
    : database_(database), state_(std::make_unique<RecordsetState>()) {}

CDaoRecordset::~CDaoRecordset() = default;

void CDaoRecordset::Open(int, LPCTSTR sql, int) {
    if (IsOpen()) return;
    Guard([&] {
        seam::Pass(seam::Call::OpenRecordset);
        if (database_ == nullptr) Throw(kNoSuchFile);
        daoengine::Session& session = database_->State().Session(kNoSuchFile);
        const std::string_view text = sql == nullptr ? "" : sql;
        if (!IsStatement(text)) Throw(kSelectSyntax);
        std::string storage;
        state_->Open(session, Utf8FromNarrow(text, storage));
    });
}

void CDaoRecordset::Close() {
    state_->Close();
}

BOOL CDaoRecordset::IsOpen() const {
    return state_->IsOpen() ? TRUE : FALSE;
}

BOOL CDaoRecordset::IsBOF() const {
    return Guard([&] { return OpenState(*state_).IsBof() ? TRUE : FALSE; });
}

BOOL CDaoRecordset::IsEOF() const {
    return Guard([&] { return OpenState(*state_).IsEof() ? TRUE : FALSE; });
}

void CDaoRecordset::MoveFirst() {
    Move(LONG_MIN);
}

void CDaoRecordset::MoveLast() {
    Move(LONG_MAX);
}

void CDaoRecordset::MoveNext() {
    Move(AFX_MOVE_NEXT);
}

void CDaoRecordset::MovePrev() {
    Move(AFX_MOVE_PREVIOUS);
}

void CDaoRecordset::Move(long rows) {
    Guard([&] {
        seam::Pass(seam::Call::Move);
        RecordsetState& state = OpenState(*state_);
        if (rows == LONG_MIN)
            state.MoveFirst();
        else if (rows == LONG_MAX)
            state.MoveLast();
        else
            state.Move(rows);
    });
}

long CDaoRecordset::GetRecordCount() {
    return Guard([&] {
        seam::Pass(seam::Call::CountRecords);
        return static_cast<long>(OpenState(*state_).RowsVisited());
    });
}

void CDaoRecordset::GetFieldValue(LPCTSTR name, COleVariant& value) {
    value.Clear();
    Guard([&] {
        seam::Pass(seam::Call::ReadField);
        RecordsetState& state = OpenState(*state_);
        state.FieldValue(state.ColumnOf(name), value);
    });
}

void CDaoRecordset::GetFieldValue(int index, COleVariant& value) {
    value.Clear();
    Guard([&] {
        seam::Pass(seam::Call::ReadField);
        RecordsetState& state = OpenState(*state_);
        state.FieldValue(state.ColumnOf(index), value);
    });
}

short CDaoRecordset::GetFieldCount() {
    return Guard([&] { return static_cast<short>(OpenState(*state_).ColumnCount()); });
}

CString CDaoRecordset::GetFieldName(int index) {
    return Guard([&] {
        const RecordsetState& state = OpenState(*state_);
        return CString(NarrowFromUtf8(state.Column(state.ColumnOf(index)).name).c_str());
    });
}
