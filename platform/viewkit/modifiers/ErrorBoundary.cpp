// SPDX-License-Identifier: MIT
#include "viewkit/ErrorBoundary.hpp"

#include "tree/ModifierNode.hpp"

#include <memory>
#include <utility>

namespace viewkit {

namespace {

class ErrorBoundaryValue final : public ModifierValue {
public:
  ErrorBoundaryValue(View content, ErrorView errorView)
      : ModifierValue(std::move(content)), errorView(errorView) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "ErrorBoundary"; }

  const ErrorView errorView;
};

class ErrorBoundaryNode final : public ModifierNode {
protected:
  const InheritedPtr& inheritedByContent() override {
    return inheritedByContent_.of(inheritedPtr(), [this](Inherited& next) {
      next.errorView = valueAs<ErrorBoundaryValue>().errorView;
    });
  }

private:
  InheritedOverride inheritedByContent_;
};

std::unique_ptr<Node> ErrorBoundaryValue::makeNode() const {
  return std::make_unique<ErrorBoundaryNode>();
}

}  // namespace

View errorBoundary(const View& content, ErrorView errorView) {
  return modifiedView<ErrorBoundaryValue>(content, errorView);
}

}  // namespace viewkit
