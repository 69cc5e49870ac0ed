#include "headless/Description.hpp"

#include "Utf8.hpp"
#include "headless/Element.hpp"

#include <array>
#include <charconv>
#include <cmath>

namespace headless {

namespace {

std::string number(double value) {
  if (!std::isfinite(value)) return "0";
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  return {digits.data(), end};
}

std::string jsonString(std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  std::string result = "\"";
  for (const Character& each : characters(text)) {
    switch (each.codePoint) {
      case '"': result += "\\\""; break;
      case '\\': result += "\\\\"; break;
      case '\n': result += "\\n"; break;
      case '\r': result += "\\r"; break;
      case '\t': result += "\\t"; break;
      case kReplacementCharacter: result += "\xEF\xBF\xBD"; break;
      default:
        if (each.codePoint < 0x20) {
          result.append("\\u00").append(1, kHex[each.codePoint / 16]).append(1, kHex[each.codePoint % 16]);
        } else {
          result += each.bytes;
        }
    }
  }
  return result + '"';
}

void appendText(std::string& out, const viewkit::NodeDescription& node, std::size_t depth) {
  const viewkit::Accessibility& accessibility = node.accessibility;
  out.append(2 * depth, ' ').append(node.kind);
  if (accessibility.role != viewkit::Role::none) out.append(" ").append(viewkit::nameOf(accessibility.role));
  if (!accessibility.label.empty()) out.append(" ").append(jsonString(accessibility.label));
  if (!accessibility.value.empty()) out.append(" value ").append(jsonString(accessibility.value));
  if (!accessibility.help.empty()) out.append(" help ").append(jsonString(accessibility.help));
  if (accessibility.selected) out.append(*accessibility.selected ? " selected" : " not selected");
  if (!accessibility.enabled) out.append(" disabled");
  const auto& [origin, size] = node.frame;
  out += " (" + number(origin.x) + ", " + number(origin.y) + ") " + number(size.width) + " x " + number(size.height);
  out += '\n';
  for (const viewkit::NodeDescription& child : node.children) appendText(out, child, depth + 1);
}

void appendJson(std::string& out, const viewkit::NodeDescription& node) {
  const viewkit::Accessibility& accessibility = node.accessibility;
  out.append("{\"kind\":").append(jsonString(node.kind));
  out.append(",\"role\":").append(jsonString(viewkit::nameOf(accessibility.role)));
  out.append(",\"label\":").append(jsonString(accessibility.label));
  out.append(",\"value\":").append(jsonString(accessibility.value));
  out.append(",\"help\":").append(jsonString(accessibility.help));
  out.append(",\"enabled\":").append(accessibility.enabled ? "true" : "false");
  const auto& [origin, size] = node.frame;
  out.append(",\"frame\":{\"x\":").append(number(origin.x)).append(",\"y\":").append(number(origin.y));
  out.append(",\"width\":").append(number(size.width)).append(",\"height\":").append(number(size.height));
  out.append("},\"children\":[");
  bool isFirst = true;
  for (const viewkit::NodeDescription& child : node.children) {
    if (!isFirst) out += ',';
    isFirst = false;
    appendJson(out, child);
  }
  out.append("]}");
}

}  // namespace

std::string textDescription(const viewkit::NodeDescription& node) {
  std::string out;
  appendText(out, node, 0);
  return out;
}

std::string jsonDescription(const viewkit::NodeDescription& node) {
  std::string out;
  appendJson(out, node);
  return out;
}

}  // namespace headless
