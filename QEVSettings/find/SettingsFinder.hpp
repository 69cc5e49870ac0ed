// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingsIndex.hpp"
#include "QEVSettings/SettingsNavigation.hpp"
#include "foundation/ObservableObject.hpp"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace QEVSettings {

// What a window's find field searches for, and what it found. The index is begun with the first
// search and completed in short turns of the main queue: a search finds at once what is in the
// index, and the rest when that is there. Main thread.
class SettingsFinder final : public foundation::ObservableObject,
                             public std::enable_shared_from_this<SettingsFinder> {
public:
  // The store outlives the finder. `hasTab` says which tabs the window has.
  SettingsFinder(std::shared_ptr<SettingsNavigation> navigation, PreferencesStore& store,
                 std::function<bool(std::string_view)> hasTab);

  const std::string& query() const { return query_; }
  // Searches, and opens the list. An empty query closes it.
  void setQuery(std::string query);
  bool isForChanged() const;
  // Adds the word for changed settings to the query, or takes it out.
  void toggleForChanged();

  const FoundSettings& found() const { return found_; }
  // Whether more may be found.
  bool isSearching() const { return index_ && !index_->isComplete(); }

  // The list of what was found.
  bool isOpen() const { return isOpen_; }
  void open();
  void close();
  // The position in the list, -1 for none.
  int selected() const { return selected_; }
  void select(int position);
  // Selects the next or an earlier one; the last is followed by the first.
  void moveSelection(int step);
  // Leads the user to a result, and closes the list. Does nothing for a position without a result.
  void choose(int position);

private:
  void search();
  void prepareIndex();
  void continueLater();

  std::shared_ptr<SettingsNavigation> navigation_;
  PreferencesStore& store_;
  std::function<bool(std::string_view)> hasTab_;
  std::unique_ptr<SettingsIndex> index_;
  bool isContinuing_ = false;
  std::string query_;
  FoundSettings found_;
  bool isOpen_ = false;
  int selected_ = -1;
};

}  // namespace QEVSettings
