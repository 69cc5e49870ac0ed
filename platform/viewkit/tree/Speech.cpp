// SPDX-License-Identifier: MIT
#include "tree/Speech.hpp"

#include "tree/Node.hpp"

namespace viewkit {

namespace {

using SpokenFor = Inherited::SpokenFor;

void appendLabels(Node& node, std::string& into, bool withControls) {
  if (node.inherited().spokenFor == SpokenFor::allButControls && speaksForItself(node) &&
      !withControls)
    return;
  if (const Presented* presented = node.presented();
      presented && !presented->node.accessibility.label.empty()) {
    if (!into.empty()) into += ' ';
    into += presented->node.accessibility.label;
    return;
  }
  node.visitShownChildren([&](Node& child) { appendLabels(child, into, withControls); });
}

}  // namespace

bool speaksForItself(const Node& node) {
  switch (node.inherited().spokenFor) {
    case SpokenFor::nothing: return true;
    case SpokenFor::allButControls: return node.presented() && node.presented()->node.control();
    case SpokenFor::everything: return false;
  }
  return true;
}

std::string spokenContents(Node& node) {
  std::string labels;
  for (const bool withControls : {false, true}) {
    if (!labels.empty()) break;
    node.visitShownChildren([&](Node& child) { appendLabels(child, labels, withControls); });
  }
  return labels;
}

}  // namespace viewkit
