// SPDX-License-Identifier: MIT
#include "viewkit/ViewHost.hpp"

#include "passes/Describe.hpp"
#include "passes/Editing.hpp"
#include "passes/Runtime.hpp"

#include <utility>

namespace viewkit {

// A handler may destroy the host. Functions that may call one therefore own the runtime until they
// return.

ViewHost::ViewHost(View root, Environment environment, const PlatformMetrics& metrics)
    : runtime_(std::make_shared<Runtime>(std::move(environment), metrics)) {
  runtime_->open(root);
}

ViewHost::~ViewHost() {
  const auto runtime = std::exchange(runtime_, nullptr);
  runtime->close();
}

void ViewHost::setSize(Size size) { runtime_->setSize(size); }
Size ViewHost::sizeThatFits(ProposedSize proposal) { return runtime_->sizeThatFits(proposal); }
void ViewHost::setEnvironment(Environment environment) {
  runtime_->setEnvironment(std::move(environment));
}
const Environment& ViewHost::environment() const { return runtime_->environment(); }

void ViewHost::update() {
  const auto runtime = runtime_;
  runtime->update();
}

void ViewHost::setObserver(Observer observer) { runtime_->setObserver(std::move(observer)); }
const PresentationNode& ViewHost::presentation() const {
  return runtime_->root().presented()->node;
}
const PresentationNode* ViewHost::node(NodeId id) const { return runtime_->node(id); }

void ViewHost::pointerMoved(Point point) {
  const auto runtime = runtime_;
  runtime->pointerMoved(point);
}

void ViewHost::pointerLeft() {
  const auto runtime = runtime_;
  runtime->pointerMoved(std::nullopt);
}

bool ViewHost::click(Point point) {
  const auto runtime = runtime_;
  return runtime->click(point);
}

bool ViewHost::press(NodeId id) {
  const auto runtime = runtime_;
  return runtime->press(id);
}

std::optional<ContextMenu> ViewHost::contextMenuAt(Point point) {
  const auto runtime = runtime_;
  return runtime->contextMenuAt(point);
}

std::optional<ContextMenu> ViewHost::contextMenuOf(NodeId id) {
  const auto runtime = runtime_;
  return runtime->contextMenuOf(id);
}

bool ViewHost::hasContextMenu(NodeId id) const { return runtime_->hasContextMenu(id); }

void ViewHost::reveal(NodeId id) { runtime_->reveal(id); }

void ViewHost::endEditing() {
  const auto runtime = runtime_;
  runtime->endEditing();
}

std::vector<RefusedText> ViewHost::refusedTexts() const {
  return viewkit::refusedTexts(runtime_->root());
}
bool ViewHost::handleKey(const appkit::Event& press, NodeId focused) {
  const auto runtime = runtime_;
  return runtime->handleKey(press, focused);
}

bool ViewHost::isAnimating() const { return runtime_->isAnimating(); }

void ViewHost::advanceAnimations(std::chrono::duration<double> elapsed) {
  const auto runtime = runtime_;
  runtime->advanceAnimations(elapsed);
}

void ViewHost::finishAnimations() {
  const auto runtime = runtime_;
  runtime->finishAnimations();
}

NodeDescription ViewHost::describe() const { return viewkit::describe(runtime_->root()); }
PassCounters& ViewHost::counters() { return runtime_->counters; }

}  // namespace viewkit
