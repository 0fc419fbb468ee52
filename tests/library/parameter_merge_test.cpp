#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/library_fixture.h"
#include "support/parameter_database.h"

// The merge of user parameters against a plain model of it over rows in memory, on random tables.

namespace {

constexpr int kModel = 17;
constexpr int kOption = 5;
constexpr int kNone = KALO_NO_OPTION;

struct Row {
    int id, constant, controlType, max, unit;

    auto operator<=>(const Row&) const = default;
};

struct Delta {
    Row row;
    int model, option, changeType, version, modelType;
};

struct Identity {
    int firmware, custom, option, optionFirmware, optionCustom;
};

bool IsCustom(int custom) {
    return custom != 0 && custom != 65535;
}

class Model {
  public:
    Model(std::vector<Row> base, const std::vector<Delta>& firm, const std::vector<Delta>& cmod)
        : rows_(std::move(base)), firm_(firm), cmod_(cmod) {}

    std::vector<Row> Build(const Identity& is) {
        Firmware(kNone, is.firmware, is, true);
        if (IsCustom(is.custom)) CustomSpec(is.custom, is.option, 1);
        if (is.option != kNone) {
            Modify(Rows(firm_, [&](const Delta& d) { return d.option == is.option && d.version == 0; }));
            Firmware(is.option, is.optionFirmware, is, false);
            if (IsCustom(is.optionCustom)) CustomSpec(is.optionCustom, is.option, 2);
        }
        std::sort(rows_.begin(), rows_.end());
        return rows_;
    }

  private:
    template <class Applies>
    static std::vector<Delta> Rows(const std::vector<Delta>& deltas, Applies applies) {
        std::vector<Delta> rows;
        for (const Delta& delta : deltas) {
            if (delta.model == kModel && applies(delta)) rows.push_back(delta);
        }
        return rows;
    }

    void Firmware(int option, int version, const Identity& is, bool customSpecsInsert) {
        int bound = 0;
        for (const Delta& delta : firm_) {
            if (delta.model == kModel && delta.option == option) bound = std::max(bound, delta.version);
        }
        bound = std::min(bound, version);
        if (bound == 0) return;
        const auto rows =
            Rows(firm_, [&](const Delta& d) { return d.option == option && d.version <= bound; });
        Modify(rows);
        for (const Delta& delta : rows) {
            if (delta.changeType != 2 || (customSpecsInsert && InsertedByCustomSpec(delta.row.id, is)))
                continue;
            rows_.push_back(delta.row);
        }
        Delete(rows);
    }

    bool InsertedByCustomSpec(int id, const Identity& is) const {
        return std::any_of(cmod_.begin(), cmod_.end(), [&](const Delta& d) {
            if (d.row.id != id || d.changeType != 2 || d.model != kModel) return false;
            return (d.option == kNone && d.version == is.custom) ||
                   (is.option != kNone && d.option == is.option && d.version == is.optionCustom);
        });
    }

    void CustomSpec(int custom, int option, int modelType) {
        const auto rows = Rows(cmod_, [&](const Delta& d) {
            return d.option == option && d.version == custom && d.modelType == modelType;
        });
        Modify(rows);
        for (const Delta& delta : rows) {
            if (delta.changeType == 2) rows_.push_back(delta.row);
        }
        Delete(rows);
    }

    void Modify(const std::vector<Delta>& deltas) {
        for (const Delta& delta : deltas) {
            for (Row& row : rows_) {
                const bool same = row.id == delta.row.id && row.controlType == delta.row.controlType;
                if (delta.changeType == 1 && same) row = delta.row;
            }
        }
    }

    void Delete(const std::vector<Delta>& deltas) {
        for (const Delta& delta : deltas) {
            if (delta.changeType != 3) continue;
            std::erase_if(rows_, [&](const Row& row) { return row.constant == delta.row.constant; });
        }
    }

    std::vector<Row> rows_;
    const std::vector<Delta>& firm_;
    const std::vector<Delta>& cmod_;
};

class ParameterMergeTest : public support::LibraryTest {
  protected:
    int Pick(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }
    template <class T>
    T PickOf(std::initializer_list<T> values) {
        return *(values.begin() + Pick(0, static_cast<int>(values.size()) - 1));
    }

    Row RandomRow() { return {Pick(1, 4), Pick(1, 9), PickOf({1, 3}), Pick(0, 99), Pick(1, 2)}; }

    void Insert(const std::string& table, const std::string& idColumn, const Row& row,
                const std::string& columns = {}, const std::string& values = {}) {
        Execute({"INSERT INTO [" + table + "] ([" + idColumn +
                 "],[category_name_id],[parameter_name_id],[user_constant],[sv_control_type],[max],[unit_str_"
                 "id]" +
                 columns + ") VALUES (" + std::to_string(row.id) + ",1,1,'C" + std::to_string(row.constant) +
                 "'," + std::to_string(row.controlType) + "," + std::to_string(row.max) + "," +
                 std::to_string(row.unit) + values + ")"});
    }

    std::vector<Delta> FillDeltas(bool firmware) {
        std::vector<Delta> deltas;
        for (int i = Pick(0, 30); i > 0; --i) {
            const Delta d = {RandomRow(),
                             PickOf({17, 17, 17, 18}),
                             PickOf({kNone, kNone, kOption, kOption, 3}),
                             Pick(1, 3),
                             Pick(0, 4),
                             Pick(1, 2)};
            const std::string ids = "," + std::to_string(d.model) + "," + std::to_string(d.option) + "," +
                                    std::to_string(d.changeType) + "," + std::to_string(d.version);
            if (firmware) {
                Insert("FirmUPara", "FirmUPara_id", d.row, ",[model_id],[option_id],[change_type],[firm_id]",
                       ids);
            } else {
                Insert("CmodUPara", "cmodUPara_id", d.row,
                       ",[model_id],[option_id],[change_type],[cmod_id],[model_type]",
                       ids + "," + std::to_string(d.modelType));
            }
            deltas.push_back(d);
        }
        return deltas;
    }

    std::vector<Row> FillBase(const std::string& table) {
        std::vector<Row> rows = {{0, 0, 1, 0, 1}};  // no delta reaches this one
        for (int i = Pick(0, 10); i > 0; --i)
            rows.push_back(RandomRow());
        for (const Row& row : rows)
            Insert(table, "Parameter_id", row);
        return rows;
    }

    std::vector<Row> ReadAxis() {
        std::uint16_t count = 0;
        EXPECT_EQ(KaloGetUParaNum(1, &count), 0u);
        std::vector<KaloUserParameter> records(count);
        EXPECT_EQ(KaloGetAllUParaInfo(1, static_cast<std::int16_t>(count), records.data()), 0u);
        std::vector<Row> rows;
        for (const KaloUserParameter& record : records) {
            rows.push_back({record.parameter_id, std::stoi(record.user_constant + 1), record.sv_control_type,
                            record.max, std::string(record.unit) == "turns" ? 1 : 2});
        }
        EXPECT_TRUE(
            std::is_sorted(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.id < b.id; }));
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    std::mt19937 random_{20240517};
};

TEST_F(ParameterMergeTest, GivesWhatThePlainModelGives) {
    UseDatabase(support::ParameterDatabase());
    for (int round = 0; round < 30; ++round) {
        const bool withOption = Pick(0, 1) == 1;
        const std::vector<Row> base = FillBase(withOption ? "M17_FB_Upara" : "M17_Upara");
        const std::vector<Delta> firm = FillDeltas(true);
        const std::vector<Delta> cmod = FillDeltas(false);
        const Identity is = {Pick(0, 4), PickOf({0, 1, 2, 65535}), withOption ? kOption : kNone, Pick(0, 4),
                             PickOf({0, 1, 2, 65535})};
        ASSERT_EQ(KaloUparaCreate(0, kModel, is.firmware, is.custom, 0, is.option, is.optionFirmware,
                                  is.optionCustom, 1),
                  0u);
        EXPECT_EQ(ReadAxis(), Model(base, firm, cmod).Build(is)) << "round " << round;
        ASSERT_EQ(KaloDeleteAxisTable(1), 0u);
        for (const char* table : {"M17_Upara", "M17_FB_Upara", "FirmUPara", "CmodUPara"}) {
            Execute({std::string("DELETE * FROM [") + table + "]"});
        }
        ASSERT_FALSE(HasFailure());
    }
}

}  // namespace
