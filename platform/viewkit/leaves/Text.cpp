// SPDX-License-Identifier: MIT
#include "viewkit/Text.hpp"

#include "foundation/Unicode.hpp"
#include "tree/Node.hpp"
#include "tree/NodeServices.hpp"

#include <memory>
#include <utility>

namespace viewkit {

namespace {

// A text that is proposed its own width must not be broken because of a rounding error.
constexpr double kTolerance = 0.01;

struct TextDescription {
  std::string text;
  std::optional<Font> font;
  std::optional<Color> color;
  int lineLimit = 0;
  Truncation truncation = Truncation::tail;
  bool selectable = false;
  bool uppercased = false;
};

class TextValue final : public ViewValue {
public:
  explicit TextValue(TextDescription description) : description(std::move(description)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Text"; }

  const TextDescription description;
};

class TextNode final : public Node {
public:
  ProposedSize relevantPart(const ProposedSize& proposal) const override {
    return {proposal.width == kUnlimited ? std::nullopt : proposal.width, std::nullopt};
  }

protected:
  void apply(const ViewValue* before) override {
    const TextDescription& description = valueAs<TextValue>().description;
    TextVisual next{
        .text =
            description.uppercased ? foundation::uppercased(description.text) : description.text,
        .font = description.font.value_or(inherited().font),
        .color = description.color.value_or(inherited().foreground),
        .lineLimit = description.lineLimit,
        .truncation = description.truncation,
    };
    if (before && (visual_.text != next.text || visual_.font != next.font ||
                   visual_.lineLimit != next.lineLimit)) {
      layoutChanged();
    }
    visual_ = std::move(next);
    if (description.selectable) {
      present().setContent(Control(SelectableTextControl{.text = visual_}));
    } else {
      present().setContent(visual_);
    }
    present().setAccessibility({.role = Role::text, .label = description.text});
  }

  Measurement measure(const ProposedSize& proposal) override {
    if (!proposal.width) return measuredWithin(std::nullopt);
    const Measurement ideal = measured({});
    if (*proposal.width >= ideal.size.width - kTolerance) return ideal;
    // A stack proposes 0 to learn how far a child can shrink. Breaking the lines for it is not
    // worth the time.
    if (*proposal.width <= 0) return {{0, ideal.size.height}, ideal.firstBaseline};
    return measuredWithin(proposal.width);
  }

private:
  Measurement measuredWithin(std::optional<double> width) const {
    const TextMetrics metrics = services().metrics.measureText(visual_, width);
    return {metrics.size, metrics.firstBaseline};
  }

  TextVisual visual_;
};

std::unique_ptr<Node> TextValue::makeNode() const { return std::make_unique<TextNode>(); }

}  // namespace

Text Text::font(Font font) const {
  return with([&](Text& text) { text.font_ = std::move(font); });
}

Text Text::foreground(Color color) const {
  return with([&](Text& text) { text.color_ = color; });
}

Text Text::lineLimit(int lines) const {
  return with([&](Text& text) { text.lineLimit_ = lines; });
}

Text Text::truncation(Truncation truncation) const {
  return with([&](Text& text) { text.truncation_ = truncation; });
}

Text Text::selectable() const {
  return with([](Text& text) { text.selectable_ = true; });
}

Text Text::uppercased() const {
  return with([](Text& text) { text.uppercased_ = true; });
}

Text::operator View() const {
  return View(std::make_shared<const TextValue>(TextDescription{
      .text = text_,
      .font = font_,
      .color = color_,
      .lineLimit = lineLimit_,
      .truncation = truncation_,
      .selectable = selectable_,
      .uppercased = uppercased_,
  }));
}

}  // namespace viewkit
