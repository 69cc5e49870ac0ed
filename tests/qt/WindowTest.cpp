// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "appkit/Application.hpp"
#include "qt/Application.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"
#include "viewkit/Text.hpp"

#include <QDir>
#include <QImage>
#include <QPaintEvent>
#include <QTemporaryDir>
#include <QTest>
#include <unistd.h>

namespace qt {
namespace {

using viewkit::Color;
using viewkit::View;

using WindowTest = WindowFixture;

View block(Color color, double width, double height) {
  return viewkit::RoundedRectangle().fill(color).frame(
      viewkit::FixedFrame{.width = width, .height = height});
}

const appkit::RGBA kRed{1, 0, 0, 1};
const appkit::RGBA kGreen{0, 1, 0, 1};

// Records the area that a widget paints.
class PaintWatcher : public QObject {
public:
  explicit PaintWatcher(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }

  QRegion painted;
};

TEST_F(WindowTest, OnlyChangedAreaIsRepainted) {
  struct Blocks {
    viewkit::State<bool> green = false;
    View body() const {
      return viewkit::VStack({.spacing = 0},
                             {block(Color(kRed), 200, 100),
                              block(Color(green ? kGreen : kRed), 200, 50).onTap([self = *this] {
                                self.green.set(true);
                              })});
    }
  };
  open(Blocks{});
  const PaintWatcher watcher(topLevel());
  QTest::mouseClick(&topLevel(), Qt::LeftButton, {}, QPoint(100, 120));
  settle();
  EXPECT_FALSE(watcher.painted.isEmpty());
  EXPECT_LT(watcher.painted.boundingRect().height(), 60);
  EXPECT_EQ(topLevel().grab().toImage().pixelColor(100, 120), QColor(Qt::green));
}

TEST_F(WindowTest, ChangeOfAppearanceRepaintsCanvasAndControls) {
  appkit::Application::sharedApplication().setAppearance(appkit::Appearance::light);
  open(viewkit::VStack({}, {block(Color::windowBackground(), 100, 100),
                            viewkit::TextField({}, viewkit::Binding<std::string>::constant("x"))}));
  const QColor light = topLevel().grab().toImage().pixelColor(50, 50);
  const PaintWatcher canvas(topLevel());
  const PaintWatcher field(widget(QAccessible::EditableText));
  appkit::Application::sharedApplication().setAppearance(appkit::Appearance::dark);
  settle();
  EXPECT_TRUE(canvas.painted.contains(QPoint(50, 50)));
  EXPECT_FALSE(field.painted.isEmpty());
  EXPECT_GT(light.lightness(), 200);
  EXPECT_LT(topLevel().grab().toImage().pixelColor(50, 50).lightness(), 60);
}

TEST_F(WindowTest, WindowIsAtLeastAsLargeAsRootViewAndFollowsItsHeight) {
  struct Growing {
    viewkit::State<bool> grown = false;
    View body() const {
      return viewkit::Button("grow", [self = *this] { self.grown.set(true); })
          .frame(viewkit::FixedFrame{.height = grown ? 600.0 : 200.0})
          .frame(viewkit::FlexibleFrame{.minWidth = 720});
    }
  };
  open(Growing{});
  EXPECT_EQ(topLevel().minimumSize(), QSize(720, 200));
  EXPECT_EQ(topLevel().size(), QSize(720, 200));
  QTest::mouseClick(&widget(QAccessible::PushButton, "grow"), Qt::LeftButton);
  settle();
  EXPECT_EQ(topLevel().size(), QSize(720, 600));
}

TEST_F(WindowTest, RightToLeftLayoutIsMirrored) {
  open(viewkit::HStack({.spacing = 0}, {block(Color(kRed), 100, 100), viewkit::Button("b", [] {}),
                                        viewkit::Spacer()})
           .frame(viewkit::FlexibleFrame{.maxWidth = viewkit::kUnlimited}),
       viewkit::LayoutDirection::rightToLeft);
  const int width = topLevel().width();
  EXPECT_EQ(topLevel().grab().toImage().pixelColor(width - 50, 50), QColor(Qt::red));
  EXPECT_EQ(widget(QAccessible::PushButton, "b").geometry().right(), width - 101);
}

TEST_F(WindowTest, ViewOverControlIsPaintedOverIt) {
  open(viewkit::Button("under", [] {})
           .frame(viewkit::FixedFrame{.width = 100, .height = 40})
           .overlay(viewkit::RoundedRectangle().fill(Color(kRed))));
  const QWidget& button = widget(QAccessible::PushButton, "under");
  const QPoint center = button.mapTo(&topLevel(), button.rect().center());
  EXPECT_EQ(topLevel().grab().toImage().pixelColor(center), QColor(Qt::red));
}

TEST_F(WindowTest, SnapshotHasRequestedScaleAndFailureNamesPath) {
  open(viewkit::VStack({}, {block(Color(kRed), 100, 100), viewkit::Button("b", [] {})}));
  const QTemporaryDir folder;
  for (const int scale : {1, 2}) {
    const QString path = folder.filePath(QString::number(scale) + ".png");
    ASSERT_TRUE(window().snapshot(path.toStdString(), scale));
    const QImage image(path);
    EXPECT_EQ(image.size(), topLevel().size() * scale);
    EXPECT_EQ(image.pixelColor(50 * scale, 20 * scale), QColor(Qt::red));
  }
  const auto refused = window().snapshot("/nowhere/at/all.png", 1);
  ASSERT_FALSE(refused);
  EXPECT_NE(refused.error().message.find("/nowhere/at/all.png"), std::string::npos);
}

TEST_F(WindowTest, ClosingEndsViewsThenCallsOnClose) {
  std::vector<std::string> order;
  open(View(viewkit::Text("text").onDisappear([&] { order.emplace_back("disappeared"); })));
  window().onClose([&] {
    order.emplace_back("closed");
    EXPECT_FALSE(window().isOpen());
  });
  window().close();
  EXPECT_EQ(order, (std::vector<std::string>{"disappeared"}));
  settle();
  EXPECT_EQ(order, (std::vector<std::string>{"disappeared", "closed"}));
  window().show();
  EXPECT_FALSE(window().isOpen()) << "a closed window stays closed";
}

TEST_F(WindowTest, PlatformColorsApplyUnlessApplicationSetsAppearance) {
  open(viewkit::Text("text"));
  auto& shared = appkit::Application::sharedApplication();
  const auto looksDark = [this] {
    return topLevel().grab().toImage().pixelColor(3, 3).lightness() < 128;
  };
  const auto platformTurns = [](Qt::GlobalColor window, Qt::GlobalColor text) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    QApplication::setPalette(palette);
    settle();
  };
  EXPECT_FALSE(looksDark());
  platformTurns(Qt::black, Qt::white);
  EXPECT_EQ(shared.effectiveAppearance(), appkit::Appearance::dark);
  EXPECT_TRUE(looksDark());

  shared.setAppearance(appkit::Appearance::light);
  platformTurns(Qt::white, Qt::black);
  platformTurns(Qt::black, Qt::white);
  EXPECT_FALSE(looksDark());
  shared.setAppearance(std::nullopt);
  settle();
  EXPECT_TRUE(looksDark()) << "the latest colors of the platform";
  platformTurns(Qt::white, Qt::black);
  EXPECT_FALSE(looksDark());
}

TEST_F(WindowTest, DescriptorIsWatchedUntilSubscriptionEnds) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  int heard = 0;
  auto subscription = application().watch(ends[0], [&] {
    char byte = 0;
    heard += static_cast<int>(read(ends[0], &byte, 1));
  });
  ASSERT_EQ(write(ends[1], "ab", 2), 2);
  EXPECT_TRUE(QTest::qWaitFor([&] { return heard == 2; }));
  subscription.cancel();
  ASSERT_EQ(write(ends[1], "c", 1), 1);
  settle();
  EXPECT_EQ(heard, 2);
  ::close(ends[0]);
  ::close(ends[1]);
}

}  // namespace
}  // namespace qt
