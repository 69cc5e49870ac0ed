// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "foundation/Bundle.hpp"
#include "support/TemporaryFolder.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Modifiers.hpp"
#include "viewkit/Shape.hpp"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>

namespace qt {
namespace {

using viewkit::FixedFrame;
using viewkit::FlexibleFrame;
using viewkit::Image;
using viewkit::kUnlimited;
using viewkit::RoundedRectangle;
using viewkit::View;

constexpr appkit::RGBA kRed{.red = 1, .green = 0, .blue = 0, .opacity = 1};
constexpr appkit::RGBA kGlass{.red = 0, .green = 0, .blue = 1, .opacity = 0.4};
constexpr appkit::RGBA kGreen{.red = 0, .green = 0.6, .blue = 0, .opacity = 1};
constexpr QRectF kFrame(170, 130, 60, 40);
constexpr FixedFrame kSize{.width = 60, .height = 40};

QColor colorFrom(const appkit::RGBA& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.opacity));
}

void fill(QPainter& painter, const appkit::RGBA& color, qreal radius, qreal inset = 0) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colorFrom(color));
  painter.drawRoundedRect(kFrame.adjusted(inset, inset, -inset, -inset), radius - inset,
                          radius - inset);
}

void border(QPainter& painter, const appkit::RGBA& color, qreal radius, qreal width) {
  const qreal inset = width / 2;
  painter.setPen(QPen(colorFrom(color), width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(kFrame.adjusted(inset, inset, -inset, -inset), radius - inset,
                          radius - inset);
}

int difference(const QImage& a, const QImage& b) {
  int most = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QColor one = a.pixelColor(x, y);
      const QColor other = b.pixelColor(x, y);
      most = std::max({most, std::abs(one.red() - other.red()),
                       std::abs(one.green() - other.green()), std::abs(one.blue() - other.blue())});
    }
  }
  return most;
}

class PaintingTest : public WindowFixture {
protected:
  // Shows the view in the middle of a window.
  void show(const View& view) {
    open(View(RoundedRectangle())
             .frame(FlexibleFrame{.maxWidth = kUnlimited, .maxHeight = kUnlimited})
             .overlay(view));
  }

  QImage picture(qreal scale) const {
    QImage image(topLevel().size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    topLevel().render(&image);
    return image;
  }
};

TEST_F(PaintingTest, RoundCornersAreAntialiasedAtEveryScale) {
  const support::TemporaryFolder resources;
  QImage red(60, 40, QImage::Format_RGB32);
  red.fill(Qt::red);
  ASSERT_TRUE(red.save(QString::fromStdString((resources.path() / "red.png").string())));
  foundation::Bundle::setMainResourceFolder(resources.path());

  const struct {
    const char* what;
    View view;
    std::function<void(QPainter&)> expected;
  } cases[] = {
      {"a shape", View(RoundedRectangle(10).fill(kRed)).frame(kSize),
       [](QPainter& p) { fill(p, kRed, 10); }},
      {"a shape with half-round ends", View(RoundedRectangle(20).fill(kRed)).frame(kSize),
       [](QPainter& p) { fill(p, kRed, 20); }},
      {"a translucent shape", View(RoundedRectangle(7).fill(kGlass)).frame(kSize),
       [](QPainter& p) { fill(p, kGlass, 7); }},
      {"a border", View(RoundedRectangle(10).fill(kRed).border(kGreen, 2)).frame(kSize),
       [](QPainter& p) {
         fill(p, kRed, 10, 1);
         border(p, kGreen, 10, 2);
       }},
      {"a translucent border", View(RoundedRectangle(10).fill(kRed).border(kGlass, 4)).frame(kSize),
       [](QPainter& p) {
         fill(p, kRed, 10);
         border(p, kGlass, 10, 4);
       }},
      {"a clipped shape", View(RoundedRectangle().fill(kRed)).frame(kSize).clipped(10),
       [](QPainter& p) { fill(p, kRed, 10); }},
      {"a clipped picture", View(Image::named("red").resizable()).frame(kSize).clipped(10),
       [](QPainter& p) { fill(p, kRed, 10); }},
  };
  show({});
  const QImage empty[] = {picture(1), picture(1.5), picture(2)};
  destroyWindow();
  for (const auto& each : cases) {
    show(each.view);
    for (const QImage& window : empty) {
      QImage expected = window;
      QPainter painter(&expected);
      painter.setRenderHint(QPainter::Antialiasing);
      each.expected(painter);
      painter.end();
      EXPECT_LE(difference(picture(window.devicePixelRatio()), expected), 4)
          << each.what << " at " << window.devicePixelRatio();
    }
    destroyWindow();
  }
}

TEST_F(PaintingTest, SwitchIsMirroredInARightToLeftLayout) {
  for (const bool isOn : {false, true}) {
    const viewkit::Binding<bool> binding([isOn] { return isOn; }, [](bool) {});
    const View toggle = viewkit::Toggle(binding, viewkit::ToggleControl::Size::regular);
    open(toggle);
    const QImage expected = picture(1).mirrored(true, false);
    destroyWindow();
    open(toggle, viewkit::LayoutDirection::rightToLeft);
    EXPECT_LE(difference(picture(1), expected), 40) << "on: " << isOn;
    destroyWindow();
  }
}

}  // namespace
}  // namespace qt
