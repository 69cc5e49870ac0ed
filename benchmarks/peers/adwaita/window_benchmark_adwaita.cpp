// SPDX-License-Identifier: MIT
#include "PageView.hpp"
#include "window/Analyzers.hpp"
#include "window/Report.hpp"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr guint kPatienceMilliseconds = 10'000;
constexpr guint kSettlingMilliseconds = 50;
// The rows that are visible without scrolling.
constexpr int kAnalyzersInTurn = 8;

void runFor(guint milliseconds) {
  bool isOver = false;
  g_timeout_add_once(
      milliseconds, +[](gpointer over) { *static_cast<bool*>(over) = true; }, &isOver);
  while (!isOver) g_main_context_iteration(nullptr, TRUE);
}

// Counts the frames that the window has shown.
class Frames {
public:
  explicit Frames(GtkWidget* window) {
    const auto painted = +[](GdkFrameClock* /*clock*/, int* count) { ++*count; };
    g_signal_connect(gtk_widget_get_frame_clock(window), "after-paint", G_CALLBACK(painted),
                     &count_);
  }

  void waitForNext() const {
    const guint patience = g_timeout_add_once(
        kPatienceMilliseconds,
        +[](gpointer) {
          std::fputs("nothing was painted\n", stderr);
          std::exit(1);
        },
        nullptr);
    const int before = count_;
    while (count_ == before) g_main_context_iteration(nullptr, TRUE);
    g_source_remove(patience);
  }

private:
  int count_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const Task task = Task::of(argc, argv);
  registerAnalyzers(task.analyzers);
  // Of the renderers that work without a graphics card, this one is the faster.
  setenv("GSK_RENDERER", "cairo", 1);
  adw_init();
  const Start start{.ready = Clock::now()};
  gtk_icon_theme_add_resource_path(gtk_icon_theme_get_for_display(gdk_display_get_default()),
                                   "/peer/icons");

  const auto store = foundation::UserDefaults::inMemory();
  GtkWidget* const window = adw_window_new();
  peers::PageView page(*store);
  gtk_window_set_title(GTK_WINDOW(window), "Settings");
  gtk_window_set_default_size(GTK_WINDOW(window), kWindowWidth, kWindowHeight);
  adw_window_set_content(ADW_WINDOW(window), page.widget());
  gtk_widget_realize(window);
  const Frames frames(window);
  gtk_window_present(GTK_WINDOW(window));
  frames.waitForNext();
  reportFirstFrame(task, start);

  // GTK 4 takes no events from its program, so the selection is set where a click sets it.
  for (int i = 1; i <= task.repetitions; ++i) {
    runFor(kSettlingMilliseconds);
    Stopwatch stopwatch;
    page.select(static_cast<std::size_t>(i % kAnalyzersInTurn));
    frames.waitForNext();
    stopwatch.stop();
    while (g_main_context_iteration(nullptr, FALSE) != FALSE) continue;
    stopwatch.report("selection");
  }
  // The page outlives its widgets.
  gtk_window_destroy(GTK_WINDOW(window));
}
