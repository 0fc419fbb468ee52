#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "merge/version_delta.h"
#include "support/library_fixture.h"

// The generic merge against a plain model of it over rows in memory, on random tables.

namespace {

using support::Code;
using support::Leaving;
using Value = std::optional<int>;

constexpr int kNoOption = 65533;

struct Row {
    int servo, option;
    std::vector<Value> values;  // one per column of the list
};

struct DeltaRow : Row {
    int changeType, version;
};

std::string Text(const Value& value) {
    return value ? std::to_string(*value) : "NULL";
}

// Columns a, b, c, d; which of them are keys differs from test to test.
constexpr kalo::MergeColumn kTwoKeys[] = {{kalo::ColumnKind::Data, "a"},
                                          {kalo::ColumnKind::Key, "b"},
                                          {kalo::ColumnKind::Data, "c"},
                                          {kalo::ColumnKind::Key, "d"}};
constexpr kalo::MergeColumn kOneKey[] = {{kalo::ColumnKind::Key, "a"},
                                         {kalo::ColumnKind::Data, "b"},
                                         {kalo::ColumnKind::Data, "c"},
                                         {kalo::ColumnKind::Data, "d"}};
constexpr kalo::MergeColumn kNoKey[] = {{kalo::ColumnKind::Data, "a"},
                                        {kalo::ColumnKind::Data, "b"},
                                        {kalo::ColumnKind::Data, "c"},
                                        {kalo::ColumnKind::Data, "d"}};
constexpr kalo::MergeColumn kKeysOnly[] = {{kalo::ColumnKind::Key, "a"},
                                           {kalo::ColumnKind::Key, "b"},
                                           {kalo::ColumnKind::Key, "c"},
                                           {kalo::ColumnKind::Key, "d"}};

class Model {
  public:
    Model(std::span<const kalo::MergeColumn> columns, const std::vector<Row>& base, int servo)
        : columns_(columns) {
        for (const Row& row : base) {
            if (row.servo == servo && row.option == kNoOption) rows_.push_back(row);
        }
    }

    template <class Applies>
    void Apply(const std::vector<DeltaRow>& deltas, Applies applies, bool modifyOnly = false) {
        for (const DeltaRow& delta : deltas) {
            if (applies(delta) && delta.changeType == 1) Modify(delta);
        }
        if (modifyOnly) return;
        for (const DeltaRow& delta : deltas) {
            if (applies(delta) && delta.changeType == 2) rows_.push_back(delta);
        }
        for (const DeltaRow& delta : deltas) {
            if (applies(delta) && delta.changeType == 3) Delete(delta);
        }
    }

    std::string Dump() const {
        std::string text;
        for (const Row& row : rows_) {
            text += std::to_string(row.servo) + "|" + std::to_string(row.option);
            for (const Value& value : row.values)
                text += "|" + (value ? std::to_string(*value) : "-");
            text += "\n";
        }
        return text;
    }

  private:
    bool IsKey(std::size_t column) const { return columns_[column].kind == kalo::ColumnKind::Key; }

    void Modify(const Row& delta) {
        for (Row& row : rows_) {
            bool same = row.servo == delta.servo;
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                if (IsKey(i))
                    same = same && row.values[i] && delta.values[i] && row.values[i] == delta.values[i];
            }
            for (std::size_t i = 0; same && i < columns_.size(); ++i) {
                if (!IsKey(i)) row.values[i] = delta.values[i];
            }
        }
    }

    void Delete(const Row& delta) {
        std::size_t key = 0;
        while (key < columns_.size() && !IsKey(key))
            ++key;
        std::erase_if(rows_, [&](const Row& row) {
            if (key == columns_.size()) return row.servo == delta.servo;
            return row.values[key] && row.values[key] == delta.values[key];
        });
    }

    std::span<const kalo::MergeColumn> columns_;
    std::vector<Row> rows_;
};

class GenericMergeTest : public support::LibraryTest {
  protected:
    int Pick(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }
    template <class T>
    T PickOf(std::initializer_list<T> values) {
        return *(values.begin() + Pick(0, static_cast<int>(values.size()) - 1));
    }

    Row RandomRow() {
        Row row = {PickOf({17, 18}), PickOf({kNoOption, kNoOption, 3, 5}), {}};
        for (int i = 0; i < 4; ++i)
            row.values.push_back(Pick(0, 15) == 0 ? Value() : Value(Pick(0, 3)));
        return row;
    }

    void Insert(const char* table, const Row& row, const std::string& more = {}) {
        std::string values = std::to_string(row.servo) + "," + std::to_string(row.option);
        for (const Value& value : row.values)
            values += "," + Text(value);
        Execute({std::string("INSERT INTO [") + table + "] VALUES (" + values + more + ")"});
    }

    std::vector<DeltaRow> FillDeltas(const char* table) {
        std::vector<DeltaRow> deltas;
        for (int i = Pick(0, 25); i > 0; --i) {
            const DeltaRow delta = {RandomRow(), Pick(1, 3), Pick(0, 4)};
            Insert(table, delta,
                   "," + std::to_string(delta.changeType) + "," + std::to_string(delta.version));
            deltas.push_back(delta);
        }
        return deltas;
    }

    // Fills the three tables at random and compares one build with the model.
    void CompareOnce(std::span<const kalo::MergeColumn> columns) {
        UseDatabase({
            "CREATE TABLE [base] ([servo_id] LONG, [option_id] LONG, [a] LONG, [b] LONG, [c] LONG, [d] LONG)",
            "CREATE TABLE [firm] ([servo_id] LONG, [option_id] LONG, [a] LONG, [b] LONG, [c] LONG, [d] LONG, "
            "[change_type] BYTE, [firm_id] LONG)",
            "CREATE TABLE [cmod] ([servo_id] LONG, [option_id] LONG, [a] LONG, [b] LONG, [c] LONG, [d] LONG, "
            "[change_type] BYTE, [cmod_id] LONG)",
        });
        std::vector<Row> base;
        for (int i = Pick(1, 20); i > 0; --i)
            Insert("base", base.emplace_back(RandomRow()));
        const std::vector<DeltaRow> firm = FillDeltas("firm");
        const std::vector<DeltaRow> cmod = FillDeltas("cmod");
        const kalo::DeltaIdentity is = {17,
                                        Pick(0, 4),
                                        PickOf({0, 1, 2, 65535}),
                                        PickOf({kNoOption, 3}),
                                        Pick(0, 4),
                                        PickOf({0, 1, 2, 65535})};
        ASSERT_EQ(kalo::CopyBaseRows("work", "base", 17, kNoOption, 0x100), 0u);
        ASSERT_EQ(kalo::ApplyDeltas("work", {"firm", "cmod", columns}, is, 0x100), 0u);

        Model model(columns, base, 17);
        const auto upTo = [](int option, int version) {
            return [=](const DeltaRow& d) {
                return d.servo == 17 && d.option == option && d.version <= version;
            };
        };
        const auto of = [](int option, int custom) {
            return
                [=](const DeltaRow& d) { return d.servo == 17 && d.option == option && d.version == custom; };
        };
        const auto isCustom = [](int custom) { return custom != 0 && custom != 65535; };
        if (is.servoFirmware != 0) model.Apply(firm, upTo(kNoOption, is.servoFirmware));
        if (isCustom(is.servoCustomSpec)) model.Apply(cmod, of(kNoOption, is.servoCustomSpec));
        if (is.optionId != kNoOption && is.optionFirmware != 0) {
            model.Apply(firm, upTo(is.optionId, 0), true);
            model.Apply(firm, upTo(is.optionId, is.optionFirmware));
        }
        if (is.optionId != kNoOption && isCustom(is.optionCustomSpec)) {
            model.Apply(cmod, of(is.optionId, is.optionCustomSpec));
        }
        EXPECT_EQ(Dump("SELECT * FROM [work]"), model.Dump());
    }

    std::mt19937 random_{20240517};
};

TEST_F(GenericMergeTest, GivesWhatThePlainModelGives) {
    for (int round = 0; round < 8; ++round) {
        for (const std::span<const kalo::MergeColumn> columns :
             {std::span<const kalo::MergeColumn>(kTwoKeys), {kOneKey}, {kNoKey}, {kKeysOnly}}) {
            CompareOnce(columns);
            ASSERT_FALSE(HasFailure())
                << "round " << round << ", first kind " << static_cast<int>(columns[0].kind);
        }
    }
}

TEST_F(GenericMergeTest, EveryFailureHasItsOffsetAndLeavesTheLock) {
    UseDatabase({
        "CREATE TABLE [base] ([servo_id] LONG, [option_id] LONG, [func_id] LONG, [a] LONG, [b] LONG, [c] "
        "LONG, [d] "
        "LONG)",
        "INSERT INTO [base] VALUES (17,65533,7,1,1,1,1)",
        "INSERT INTO [base] VALUES (17,65533,8,1,1,1,1)",
        "CREATE TABLE [firm] ([servo_id] LONG, [option_id] LONG, [a] LONG, [b] LONG, [c] LONG, [d] LONG, "
        "[change_type] BYTE, [firm_id] LONG)",
        "CREATE TABLE [cmod] ([servo_id] LONG, [option_id] LONG, [a] LONG, [b] LONG, [c] LONG, [d] LONG, "
        "[change_type] BYTE, [cmod_id] LONG)",
    });
    const auto build = []() -> KaloStatus {
        const KaloStatus status =
            kalo::CopyBaseRows("work", "base", 17, kNoOption, kalo::BaseFilter{"func_id", 7}, 0x100);
        if (status != 0) return status;
        return kalo::ApplyDeltas("work", {"firm", "cmod", kOneKey}, {17, 1, 1, kNoOption, 0, 0}, 0x100);
    };
    ExpectFaults(
        {.call = build,
         .regions = {Leaving(Code(0x100)), Leaving(Code(0x101)), Leaving(Code(0x102)), Leaving(Code(0x103)),
                     Leaving(Code(0x104)), Leaving(Code(0x105)), Leaving(Code(0x106))},
         .prepare = [] { kalo::DropLeftover("work"); }});
    EXPECT_EQ(Dump("SELECT [func_id] FROM [work]"), "7\n");
}

}  // namespace
