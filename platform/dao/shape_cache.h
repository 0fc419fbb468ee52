#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "jetsql/translator.h"

namespace daoengine {

// The shapes of the last texts, so that a statement that is asked again and again is not cut into tokens each
// time.
class ShapeCache {
  public:
    std::shared_ptr<const jetsql::Shape> Find(std::string_view sql) {
        Entry& entry = entries_[std::hash<std::string_view>()(sql) % entries_.size()];
        if (entry.shape && entry.sql == sql) return entry.shape;
        auto shape = std::make_shared<const jetsql::Shape>(jetsql::ShapeOf(sql));
        if (sql.size() > kLongestText) return shape;
        entry.shape.reset();
        entry.sql = sql;
        return entry.shape = std::move(shape);
    }

  private:
    static constexpr std::size_t kTexts = 64;
    static constexpr std::size_t kLongestText = 1024;

    struct Entry {
        std::string sql;
        std::shared_ptr<const jetsql::Shape> shape;
    };

    std::array<Entry, kTexts> entries_;
};

}  // namespace daoengine
