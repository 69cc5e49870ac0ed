#include "viewkit/Image.hpp"

#include "Node.hpp"
#include "Runtime.hpp"
#include "foundation/Bundle.hpp"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

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
    const Size ideal = idealSize();
    const auto* last = before ? &static_cast<const ImageValue*>(before)->description : nullptr;
    if (last && (ideal != ideal_ || last->resizable != description.resizable || last->mode != description.mode)) {
      layoutChanged();
    }
    ideal_ = ideal;
    if (description.symbol) {
      setContent(SymbolVisual{.name = *description.symbol, .color = inherited().foreground});
    } else {
      setContent(ImageVisual{.path = description.path, .mode = description.mode});
    }
    // A picture without a name is an ornament.
    const bool isNamed = !inherited().forOne.accessibilityLabel.empty() || !inherited().forOne.help.empty();
    setAccessibility({.role = isNamed ? Role::image : Role::none});
  }

  Measurement measure(const ProposedSize& proposal) override {
    const ImageDescription& description = valueAs<ImageValue>().description;
    if (!description.resizable) return {ideal_};
    const Size offered{proposal.width.value_or(ideal_.width), proposal.height.value_or(ideal_.height)};
    if (description.mode == ImageVisual::Mode::stretch || ideal_.width <= 0 || ideal_.height <= 0) return {offered};
    const double acrossScale = proposal.width ? *proposal.width / ideal_.width : kUnlimited;
    const double downScale = proposal.height ? *proposal.height / ideal_.height : kUnlimited;
    if (description.mode == ImageVisual::Mode::fill && proposal.width && proposal.height) return {offered};
    const double scale = std::min(acrossScale, downScale);
    if (!std::isfinite(scale)) return {proposal.width || proposal.height ? offered : ideal_};
    return {{ideal_.width * scale, ideal_.height * scale}};
  }

private:
  Size idealSize() const {
    const ImageDescription& description = valueAs<ImageValue>().description;
    if (!description.symbol) return description.path.empty() ? Size{} : runtime().metrics().imageSize(description.path);
    const TextVisual line{.text = "X", .font = inherited().font};
    const double height = runtime().metrics().measureText(line, std::nullopt).size.height;
    return {height, height};
  }

  Size ideal_;
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
