// SPDX-License-Identifier: MIT
#include "headless/Metrics.hpp"

#include "PictureSize.hpp"
#include "Utf8.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace headless {

using viewkit::ProposedSize;
using viewkit::Size;
using viewkit::TextMetrics;
using viewkit::TextVisual;

namespace {

// Widths and heights, as fractions of the font's point size.
constexpr double kAscent = 0.95;
constexpr double kDescent = 0.25;
constexpr double kFixedPitch = 0.6;
constexpr double kSemibold = 1.05;

bool isOneOf(char32_t c, std::u32string_view set) {
  return set.find(c) != std::u32string_view::npos;
}

bool isWide(char32_t c) {
  return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) ||
         (c >= 0xAC00 && c <= 0xD7A3) || (c >= 0xF900 && c <= 0xFAFF) ||
         (c >= 0xFF00 && c <= 0xFF60) || (c >= 0x1F300 && c <= 0x1FAFF);
}

bool isWithoutWidth(char32_t c) {
  return c < 0x20 || (c >= 0x300 && c <= 0x36F) || (c >= 0x200B && c <= 0x200F) ||
         (c >= 0xFE00 && c <= 0xFE0F);
}

double advanceOf(char32_t c, bool fixedPitch) {
  if (isWithoutWidth(c)) return 0;
  if (isWide(c)) return fixedPitch ? 2 * kFixedPitch : 1;
  if (fixedPitch) return kFixedPitch;
  if (isOneOf(c, U" .,:;'|!iljI")) return 0.28;
  if (isOneOf(c, U"frt()[]{}\"-/\\")) return 0.36;
  if (isOneOf(c, U"mwMW@%")) return 0.84;
  if (c >= 'A' && c <= 'Z') return 0.66;
  return 0.55;
}

// Breaks a text into lines at a width, and measures the lines.
class LineBreaker {
public:
  LineBreaker(const TextVisual& text, double pointSize, std::optional<double> maxWidth,
              int lineLimit)
      : scale_(pointSize * (text.font.weight() == viewkit::Font::Weight::semibold ? kSemibold : 1)),
        fixedPitch_(text.font.chosen() && text.font.chosen()->isFixedPitch()),
        maxWidth_(maxWidth.value_or(viewkit::kUnlimited)),
        lineLimit_(lineLimit) {
    for (const Character& each : characters(text.text)) take(each.codePoint);
    finishLine(line_ + word_);
  }

  int count() const { return count_; }
  double widest() const { return widest_; }

private:
  void take(char32_t c) {
    if (c == '\n') {
      finishLine(line_ + word_);
      line_ = word_ = 0;
      return;
    }
    const double width = advanceOf(c, fixedPitch_) * scale_;
    if (c == ' ') {
      line_ += word_ + width;
      word_ = 0;
      space_ = width;
      return;
    }
    if (line_ > 0 && mayBreak() && line_ + word_ + width > maxWidth_) {
      finishLine(line_ - space_);
      line_ = 0;
    }
    if (line_ == 0 && word_ > 0 && mayBreak() && word_ + width > maxWidth_) {
      finishLine(word_);
      word_ = 0;
    }
    word_ += width;
  }

  // The last line that the limit allows is cut, not broken.
  bool mayBreak() const { return lineLimit_ == 0 || count_ + 1 < lineLimit_; }

  void finishLine(double width) {
    if (lineLimit_ > 0 && count_ == lineLimit_) return;
    ++count_;
    widest_ = std::max(widest_, std::min(width, maxWidth_));
  }

  double scale_;
  bool fixedPitch_;
  double maxWidth_;
  int lineLimit_;
  // The widths of the complete words on the line with their blanks, of the word being read, and of
  // the last blank.
  double line_ = 0;
  double word_ = 0;
  double space_ = 0;
  int count_ = 0;
  double widest_ = 0;
};

template <class... Each>
struct Overloaded : Each... {
  using Each::operator()...;
};
template <class... Each>
Overloaded(Each...) -> Overloaded<Each...>;

constexpr double kControlHeight = 28;
constexpr double kTextFieldHeight = 26;
constexpr double kHorizontalMargin = 12;
constexpr double kSymbolSize = 16;
constexpr double kMenuArrow = 20;
constexpr double kTabMargin = 16;
constexpr double kTabBarHeight = 52;
constexpr double kTextFieldWidth = 160;

Size textFieldSize(const Metrics& metrics, const viewkit::TextFieldControl& field,
                   double offeredWidth) {
  const double width = std::isfinite(offeredWidth) ? offeredWidth : kTextFieldWidth;
  const double margin =
      kTextFieldHeight - metrics.measureText({.text = "x"}, std::nullopt).size.height;
  const double inside = std::max(width - margin, 1.0);
  const auto text = metrics.measureText({.text = field.text, .lineLimit = field.lineLimit}, inside);
  return {width, text.size.height + margin};
}

}  // namespace

TextMetrics Metrics::measureText(const TextVisual& text, std::optional<double> maxWidth) const {
  const double pointSize = text.font.pointSize(bodySize_);
  const double ascent = std::round(kAscent * pointSize);
  const double lineHeight = ascent + std::round(kDescent * pointSize);
  const LineBreaker lines(text, pointSize, maxWidth, text.lineLimit);
  // Rounded up, so that a text proposed its own width is not broken, but never beyond the proposal.
  const double width = std::min(std::ceil(lines.widest()), maxWidth.value_or(viewkit::kUnlimited));
  return {.size = {width, lines.count() * lineHeight},
          .firstBaseline = ascent,
          .lastBaseline = (lines.count() - 1) * lineHeight + ascent};
}

Size Metrics::imageSize(const std::string& path) const { return pictureSize(path); }

Size Metrics::controlSize(const viewkit::Control& control, ProposedSize proposal) const {
  const auto textSize = [&](const std::string& text) {
    return measureText({.text = text}, std::nullopt).size;
  };
  const auto titled = [&](const std::string& title) {
    return Size{textSize(title).width + 2 * kHorizontalMargin, kControlHeight};
  };
  // A control that elides its text is no wider than it is offered.
  const auto within = [&](Size ideal) {
    ideal.width =
        std::min(ideal.width, std::max(proposal.width.value_or(viewkit::kUnlimited), 0.0));
    return ideal;
  };
  const Overloaded size{
      [&](const viewkit::ButtonControl& button) {
        Size result = titled(button.title);
        if (button.symbol) result.width += kSymbolSize;
        return within(result);
      },
      [&](const viewkit::FileButtonControl& button) { return within(titled(button.title)); },
      [](const viewkit::HelpButtonControl&) {
        return Size{20, 20};
      },
      [](const viewkit::ToggleControl& toggle) {
        return toggle.size == viewkit::ToggleControl::Size::small ? Size{28, 16} : Size{38, 22};
      },
      [](const viewkit::ColorWellControl&) {
        return Size{44, 24};
      },
      [&](const viewkit::FontPickerControl& picker) { return titled(picker.title); },
      [&](const viewkit::MenuControl& menu) {
        Size result = titled(menu.title);
        result.width += kMenuArrow;
        return within(result);
      },
      [&](const viewkit::TabBarControl& tabs) {
        double widest = 0;
        for (const auto& item : tabs.items) widest = std::max(widest, textSize(item.title).width);
        const double width = static_cast<double>(tabs.items.size()) * (widest + 2 * kTabMargin);
        return within({width, kTabBarHeight});
      },
      [&](const viewkit::TextFieldControl& field) {
        return textFieldSize(*this, field, proposal.width.value_or(kTextFieldWidth));
      },
      [&](const viewkit::SelectableTextControl& text) {
        return measureText(text.text, proposal.width).size;
      },
      // Controls that show their children have the size of those.
      [](const viewkit::PlainButtonControl&) { return Size{}; },
      [](const viewkit::ScrollControl&) { return Size{}; },
      [](const viewkit::PopoverControl&) { return Size{}; },
  };
  return std::visit(size, control);
}

}  // namespace headless
