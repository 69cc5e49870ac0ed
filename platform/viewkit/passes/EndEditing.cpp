#include "controls/TextEditing.hpp"
#include "passes/Runtime.hpp"

#include <memory>
#include <utility>
#include <vector>

namespace viewkit {

namespace {

// Those of hidden pages too.
template <class Visit>
void visitFields(Node& branch, const Visit& visit) {
  if (TextEditing* editing = branch.textEditing()) visit(branch, *editing);
  branch.visitChildren([&](Node& child) { visitFields(child, visit); });
}

}  // namespace

void ViewHost::Runtime::beforeDisappearing(std::function<void()> call) {
  calls_.push_front({CallKind::appearance, std::move(call)});
  schedule();
}

void ViewHost::Runtime::endEditing() {
  std::vector<std::shared_ptr<TextEditing>> changed;
  visitFields(*root_, [&](Node& /*field*/, TextEditing& editing) {
    if (editing.hasChanged()) changed.push_back(editing.shared_from_this());
  });
  for (const auto& editing : changed) editing->endEditing();
  update();
}

std::vector<RefusedText> ViewHost::Runtime::refusedTexts() {
  std::vector<RefusedText> refused;
  visitFields(*root_, [&](Node& node, TextEditing& editing) {
    const TextFieldControl& field = editing.field();
    if (field.problem.empty()) return;
    refused.push_back({.label = node.presented()->node.accessibility.label,
                       .text = field.text,
                       .problem = field.problem});
  });
  return refused;
}

}  // namespace viewkit
