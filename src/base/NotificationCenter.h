#pragma once

#include <functional>
#include <map>
#include <memory>

#include <QString>

namespace vellora {

namespace notice {
inline constexpr char hotKeysChanged[] = "velloraHotKeysChanged";
inline constexpr char languageChanged[] = "velloraLanguageChanged";
}  // namespace notice

/// Named notices without payload, posted and received on the main thread.
class NotificationCenter {
 public:
  class Subscription;

  /// Tells every observer of `name`, in the order they subscribed.
  void post(const char* name);

  /// `observer` is called until the returned subscription is destroyed. The centre may go first.
  [[nodiscard]] Subscription observe(const char* name, std::function<void()> observer);

 private:
  struct State {
    std::multimap<QByteArray, std::pair<int, std::function<void()>>> observers;
    int nextNumber = 0;
  };
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// Keeps an observer subscribed while it lives.
class NotificationCenter::Subscription {
 public:
  Subscription() = default;
  Subscription(std::weak_ptr<State> state, int number) : state_(std::move(state)), number_(number) {}
  Subscription(Subscription&& other) noexcept : state_(std::exchange(other.state_, {})), number_(other.number_) {}
  Subscription& operator=(Subscription&& other) noexcept {
    std::swap(state_, other.state_);
    std::swap(number_, other.number_);
    return *this;
  }
  ~Subscription();

 private:
  std::weak_ptr<State> state_;
  int number_ = 0;
};

}  // namespace vellora
