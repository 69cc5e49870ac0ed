#include "viewkit/ViewHost.hpp"

#include "passes/Runtime.hpp"

#include <utility>

namespace viewkit {

// Whatever may call a handler keeps the runtime until the call is over: the handler may end the
// host.

ViewHost::ViewHost(View root, Environment environment, const PlatformMetrics& metrics)
    : runtime_(std::make_shared<Runtime>(environment, metrics)) {
  runtime_->open(root);
}

ViewHost::~ViewHost() {
  const auto runtime = std::exchange(runtime_, nullptr);
  runtime->close();
}

void ViewHost::setSize(Size size) { runtime_->setSize(size); }
Size ViewHost::sizeThatFits(ProposedSize proposal) { return runtime_->sizeThatFits(proposal); }
void ViewHost::setEnvironment(Environment environment) { runtime_->setEnvironment(environment); }
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
  runtime->pointerLeft();
}

bool ViewHost::click(Point point) {
  const auto runtime = runtime_;
  return runtime->click(point);
}

bool ViewHost::press(NodeId id) {
  const auto runtime = runtime_;
  return runtime->press(id);
}

void ViewHost::reveal(NodeId id) { runtime_->reveal(id); }

void ViewHost::endEditing() {
  const auto runtime = runtime_;
  runtime->endEditing();
}

std::vector<RefusedText> ViewHost::refusedTexts() const { return runtime_->refusedTexts(); }
bool ViewHost::isAnimating() const { return runtime_->isAnimating(); }

void ViewHost::advanceAnimations(std::chrono::duration<double> elapsed) {
  const auto runtime = runtime_;
  runtime->advanceAnimations(elapsed);
}

void ViewHost::finishAnimations() {
  const auto runtime = runtime_;
  runtime->finishAnimations();
}

NodeDescription ViewHost::describe() const { return runtime_->root().describe({}); }
PassCounters& ViewHost::counters() { return runtime_->counters(); }

}  // namespace viewkit
