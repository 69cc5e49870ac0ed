// SPDX-License-Identifier: MIT
#include "headless/Description.hpp"

#include "foundation/JSONWriter.hpp"

namespace headless {

namespace {

std::string number(double value) { return foundation::JSONWriter().real(value).text(); }

// As a JSON string, which is always one line.
std::string quoted(const std::string& text) { return foundation::JSONWriter().string(text).text(); }

// The same without the surrounding quotation marks.
std::string quotedInside(const std::string& text) {
  const std::string whole = quoted(text);
  return whole.substr(1, whole.size() - 2);
}

void appendText(std::string& out, const viewkit::NodeDescription& node, std::size_t depth) {
  const viewkit::Accessibility& accessibility = node.accessibility;
  out.append(2 * depth, ' ').append(node.kind);
  if (accessibility.role != viewkit::Role::none)
    out.append(" ").append(viewkit::nameOf(accessibility.role));
  if (!accessibility.label.empty()) out.append(" ").append(quoted(accessibility.label));
  if (!accessibility.value.empty()) out.append(" value ").append(quoted(accessibility.value));
  if (!accessibility.help.empty()) out.append(" help ").append(quoted(accessibility.help));
  if (!accessibility.note.empty()) out.append(" note ").append(quoted(accessibility.note));
  if (accessibility.selected) out.append(*accessibility.selected ? " selected" : " not selected");
  if (!accessibility.enabled) out.append(" disabled");
  const auto& [origin, size] = node.frame;
  out += " (" + number(origin.x) + ", " + number(origin.y) + ") " + number(size.width) + " x " +
         number(size.height);
  if (!node.visual.empty()) out.append(" [").append(quotedInside(node.visual)).append("]");
  out += '\n';
  for (const viewkit::NodeDescription& child : node.children) appendText(out, child, depth + 1);
}

void writeJson(foundation::JSONWriter& writer, const viewkit::NodeDescription& node) {
  const viewkit::Accessibility& accessibility = node.accessibility;
  const auto& [origin, size] = node.frame;
  writer.beginObject();
  writer.name("kind").string(node.kind);
  writer.name("role").string(viewkit::nameOf(accessibility.role));
  writer.name("label").string(accessibility.label);
  writer.name("value").string(accessibility.value);
  writer.name("help").string(accessibility.help);
  writer.name("note").string(accessibility.note);
  writer.name("enabled").boolean(accessibility.enabled);
  writer.name("selected");
  accessibility.selected ? writer.boolean(*accessibility.selected) : writer.null();
  writer.name("visual").string(node.visual);
  writer.name("frame").beginObject();
  writer.name("x").real(origin.x).name("y").real(origin.y);
  writer.name("width").real(size.width).name("height").real(size.height);
  writer.endObject();
  writer.name("children").beginArray();
  for (const viewkit::NodeDescription& child : node.children) writeJson(writer, child);
  writer.endArray().endObject();
}

}  // namespace

std::string textDescription(const viewkit::NodeDescription& node) {
  std::string out;
  appendText(out, node, 0);
  return out;
}

std::string jsonDescription(const viewkit::NodeDescription& node) {
  foundation::JSONWriter writer;
  writeJson(writer, node);
  return writer.takeText();
}

}  // namespace headless
