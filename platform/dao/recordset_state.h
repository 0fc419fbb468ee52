#pragma once

#include <afxdao.h>

#include <cstdint>
#include <string_view>

#include "dao/cursor.h"
#include "dao/errors.h"
#include "dao/field_value.h"

namespace daoengine {

class Session;

// A recordset's position in its rows, by DAO's rules. It stays usable, as a closed one, after its database
// closed.
class RecordsetState {
  public:
    RecordsetState() = default;
    ~RecordsetState() { Close(); }
    RecordsetState(const RecordsetState&) = delete;
    RecordsetState& operator=(const RecordsetState&) = delete;

    // Opens on a SELECT (UTF-8) and stands on its first row.
    void Open(Session& session, std::string_view sql);
    void Close();

    bool IsOpen() const { return session_ != nullptr; }
    bool IsBof() const { return place_ == Place::Before || place_ == Place::Nowhere; }
    bool IsEof() const { return place_ == Place::After || place_ == Place::Nowhere; }

    void MoveFirst();
    void MoveLast();
    void Move(std::int64_t rows);

    std::int64_t RowsVisited() const { return visited_; }

    // The position of a column; throws 3265 when there is none.
    int ColumnOf(const char* name) {
        const int column = cursor_.Names().Find(cursor_.Shape().translation.columns, name);
        if (column == FieldNames::kNone) Throw(3265);
        return column;
    }
    int ColumnOf(int index) const;
    const jetsql::OutputColumn& Column(int index) const {
        return cursor_.Shape().translation.columns[static_cast<std::size_t>(index)];
    }
    int ColumnCount() const;

    // The current row's value; throws 3021 when there is no current row.
    [[gnu::always_inline]] void FieldValue(int column, VARIANT& variant) {
        if (place_ != Place::OnRow) Throw(3021);
        StoreField(cursor_.Field(row_, column), Column(column), variant);
    }

    Cursor& Rows() { return cursor_; }

  private:
    enum class Place { Nowhere, Before, OnRow, After };

    void MoveForward(std::int64_t rows);
    void MoveBack(std::int64_t rows);
    void StandOn(std::int64_t row);

    Session* session_ = nullptr;
    Cursor cursor_;
    Place place_ = Place::Nowhere;
    std::int64_t row_ = 0;
    std::int64_t visited_ = 0;
};

}  // namespace daoengine
