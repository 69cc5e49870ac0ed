// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Event.hpp"
#include "appkit/Font.hpp"
#include "appkit/Window.hpp"
#include "headless/Description.hpp"
#include "headless/Element.hpp"
#include "headless/Metrics.hpp"
#include "viewkit/ViewHost.hpp"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headless {

class Keyboard;

// The keys that are pressed for what they do; the rest is typed with `Window::type`. See Window.
enum class Key {
  enter,
  escape,
  tab,
  space,
  deleteBackward,
  upArrow,
  downArrow,
  leftArrow,
  rightArrow,
  pageUp,
  pageDown,
  home,
  end,
  f1,
  f4,
  f,
  f10,
  menu,
  w,
  z,
};

// How a window without a screen is opened.
//
//     const Window window(view, {.defaultStore = *store}, {.stepsAnimations = true});
struct WindowOptions {
  // The space inside the window, points; left out, as much as the root view asks for, in a window
  // that opens no wider than 720 where less is enough.
  std::optional<viewkit::Size> size = std::nullopt;
  // Opens as the application's key window.
  bool isKey = true;
  // Animations stand still until `advance`; otherwise each of them ends in the update that began
  // it.
  bool stepsAnimations = false;
};

// A window without a screen: it shows a view, lays it out with metrics that are the same on every
// machine, and is used the way the user uses a window.
//
//     headless::Window window(SettingsView{}, {.defaultStore = store}, {.size = {{840, 600}}});
//     window.click(window.find(Role::toggle, "Checksums"));
//     window.click(window.find(Role::textField, "Ports"));
//     window.type("80, 443");
//     window.press(Key::enter);
//     EXPECT_EQ(store.stringForKey("ports"), "80,443");
//
// Whatever the user does is over when the call returns: the main queue is empty, and what is on the
// screen is up to date. What is done to a disabled control does nothing. Main thread only.
class Window final : public appkit::Window {
public:
  // The environment's store outlives the window.
  Window(viewkit::View root, viewkit::Environment environment, const WindowOptions& options = {});
  // Closes the window.
  ~Window() override;

  // Ends the editing of text, which commits it, and takes every view away. The window stays closed:
  // it shows nothing, and keys do nothing in it.
  void close();
  bool isOpen() const { return isOpen_; }
  // The texts that stood refused in their fields when the window was closed.
  const std::vector<viewkit::RefusedText>& refusedTexts() const { return refusedTexts_; }

  void setSize(viewkit::Size size);
  viewkit::Size size() const { return size_; }
  void setEnvironment(viewkit::Environment environment);

  // Looks among what is on the screen, scrolled out of sight or not. An element goes by its
  // accessibility label, and where it has none by its help text.
  Element find(viewkit::Role role, std::string_view label) const;
  // The only element with this role.
  Element find(viewkit::Role role) const;
  // In the order in which they are read.
  std::vector<Element> findAll(viewkit::Role role) const;
  // What shows exactly this text, as it is shown.
  Element findText(std::string_view text) const;

  // A click in the middle of the element, which is scrolled into sight first; whether anything took
  // it. A button acts, a toggle turns, a text field begins to be edited with the caret at its end,
  // whatever is no control gives the click to the view under it. Menus, choosers and tabs: see
  // `choose`.
  //
  // A click moves the keyboard to the control that it hits, and closes a popover that it misses.
  bool click(const Element& element);
  bool click(viewkit::Point point);

  // Opens the menu behind the element and reads what is in it.
  std::vector<viewkit::MenuItem> menuItems(const Element& menu);
  // Opens the menu and picks the item with this title, or the tab with this title from a tab bar.
  // Throws NoSuchElement with the titles that there are when this one is not among them. Returns
  // whether the element was enabled, as do the other two.
  bool choose(const Element& menuOrTabs, std::string_view title);
  // Opens the menu behind the element and leaves it open: Up and Down go through its items, Return
  // and Space pick the current one, Escape, a click and the end of the control close it. No other
  // key does anything meanwhile. Whether it is open.
  bool openMenu(const Element& menu);
  // A right click in the middle of the element, which opens the context menu there and leaves it
  // open. Whether there is one. A press of Key::menu opens that of the control with the keyboard.
  bool openContextMenu(const Element& element);
  // Opens the context menu of the element, and picks the item with this title. Throws NoSuchElement
  // with the titles that there are when this one is not among them. Whether the item was enabled.
  bool chooseFromContextMenu(const Element& element, std::string_view title);
  // The items of the open menu; empty while none is open.
  std::vector<viewkit::MenuItem> openMenuItems() const;
  bool isMenuOpen() const { return menu_.has_value(); }
  // Settles on a colour, or a font, in the chooser that the element opens.
  bool choose(const Element& colorWell, appkit::RGBA color);
  bool choose(const Element& fontPicker, const appkit::Font& font);
  // From the only tab bar in the window.
  void selectTab(std::string_view title);

  // The pointer comes to rest in the middle of the element, scrolled into sight first; it stays
  // there until it moves elsewhere or leaves the window.
  void hover(const Element& element);
  void movePointer(viewkit::Point point);
  void pointerLeft();

  // Turns the wheel over the element by this many points, towards the end when positive.
  void scroll(const Element& element, double dy);

  // Keys go to the application's monitors, then to the window (see viewkit::routeKey), then to the
  // control that has the keyboard. Nothing comes of them unless this is the key window. Each
  // character is a key press of its own.
  void type(std::string_view text);
  // Enter commits a text and presses a button; space presses; tab and shift-tab go from one enabled
  // control to the next, in the order of the tree and round at its end.
  void press(Key key, std::uint8_t modifiers = appkit::Event::none);
  // Marks all the text that is being edited: what is typed next takes its place.
  void selectAll();

  // Whether key presses come here.
  bool isKey() const;
  void becomeKey();
  void resignKey();

  appkit::Responder* firstResponder() const override;
  // Agrees to the responder that it already has, and to none: a text that is being edited is
  // committed if it changed. It agrees to no other.
  bool makeFirstResponder(appkit::Responder* responder) override;
  // The control that has the keyboard, if one has.
  std::optional<Element> focused() const;

  // Brings everything up to date, as the other calls do by themselves: for changes that were made
  // to a model or to the store.
  void settle();
  // Lets this much time pass for animations that are stepped.
  void advance(std::chrono::duration<double> elapsed);

  viewkit::NodeDescription describe() const { return host_->describe(); }
  viewkit::ViewHost& host() { return *host_; }
  const viewkit::ViewHost& host() const { return *host_; }

private:
  struct OpenMenu {
    // Whether its opener can still be used. If not, the menu closes.
    std::function<bool()> isUsable;
    std::vector<viewkit::MenuItem> items;
    // -1 for none.
    std::ptrdiff_t current = -1;
  };

  const viewkit::PresentationNode& bringIntoSight(const Element& element);
  bool clickControl(viewkit::NodeId id, viewkit::Point point);
  bool readyToUse(const Element& element);
  void pickTab(const viewkit::TabBarControl& tabs, std::string_view title);
  void closePopovers(const viewkit::PresentationNode* clicked);
  void pressKey(const appkit::Event& event);
  void openMenuOf(const viewkit::PresentationNode& opener);
  bool open(std::optional<viewkit::ContextMenu> menu);
  // Goes on from the current item by this step, over items that cannot be picked.
  void moveInMenu(std::ptrdiff_t step);
  void pressInMenu(const appkit::Event& event);
  bool isUsable(viewkit::NodeId id) const;
  viewkit::Size openingSize() const;

  Metrics metrics_;
  viewkit::Size size_;
  bool stepsAnimations_;
  bool isOpen_ = true;
  std::unique_ptr<Keyboard> keyboard_;
  std::unique_ptr<viewkit::ViewHost> host_;
  std::optional<OpenMenu> menu_;
  std::vector<viewkit::RefusedText> refusedTexts_;
  // The control that the views want to have the keyboard, 0 for none.
  viewkit::NodeId wantedFocus_ = 0;
};

}  // namespace headless
