// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace foundation {

// What went wrong, and what the user can do about it, in one line without a full stop.
//
//     if (ports.empty()) return Error{"the list has no ports; name at least one"};
struct Error {
  std::string message;
};

// A value, or the reason why there is none.
//
//     if (const auto list = readPropertyList(path)) use(*list);
//     else report(list.error().message);
template <class T>
class [[nodiscard]] Result {
public:
  Result(T value) : outcome_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : outcome_(std::in_place_index<1>, std::move(error)) {}

  explicit operator bool() const { return outcome_.index() == 0; }

  const T& operator*() const& { return std::get<0>(outcome_); }
  T& operator*() & { return std::get<0>(outcome_); }
  T&& operator*() && { return std::get<0>(std::move(outcome_)); }
  const T* operator->() const { return &std::get<0>(outcome_); }
  T* operator->() { return &std::get<0>(outcome_); }

  const Error& error() const { return std::get<1>(outcome_); }

private:
  std::variant<T, Error> outcome_;
};

// Done, or the reason why not.
using Outcome = Result<std::monostate>;
inline Outcome done() { return std::monostate{}; }

}  // namespace foundation
