#pragma once

#include <memory>
#include <utility>

namespace vellora {

/// Ties callbacks to their owner: a guarded callback does nothing once the Lifetime is gone. Guarded callbacks run on
/// the thread that destroys the owner (the main thread); they may be carried through others. Declare it as the last
/// member.
class Lifetime {
 public:
  Lifetime() : token_(std::make_shared<char>()) {}
  Lifetime(const Lifetime&) = delete;
  Lifetime& operator=(const Lifetime&) = delete;

  template <class F>
  auto guard(F callback) const {
    return [token = std::weak_ptr<char>(token_), callback = std::move(callback)](auto&&... arguments) mutable {
      if (token.lock()) callback(std::forward<decltype(arguments)>(arguments)...);
    };
  }

 private:
  std::shared_ptr<char> token_;
};

}  // namespace vellora
