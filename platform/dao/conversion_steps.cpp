#include "dao/conversion_steps.h"

#include <utility>

namespace daoengine {
namespace {

std::function<void(ConversionStep)>& Observer() {
    static auto& observer = *new std::function<void(ConversionStep)>;
    return observer;
}

}  // namespace

void SetConversionObserver(std::function<void(ConversionStep)> observer) {
    Observer() = std::move(observer);
}

void PassStep(ConversionStep step) {
    if (Observer()) Observer()(step);
}

}  // namespace daoengine
