#include "base/NotificationCenter.h"

#include <vector>

namespace vellora {

void NotificationCenter::post(const char* name) {
  const auto state = state_;
  std::vector<int> numbers;
  const auto [first, last] = state->observers.equal_range(QByteArray(name));
  for (auto it = first; it != last; ++it) numbers.push_back(it->second.first);
  for (const int number : numbers) {
    // Looked up anew each time: an earlier observer may have ended a later one's subscription.
    for (const auto& [key, observer] : state->observers) {
      if (observer.first != number) continue;
      const auto callback = observer.second;
      callback();
      break;
    }
  }
}

NotificationCenter::Subscription NotificationCenter::observe(const char* name, std::function<void()> observer) {
  const int number = state_->nextNumber++;
  state_->observers.emplace(QByteArray(name), std::pair(number, std::move(observer)));
  return {state_, number};
}

NotificationCenter::Subscription::~Subscription() {
  if (const auto state = state_.lock()) {
    std::erase_if(state->observers, [this](const auto& entry) { return entry.second.first == number_; });
  }
}

}  // namespace vellora
