#include "viewkit/ViewHost.hpp"

#include "Runtime.hpp"

#include <utility>

namespace viewkit {

ViewHost::ViewHost(View root, Environment environment, const PlatformMetrics& metrics)
    : runtime_(std::make_unique<Runtime>(root, environment, metrics)) {}

ViewHost::~ViewHost() = default;

void ViewHost::setSize(Size size) { runtime_->setSize(size); }
Size ViewHost::sizeThatFits(ProposedSize proposal) { return runtime_->sizeThatFits(proposal); }
void ViewHost::setEnvironment(Environment environment) { runtime_->setEnvironment(environment); }
const Environment& ViewHost::environment() const { return runtime_->environment(); }
void ViewHost::update() { runtime_->update(); }
void ViewHost::setObserver(Observer observer) { runtime_->setObserver(std::move(observer)); }
const PresentationNode& ViewHost::presentation() const { return runtime_->root().presented()->node; }
const PresentationNode* ViewHost::node(NodeId id) const { return runtime_->node(id); }
void ViewHost::pointerMoved(Point point) { runtime_->pointerMoved(point); }
void ViewHost::pointerLeft() { runtime_->pointerLeft(); }
bool ViewHost::click(Point point) { return runtime_->click(point); }
bool ViewHost::isAnimating() const { return runtime_->isAnimating(); }
void ViewHost::advanceAnimations(std::chrono::duration<double> elapsed) { runtime_->advanceAnimations(elapsed); }
void ViewHost::finishAnimations() { runtime_->finishAnimations(); }
NodeDescription ViewHost::describe() const { return runtime_->root().describe({}); }
PassCounters& ViewHost::counters() { return runtime_->counters(); }

}  // namespace viewkit
