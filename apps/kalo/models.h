#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cli {

// An amplifier model, alone or with an option unit.
struct Model {
    std::uint32_t id;
    std::uint32_t option;
    std::string name;
    std::string optionName;  // empty without one
    std::string offlineName;
    std::string offlineOptionName;
};

// Every model that an open session knows, in display order. Throws Failure.
std::vector<Model> ReadModels();

}  // namespace cli
