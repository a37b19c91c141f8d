#include "hardware/StateRules.h"

#include <iterator>

namespace hardware {

using State = HTEQHardwarePlatform::PlatformState;

namespace {

constexpr const char* kTexts[] = {"synth", "impl", "pre_synth", ""};
static_assert(std::size(kTexts) == static_cast<std::size_t>(State::other) + 1, "one text for each state");

}  // namespace

State stateOf(const std::string& text) {
    for (const State state : {State::synth, State::impl, State::pre_synth})
        if (text == kTexts[static_cast<std::size_t>(state)]) return state;
    return State::other;
}

std::string stateText(State state) {
    const auto number = static_cast<std::size_t>(state);
    return number < std::size(kTexts) ? kTexts[number] : "";
}

bool isFlatShellIn(const HTEQHardwarePlatform& platform, State state) {
    return platform.getState() == state && platform.isExpandable() && !platform.usesPR() &&
           platform.getDesignIntent().getDataCenter();
}

}  // namespace hardware
