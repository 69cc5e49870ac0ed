// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace viewkit {

template <class Signature>
class FunctionRef;

// A reference to something callable, for a parameter that is called before the function returns. It
// never allocates, unlike std::function, because it does not own what it calls.
template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
public:
  template <class Callable>
    requires(!std::is_same_v<std::remove_cvref_t<Callable>, FunctionRef>)
  // NOLINTNEXTLINE(google-explicit-constructor): callers pass a lambda as the argument
  FunctionRef(Callable&& callable)
      : callable_(const_cast<void*>(static_cast<const void*>(std::addressof(callable)))),
        call_([](void* object, Arguments... arguments) -> Result {
          return (*static_cast<std::remove_reference_t<Callable>*>(object))(
              std::forward<Arguments>(arguments)...);
        }) {}

  Result operator()(Arguments... arguments) const {
    return call_(callable_, std::forward<Arguments>(arguments)...);
  }

private:
  void* callable_;
  Result (*call_)(void*, Arguments...);
};

}  // namespace viewkit
