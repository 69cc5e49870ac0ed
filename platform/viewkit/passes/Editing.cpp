// SPDX-License-Identifier: MIT
#include "passes/Editing.hpp"

#include "tree/Node.hpp"

#include <functional>
#include <variant>

namespace viewkit {

namespace {

template <class Visit>
void visitTextFields(Node& branch, const Visit& visit) {
  if (const Presented* presented = branch.presented()) {
    const Control* control = presented->node.control();
    const auto* field = control ? std::get_if<TextFieldControl>(control) : nullptr;
    if (field) visit(presented->node, *field);
  }
  branch.visitChildren([&](Node& child) { visitTextFields(child, visit); });
}

}  // namespace

void endEditing(Node& root) {
  // Copies: a commit may change the tree.
  std::vector<std::function<void()>> ends;
  visitTextFields(root, [&](const PresentationNode& /*node*/, const TextFieldControl& field) {
    if (field.endEditing) ends.push_back(field.endEditing);
  });
  for (const auto& end : ends) end();
}

std::vector<RefusedText> refusedTexts(Node& root) {
  std::vector<RefusedText> refused;
  visitTextFields(root, [&](const PresentationNode& node, const TextFieldControl& field) {
    if (field.problem.empty()) return;
    refused.push_back(
        {.label = node.accessibility.label, .text = field.text, .problem = field.problem});
  });
  return refused;
}

}  // namespace viewkit
