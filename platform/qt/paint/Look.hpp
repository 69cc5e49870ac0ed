// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

// Every number and fixed colour of the look. Lengths are points, durations milliseconds. A strength
// is the share, from 0 to 1, of a second colour that is blended into a first one; which colours
// these are is said where it is used (see `blended`).
namespace qt::look {

// Buttons, fields, menus and tabs.
inline constexpr qreal kCornerRadius = 6;
// The outline around the surface of a control or of a popover.
inline constexpr qreal kOutlineWidth = 1;
inline constexpr double kOutlineStrength = 0.22;
inline constexpr double kDisabledOutlineStrength = 0.12;
// Of every outline, where the user needs strong contrast.
inline constexpr double kHighContrastOutlineStrength = 0.75;
inline constexpr qreal kFocusRingWidth = 2;
// Above and below the one line of text of a control.
inline constexpr int kControlPadding = 5;
// How much of its own colour a disabled surface keeps.
inline constexpr double kDisabledFillStrength = 0.4;
// The font of the application is never smaller, in points: without a desktop, Qt's own choice is
// too small to read.
inline constexpr double kSmallestPointSize = 10;
// How far glyphs and lines may exceed the frame of their node.
inline constexpr int kOverhang = 2;
// Text keeps its full width in a frame that is too narrow by a fraction of a point.
inline constexpr qreal kElisionTolerance = 1;

namespace window {
// A window may be made lower than its content, but not lower than this.
inline constexpr int kLeastHeight = 240;
// What the window system's frame takes, until it is known.
inline constexpr int kFrameWidth = 2;
inline constexpr int kFrameHeight = 36;
}  // namespace window

namespace palette {
// White blended into a dark group background.
inline constexpr double kDarkButtonStrength = 0.09;
inline constexpr double kDarkTooltipStrength = 0.06;
// White blended into the colour of a button.
inline constexpr double kLightStrength = 0.2;
inline constexpr double kMidlightStrength = 0.1;
// The text's colour blended into the background.
inline constexpr double kAlternateRowStrength = 0.03;
inline constexpr double kMidStrength = 0.2;
inline constexpr double kDarkStrength = 0.3;
inline constexpr double kShadowStrength = 0.6;
inline constexpr double kDisabledTextStrength = 0.38;
inline constexpr double kDisabledSelectionStrength = 0.2;
}  // namespace palette

namespace button {
inline constexpr double kOutlineStrength = 0.2;
inline constexpr double kPressedStrength = 0.14;
inline constexpr double kHoveredStrength = 0.05;
// The opacity of the views in a plain button while it is pressed.
inline constexpr double kPressedContentOpacity = 0.6;
// Of Qt's own buttons, in dialogs.
inline constexpr int kDialogMargin = 12;
}  // namespace button

namespace pushButton {
inline constexpr qreal kMargin = 12;
// Of a button without a title.
inline constexpr qreal kSymbolMargin = 7;
inline constexpr qreal kSymbolSize = 14;
inline constexpr qreal kGap = 6;
}  // namespace pushButton

namespace helpButton {
inline constexpr qreal kDiameter = 20;
inline constexpr qreal kSymbolSize = 12;
}  // namespace helpButton

// The double arrow of buttons that open a menu or a chooser.
namespace indicator {
inline constexpr qreal kSize = 10;
inline constexpr double kStrength = 0.7;
}  // namespace indicator

namespace menuButton {
inline constexpr qreal kMargin = 10;
inline constexpr qreal kGap = 8;
}  // namespace menuButton

namespace menu {
// Around the list of items.
inline constexpr int kPadding = 5;
inline constexpr int kItemHorizontalPadding = 10;
inline constexpr int kItemVerticalPadding = 4;
inline constexpr qreal kItemRadius = kCornerRadius - 2;
// Between the menu and the control that opened it.
inline constexpr int kGap = 2;
inline constexpr int kScreenMargin = 8;
inline constexpr int kMaxWidth = 560;
// Of the height of the screen. A longer menu scrolls.
inline constexpr double kMaxShare = 0.7;
}  // namespace menu

namespace fontPicker {
inline constexpr qreal kMargin = 9;
inline constexpr qreal kSampleWidth = 24;
inline constexpr qreal kGap = 6;
// Of the sample in the chooser.
inline constexpr int kDialogSampleHeight = 96;
}  // namespace fontPicker

namespace colorWell {
inline constexpr qreal kWidth = 44;
inline constexpr qreal kInset = 4;
inline constexpr qreal kSwatchRadius = kCornerRadius - 3;
inline constexpr qreal kSwatchOutlineWidth = 1;
inline constexpr QColor kSwatchOutline{128, 128, 128, 110};
inline constexpr double kDisabledOpacity = 0.4;
// The checkerboard behind a translucent colour.
inline constexpr qreal kCheckSize = 4;
inline constexpr QColor kLightCheck{255, 255, 255};
inline constexpr QColor kDarkCheck{190, 190, 190};
}  // namespace colorWell

// Not "switch", which is a keyword.
namespace toggle {
inline constexpr qreal kTrackWidth = 36;
inline constexpr qreal kTrackHeight = 20;
inline constexpr qreal kSmallTrackWidth = 28;
inline constexpr qreal kSmallTrackHeight = 16;
// Around the track, for the focus ring.
inline constexpr qreal kRingSpace = 3;
inline constexpr qreal kKnobInset = 2;
inline constexpr int kMoveDuration = 120;
// The label's colour blended into the background or, when the switch is on, into the accent colour.
inline constexpr double kOffStrength = 0.26;
inline constexpr double kHoveredOffStrength = 0.32;
inline constexpr double kHighContrastOffStrength = 0.55;
inline constexpr double kHoveredOnStrength = 0.1;
inline constexpr QColor kKnob{255, 255, 255};
// White blended into the track.
inline constexpr double kDisabledKnobStrength = 0.7;
inline constexpr QColor kPressedKnobShade{0, 0, 0, 24};
inline constexpr QColor kKnobShadow{0, 0, 0, 40};
// How far the shadow exceeds the knob, on each side and below.
inline constexpr qreal kKnobShadowSpread = 0.5;
inline constexpr qreal kKnobShadowDrop = 1;
}  // namespace toggle

namespace field {
inline constexpr int kHorizontalPadding = 7;
// Of a field that is offered no width.
inline constexpr double kDefaultWidth = 160;
}  // namespace field

namespace selectableText {
// Around the text, for the focus ring.
inline constexpr int kRingSpace = 4;
inline constexpr qreal kFocusRingRadius = 3;
}  // namespace selectableText

namespace tabBar {
inline constexpr qreal kSymbolSize = 20;
inline constexpr qreal kPadding = 14;
inline constexpr qreal kTop = 6;
inline constexpr qreal kGap = 3;
inline constexpr qreal kBottom = 5;
inline constexpr qreal kMinWidth = 68;
// Beside the background of a tab, and between that and the tab's title.
inline constexpr qreal kInset = 2;
// The label's colour blended into the background.
inline constexpr double kSelectedFillStrength = 0.1;
inline constexpr double kHoveredFillStrength = 0.05;
inline constexpr double kLabelStrength = 0.75;
}  // namespace tabBar

namespace scrollArea {
inline constexpr int kGlideDuration = 130;
// Of the visible height, for Page Up and Page Down.
inline constexpr double kPageShare = 0.9;
inline constexpr double kLineHeight = 20;
}  // namespace scrollArea

namespace scrollBar {
// Content has a margin of ten points: the slider leaves a distance to it, hovered too.
inline constexpr int kExtent = 10;
inline constexpr qreal kThickness = 4;
inline constexpr qreal kHoveredThickness = 6;
// Between the slider and the edges of the bar.
inline constexpr int kEdge = 2;
inline constexpr int kShortestSlider = 24;
inline constexpr float kOpacity = 0.28F;
inline constexpr float kHoveredOpacity = 0.42F;
inline constexpr float kPressedOpacity = 0.55F;
}  // namespace scrollBar

namespace popover {
inline constexpr qreal kCornerRadius = 9;
// The width of the shadow on each side.
inline constexpr int kShadowExtent = 12;
inline constexpr qreal kShadowDrop = 3;
inline constexpr double kShadowOpacity = 0.16;
// Between the popover and the view that it belongs to.
inline constexpr int kGap = 4;
inline constexpr int kWindowMargin = 4;
}  // namespace popover

namespace tooltip {
inline constexpr qreal kCornerRadius = 0;
inline constexpr int kMargin = 5;
inline constexpr double kOutlineStrength = 0.2;
}  // namespace tooltip

namespace updateDialog {
inline constexpr int kTextWidth = 420;
inline constexpr int kNotesHeight = 180;
inline constexpr int kSpacing = 16;
// Relative to the font of the dialog.
inline constexpr double kHeadlineScale = 1.15;
}  // namespace updateDialog

}  // namespace qt::look
