// SPDX-License-Identifier: MIT
#include "viewkit/Image.hpp"

#include "foundation/Bundle.hpp"
#include "tree/Node.hpp"
#include "tree/NodeServices.hpp"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

// The length of a resizable symbol that is proposed no length.
constexpr double kIdealLength = 16;

struct ImageDescription {
  std::optional<SymbolName> symbol;
  std::string path;
  bool resizable = false;
  ImageVisual::Mode mode = ImageVisual::Mode::stretch;
};

class ImageValue final : public ViewValue {
public:
  explicit ImageValue(ImageDescription description) : description(std::move(description)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Image"; }

  const ImageDescription description;
};

class ImageNode final : public Node {
protected:
  void apply(const ViewValue* before) override {
    const ImageDescription& description = valueAs<ImageValue>().description;
    const auto* last = before ? &static_cast<const ImageValue*>(before)->description : nullptr;
    if (last && (!(inherited().font == font_) || last->symbol != description.symbol ||
                 last->path != description.path || last->resizable != description.resizable ||
                 last->mode != description.mode)) {
      layoutChanged();
    }
    font_ = inherited().font;
    if (description.symbol) {
      present().setContent(
          SymbolVisual{.name = *description.symbol, .color = inherited().foreground});
    } else {
      present().setContent(ImageVisual{.path = description.path, .mode = description.mode});
    }
    // Assistive technology is not told of a picture without a name.
    const bool isNamed =
        !inherited().forNearest.accessibilityLabel.empty() || !inherited().forNearest.help.empty();
    present().setAccessibility({.role = isNamed ? Role::image : Role::none});
  }

  Measurement measure(const ProposedSize& proposal) override {
    const ImageDescription& description = valueAs<ImageValue>().description;
    if (!description.resizable || !(proposal.width || proposal.height)) return {idealSize()};
    const Size ideal = idealSize();
    const Size offered{proposal.width.value_or(ideal.width),
                       proposal.height.value_or(ideal.height)};
    if (description.mode == ImageVisual::Mode::stretch || ideal.width <= 0 || ideal.height <= 0)
      return {offered};
    if (description.mode == ImageVisual::Mode::fill && proposal.width && proposal.height)
      return {offered};
    const double acrossScale = proposal.width ? *proposal.width / ideal.width : kUnlimited;
    const double downScale = proposal.height ? *proposal.height / ideal.height : kUnlimited;
    const double scale = std::min(acrossScale, downScale);
    if (!std::isfinite(scale)) return {offered};
    return {{ideal.width * scale, ideal.height * scale}};
  }

private:
  Size idealSize() const {
    const ImageDescription& description = valueAs<ImageValue>().description;
    // Of a resizable symbol only the aspect ratio counts, and all are square.
    if (description.symbol && description.resizable) return {kIdealLength, kIdealLength};
    if (!description.symbol)
      return description.path.empty() ? Size{} : services().metrics.imageSize(description.path);
    const TextVisual line{.text = "X", .font = inherited().font};
    const double height = services().metrics.measureText(line, std::nullopt).size.height;
    return {height, height};
  }

  Font font_ = Font::body();
};

std::unique_ptr<Node> ImageValue::makeNode() const { return std::make_unique<ImageNode>(); }

}  // namespace

Image Image::symbol(SymbolName name) {
  Image image;
  image.symbol_ = name;
  return image;
}

Image Image::named(const std::string& name) {
  Image image;
  const foundation::Bundle& bundle = foundation::Bundle::mainBundle();
  auto path = bundle.pathForResource(name, "svg");
  if (!path) path = bundle.pathForResource(name, "png");
  if (path) image.path_ = path->string();
  return image;
}

Image Image::resizable() const {
  Image image = *this;
  image.resizable_ = true;
  return image;
}

Image Image::scaledToFit() const {
  Image image = *this;
  image.mode_ = ImageVisual::Mode::fit;
  return image;
}

Image Image::scaledToFill() const {
  Image image = *this;
  image.mode_ = ImageVisual::Mode::fill;
  return image;
}

Image::operator View() const {
  return View(std::make_shared<const ImageValue>(
      ImageDescription{.symbol = symbol_, .path = path_, .resizable = resizable_, .mode = mode_}));
}

}  // namespace viewkit
