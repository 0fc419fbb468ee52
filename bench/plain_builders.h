#pragma once

#include <string>
#include <vector>

#include "plain_database.h"

namespace bench {

// What is fitted on an axis, as the builders are told.
struct Drive {
    int country;
    int servo;
    int firmware;
    int customSpec;
    int powerRating;
    int option;
    int optionFirmware;
    int optionCustomSpec;

    static constexpr int kNoOption = 65533;
    bool HasOption() const { return option != kNoOption; }
};

// The builders' statements in SQLite's own SQL, each committed by itself as the library's are, with the last
// stored match winning.
class PlainBuilders {
  public:
    explicit PlainBuilders(const PlainDatabase& database) : database_(database) {}

    void UserParameters(const Drive& drive, int axis) const;
    void Monitors(const Drive& drive, int axis) const;
    void Alarms(const Drive& drive, int axis) const;
    void AnalogTrace(const Drive& drive, int axis, int specVersion) const;
    void IoTrace(const Drive& drive, int axis, int specVersion, int controlType) const;

    // Drops the tables of an axis and deletes its row.
    void DeleteAxis(int axis) const;

  private:
    // How rows of a working table and of a delta table belong together, and what is copied between them.
    struct Family;
    struct Names {
        Drive drive;  // with the variant of the model
        std::string withPower;
        std::string withoutPower;
        std::string model;
    };

    Names Identify(Drive drive) const;
    bool IsRegistered(const std::string& column, const std::string& table) const;
    void Register(int axis, const std::vector<std::string>& columns,
                  const std::vector<std::string>& tables) const;

    void Modify(const std::string& work, const std::string& delta, const Family& family,
                const std::string& filter) const;
    void Insert(const std::string& work, const std::string& delta, const Family& family,
                const std::string& filter) const;
    void Delete(const std::string& work, const std::string& delta, const Family& family,
                const std::string& filter) const;
    void Apply(const std::string& work, const std::string& delta, const Family& family,
               const std::string& filter, const std::string& insertFilter = "") const;
    int Bound(const std::string& delta, const std::string& filter, int version) const;
    void Name(const std::string& work, const std::string& names, const std::string& workKey,
              const std::string& nameKey, const std::vector<std::string>& columns,
              const std::string& filter) const;

    void MergeParameters(const std::string& work, const Drive& drive) const;
    void FinishParameters(const std::string& work, const Drive& drive) const;
    void ApplyModel(const std::string& work, const Family& family, int model, int firmware,
                    int customSpec) const;
    void MergeTrace(const std::string& work, const Family& family, const Drive& drive) const;

    const PlainDatabase& database_;
};

}  // namespace bench
