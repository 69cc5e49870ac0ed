// SPDX-License-Identifier: MIT
#include "viewkit/TypeName.hpp"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>

namespace viewkit {

std::string unqualifiedTypeName(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> readable(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), std::free);
  std::string name = status == 0 ? readable.get() : type.name();
  // The parts before the name may have arguments and template arguments of their own, with colons
  // in them.
  std::string::size_type start = 0;
  int nesting = 0;
  for (std::string::size_type i = 0; i < name.size(); ++i) {
    if (name[i] == '<' || name[i] == '(') ++nesting;
    if (name[i] == '>' || name[i] == ')') --nesting;
    if (nesting == 0 && name[i] == ':') start = i + 1;
  }
  name.erase(0, start);
  return name.substr(0, name.find('<'));
}

}  // namespace viewkit
