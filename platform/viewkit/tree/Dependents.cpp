// SPDX-License-Identifier: MIT
#include "viewkit/Dependents.hpp"

#include "tree/CompositeNode.hpp"

#include <algorithm>

namespace viewkit {

void Dependents::recordRead() {
  const CompositeNode* const running = CompositeNode::running();
  if (!running) return;
  const std::shared_ptr<Body>& body = running->body();
  const auto isBefore = [](const Reader& reader, const std::shared_ptr<Body>& other) {
    return reader.body.owner_before(other);
  };
  auto place = std::lower_bound(readers_.begin(), readers_.end(), body, isBefore);
  if (place != readers_.end() && !body.owner_before(place->body)) {
    place->run = body->run;
    return;
  }
  if (readers_.size() == readers_.capacity()) {
    std::erase_if(readers_, [](const Reader& reader) { return reader.body.expired(); });
    place = std::lower_bound(readers_.begin(), readers_.end(), body, isBefore);
  }
  readers_.insert(place, Reader{.body = body, .run = body->run});
}

void Dependents::markAll() {
  for (const Reader& reader : readers_) {
    const auto body = reader.body.lock();
    if (body && body->run == reader.run) body->node->bodyChanged();
  }
}

}  // namespace viewkit
